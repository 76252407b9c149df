#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "utilities/transform_file.h"

#include <gtest/gtest.h>

namespace {

PointTransform example()
{
    PointTransform transform;
    transform.rotation = -12.5;
    transform.elevation_shift = 0.25;
    transform.elevation_scale = 2;
    transform.x_origin = 500000.125;
    transform.y_origin = 6500000;
    transform.new_x_origin = 100;
    transform.new_y_origin = -200;
    transform.x_scale = 0.9996;
    transform.y_scale = 1;
    transform.x2 = 1;
    transform.new_y2 = 0.1;
    normalise_point_transform(transform);
    return transform;
}

// A value that is not negative has a blank for its sign, and one more blank parts the values.
const char * example_block = "-12.5  .25  2\r\n"
                             " 500000.125  .9996  100  1  0\r\n"
                             " 6500000  1 -200  0  .1\r\n";

struct BlockCase {
    const char * name;
    const char * text;
    void (*change)(PointTransform &); ///< what it changes in the example
};

const BlockCase block_cases[] = {
    { "first_values_alone", "7\n8\n", [](PointTransform & t) { t.rotation = 7, t.x_origin = 8; } },
    { "lone_value_on_line_3_is_not_taken", "7\n8\n9\n", [](PointTransform & t) { t.rotation = 7, t.x_origin = 8; } },
    { "two_values_on_line_3", "7\n8\n9 3\n",
      [](PointTransform & t) { t.rotation = 7, t.x_origin = 8, t.y_origin = 9, t.y_scale = 3; } },
    { "zero_scale_becomes_1", "-12.5,.25,0\n500000.125;0\n", [](PointTransform & t) { t.elevation_scale = 1, t.x_scale = 1; } },
    { "nothing_at_all", "", [](PointTransform &) {} },
};

struct FileCase {
    const char * name;
    const char * content;
    const char * message; ///< empty: it is taken
    double x_origin = 0, new_y2 = 0, elevation_shift = 0, elevation_scale = 1;
};

const FileCase file_cases[] = {
    { "four_fields", "head\r\n1 2 3 4\r\n11 2 3 14\r\n5 2\r\n", "", 1, 14, 5, 2 },
    { "leading_station_loses_the_elevations", "head\n7 1 2 3 4\n8 11 2 3 14\n5 2\n", "", 1, 14, 0, 1 },
    { "commas_and_no_elevations", "head\n1,2,3,4\n11,2,3,14", "", 1, 14, 0, 1 },
    { "grid_points_too_close", "head\n1 2 3 4\n1.9 2 3 14\n", "The start and end grid coordinates cannot be identical" },
    { "map_points_too_close", "head\n1 2 3 4\n11 2 3 4.5\n", "The start and end map coordinates cannot be identical" },
    { "empty", "", "The start and end grid coordinates cannot be identical" },
};

}

TEST(transform_block, given_a_transform_then_its_text_is_exact_and_reads_back)
{
    EXPECT_EQ(transform_block(example()), example_block);
    const TemporaryFolder folder;
    TextFile file(folder.write("block", example_block));
    PointTransform read;
    read_transform_block(file, read);
    EXPECT_EQ(read, example());
}

TEST(read_transform_block, given_missing_values_then_their_fields_keep_what_they_held)
{
    const TemporaryFolder folder;
    for (const BlockCase & row : block_cases) {
        TextFile file(folder.write("block", row.text));
        PointTransform read = example();
        read_transform_block(file, read);
        PointTransform expected = example();
        row.change(expected);
        normalise_point_transform(expected);
        EXPECT_EQ(read, expected) << row.name;
    }
}

TEST(write_transform_file, given_a_transform_then_the_file_holds_its_points_and_elevations)
{
    const TemporaryFolder folder;
    write_transform_file(folder.file("a.crd"), example());
    EXPECT_EQ(folder.read("a.crd"), "     Station        Depth      East       North\r\n"
                                    "500000.125 6500000 100 -200\r\n"
                                    "1 0 0 0.1\r\n"
                                    "0.25 2\r\n");
}

TEST(read_transform_file, given_a_file_then_it_is_taken_or_refused_whole)
{
    const TemporaryFolder folder;
    for (const FileCase & row : file_cases) {
        RecordedDialogs dialogs;
        PointTransform read = example();
        const Status status = read_transform_file(folder.write("a.crd", row.content), read, dialogs);
        if (*row.message != '\0') {
            EXPECT_EQ(status, Status::bad) << row.name;
            EXPECT_EQ(dialogs.messages, std::vector<std::string>{ row.message }) << row.name;
            EXPECT_EQ(read, example()) << row.name;
            continue;
        }
        EXPECT_EQ(status, Status::good) << row.name;
        EXPECT_TRUE(dialogs.messages.empty()) << row.name;
        EXPECT_EQ(read.x_origin, row.x_origin) << row.name;
        EXPECT_EQ(read.new_y2, row.new_y2) << row.name;
        EXPECT_EQ(read.elevation_shift, row.elevation_shift) << row.name;
        EXPECT_EQ(read.elevation_scale, row.elevation_scale) << row.name;
        EXPECT_NEAR(read.rotation, -90, 1e-6) << row.name; // the leg (10, 0) is moved to (0, 10)
    }
    RecordedDialogs dialogs;
    PointTransform untouched;
    EXPECT_THROW((void)read_transform_file(folder.file("none.crd"), untouched, dialogs), FileFault);
}
