#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "utilities/transform_file.h"

#include <gtest/gtest.h>

namespace {

PointTransform example()
{
    PointTransform t;
    t.rotation = -12.5, t.elevation_shift = 0.25, t.elevation_scale = 2;
    t.x_origin = 500000.125, t.x_scale = 0.9996, t.new_x_origin = 100, t.x2 = 1, t.new_x2 = 3;
    t.y_origin = 6500000, t.y_scale = 1, t.new_y_origin = -200, t.y2 = 7, t.new_y2 = 0.1;
    normalise_point_transform(t);
    return t;
}

// A value that is not negative has a blank for its sign, and one more blank parts the values.
const char * example_block = "-12.5  .25  2\r\n"
                             " 500000.125  .9996  100  1  3\r\n"
                             " 6500000  1 -200  7  .1\r\n";

struct BlockCase {
    const char * text;
    void (*change)(PointTransform &); ///< what it changes in the example
};

const BlockCase block_cases[] = {
    { "7\n8\n9\n", [](PointTransform & t) { t.rotation = 7, t.x_origin = 8; } }, // a lone value on line 3 is not taken
    { "7\n8\n9 3\n", [](PointTransform & t) { t.rotation = 7, t.x_origin = 8, t.y_origin = 9, t.y_scale = 3; } },
    { "-12.5,.25,0\n500000.125;0\n", [](PointTransform & t) { t.elevation_scale = t.x_scale = 1; } },
    { "", [](PointTransform &) {} },
};

struct FileCase {
    const char * content;
    std::string message; ///< empty: it is taken
    double shift = 0, scale = 1;
};

const FileCase file_cases[] = {
    { "head\r\n1 2 3 4\r\n11 2 3 14\r\n5 2\r\n", "", 5, 2 },
    { "head\n7 1 2 3 4\n8 11 2 3 14\n5 2\n", "", 0, 1 }, // a leading station loses the elevations
    { "head\n1,2,3,4\n11,2,3,14", "", 0, 1 },
    { "head\n1 2 3 4\n1.9 2 3 14\n", "The start and end grid coordinates cannot be identical" },
    { "head\n1 2 3 4\n11 2 3 4.5\n", "The start and end map coordinates cannot be identical" },
    { "", "The start and end grid coordinates cannot be identical" },
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
        EXPECT_EQ(read, expected) << row.text;
    }
}

TEST(write_transform_file, given_a_transform_then_the_file_holds_its_points_and_elevations)
{
    const TemporaryFolder folder;
    write_transform_file(folder.file("a.crd"), example());
    EXPECT_EQ(folder.read("a.crd"), "     Station        Depth      East       North\r\n"
                                    "500000.125 6500000 100 -200\r\n"
                                    "1 7 3 0.1\r\n"
                                    "0.25 2\r\n");
}

TEST(read_transform_file, given_a_file_then_it_is_taken_or_refused_whole)
{
    const TemporaryFolder folder;
    for (const FileCase & row : file_cases) {
        RecordedDialogs dialogs;
        PointTransform read = example(), expected = example();
        const Status status = read_transform_file(folder.write("a.crd", row.content), read, dialogs);
        const bool good = row.message.empty();
        EXPECT_EQ(status, good ? Status::good : Status::bad) << row.content;
        EXPECT_EQ(dialogs.messages, good ? std::vector<std::string>() : std::vector{ row.message }) << row.content;
        // The leg (10, 0) is moved to (0, 10).
        EXPECT_TRUE(!good || define_transform_from_points({ 1, 2, 3, 4 }, { 11, 2, 3, 14 }, row.shift, row.scale, expected));
        EXPECT_EQ(read, expected) << row.content;
    }
}
