#include "fakes/recorded_host.h"
#include "utilities/given_transform.h"

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
const char * const example_block = "-12.5  .25  2 /  500000.125  .9996  100  1  3 /  6500000  1 -200  7  .1";

}

TEST(transform_block, given_a_transform_then_its_text_is_exact_and_reads_back)
{
    EXPECT_EQ(transform_block(example()), file_of(example_block));
    EXPECT_EQ(transform_of(example_block), example());
}

TEST(read_transform_block, given_missing_values_then_their_fields_keep_what_they_held)
{
    const TemporaryFolder folder;
    for (const auto & [text, lines] : cases_of<2>("transform_block.cases")) {
        TextFile file(folder.write("block", text));
        PointTransform read = example();
        read_transform_block(file, read);
        EXPECT_EQ(transform_block(read), file_of(lines)) << text;
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
    for (const auto & [text, message, shift, scale] : cases_of<4>("transform_file.cases")) {
        RecordedDialogs dialogs;
        PointTransform read = example(), expected = example();
        const bool good = message.empty();
        EXPECT_EQ(read_transform_file(folder.write("a.crd", text), read, dialogs), good ? Status::good : Status::bad) << text;
        EXPECT_EQ(dialogs.messages, good ? std::vector<std::string>() : std::vector{ message }) << text;
        if (good) {
            EXPECT_TRUE(
                define_transform_from_points({ 1, 2, 3, 4 }, { 11, 2, 3, 14 }, number_in(shift), number_in(scale), expected));
        }
        EXPECT_EQ(read, expected) << text;
    }
}
