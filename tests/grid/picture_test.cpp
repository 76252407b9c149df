#include "fakes/temporary_folder.h"
#include "grid/picture.h"

#include <gtest/gtest.h>

// A bitmap of 2 x 2: red and green above blue and white; the file counts rows from the bottom and stores blue first.
constexpr char bitmap[] = "BM\x46\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\2\0\0\0\1\0\x18\0\0\0\0\0\x10\0\0\0"
                          "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xFF\0\0\xFF\xFF\xFF\0\0\0\0\xFF\0\xFF\0\0\0";

TEST(load_picture, given_a_bitmap_then_its_pixels_from_the_top_and_nothing_of_what_is_no_picture)
{
    const TemporaryFolder folder;
    const std::string whole(bitmap, sizeof bitmap - 1);
    const auto picture = load_picture(folder.write("a.bmp", whole));
#ifdef HAVE_FREEIMAGE
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 2);
    EXPECT_EQ(picture->height, 2);
    const std::vector<std::uint8_t> pixels = { 255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255 };
    EXPECT_EQ(picture->pixels, pixels);
#else
    EXPECT_FALSE(picture);
#endif
    std::string huge = whole;
    huge.replace(18, 4, "\xFF\xFF\xFF\x7F", 4);
    for (const auto & [name, content] :
         { std::pair("b.bmp", huge), { "c.png", std::string("no picture") }, { "d.tga", std::string() } })
        EXPECT_FALSE(load_picture(folder.write(name, content))) << name;
    EXPECT_FALSE(load_picture(folder.file("missing.bmp")));
}
