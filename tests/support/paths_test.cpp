#include "fakes/temporary_folder.h"
#include "support/fault.h"

#include <gtest/gtest.h>

namespace {

TEST(paths, given_a_path_then_its_parts_are_text)
{
    const auto parts = [](const char * path) {
        return file_name_of_path(path) + "|" + file_stem_of_path(path) + "|" + file_extension_of_path(path) + "|" +
               folder_of_path(path) + "|" + folder_without_drive(path) + "|" + drive_of_path(path);
    };
    EXPECT_EQ(parts("C:\\a\\b.c.txt"), "b.c.txt|b.c|txt|C:\\a\\|\\a\\|C:");
    EXPECT_EQ(parts("C:\\a\\.\\x\\..\\b"), "b|b||C:\\a\\|\\a\\|C:");
    EXPECT_EQ(parts("C:\\a\\"), "|||C:\\a\\|\\a\\|C:");
    EXPECT_EQ(parts("C:\\a.b\\..\\c\\"), "|||C:\\c\\|\\c\\|C:");
    EXPECT_EQ(file_name_of_path("a.b"), "a.b");
    EXPECT_EQ(folder_of_path("a.b"), "");
    EXPECT_EQ(folder_of_path("sub\\a.b"), current_folder() + "\\sub\\");
    EXPECT_EQ(file_name_of_path(std::string_view("x\\a.b\0zz", 8)), "a.b");
}

TEST(paths, given_two_places_then_the_way_between_them)
{
    EXPECT_EQ(relative_path("C:\\a\\b\\", "C:\\a\\b\\f.dat"), "f.dat");
    EXPECT_EQ(relative_path("C:\\a\\b\\", "C:\\a\\bc\\f.dat"), "..\\bc\\f.dat");
    EXPECT_EQ(relative_path("C:\\a\\b\\", "C:\\f.dat"), "..\\..\\f.dat");
    EXPECT_EQ(relative_path("C:\\a\\", "D:\\a\\f.dat"), "D:\\a\\f.dat");
    EXPECT_EQ(relative_path("C:\\a\\", "C:\\a\\"), "");
}

TEST(paths, given_files_and_folders_then_they_are_found_made_and_entered)
{
    const TemporaryFolder folder;
    const std::string start = current_folder(), file = folder.write("a b.dat", "x");
    EXPECT_EQ(find_file(" " + file + " "), "a b.dat");
    for (const std::string & none : { folder.path(), folder.file("gone"), std::string(" ") }) EXPECT_EQ(find_file(none), "");

    const std::string deep = folder.file("\xC3\xA9 1\\two\\three\\");
    make_folder_path(deep);
    make_folder_path(deep);
    EXPECT_TRUE(folder_exists(deep));
    EXPECT_FALSE(folder_exists(file));
    EXPECT_THROW(make_folder_path(file + "\\below"), FileFault);

    change_to_path(file);
    for (const std::string & none : { std::string(), deep + "gone\\far\\x" }) change_to_path(none);
    EXPECT_EQ(current_folder(), folder.path());
    change_to_path(deep + "gone\\"); // its parent
    EXPECT_EQ(current_folder() + "\\", deep);
    change_to_path(start);
}

}
