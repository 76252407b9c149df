#include "fakes/case_table.h"
#include "fakes/temporary_folder.h"
#include "support/fault.h"

#include <gtest/gtest.h>

namespace {

TEST(paths, given_a_path_then_its_parts_are_text)
{
    for (const auto & [path, name, stem, extension, folder, below_drive, drive] : cases_of<7>("path_parts.cases")) {
        SCOPED_TRACE(path);
        EXPECT_EQ(file_name_of_path(path) + "|" + file_stem_of_path(path) + "|" + file_extension_of_path(path),
                  name + "|" + stem + "|" + extension);
        EXPECT_EQ(folder_of_path(path) + "|" + folder_without_drive(path) + "|" + drive_of_path(path),
                  folder + "|" + below_drive + "|" + drive);
    }
    EXPECT_EQ(file_name_of_path("a.b") + "|" + folder_of_path("a.b"), "a.b|");
    EXPECT_EQ(folder_of_path("sub\\a.b"), current_folder() + "\\sub\\");
    EXPECT_EQ(file_name_of_path(std::string_view("x\\a.b\0zz", 8)), "a.b");
}

TEST(paths, given_two_places_then_the_way_between_them)
{
    for (const auto & [from, to, way] : cases_of<3>("relative_paths.cases")) EXPECT_EQ(relative_path(from, to), way) << to;
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
