#include "fakes/temporary_folder.h"
#include "support/fault.h"
#include "support/paths.h"

#include <gtest/gtest.h>
#include <string>

TEST(path_texts, given_paths_then_their_parts)
{
    struct Case {
        std::string path, name, stem, extension, folder, without_drive;
    };
    const Case cases[] = {
        { "a.b", "a.b", "a", "b", "", "\\" },
        { "C:\\data\\my survey\\tmi.v2.dat", "tmi.v2.dat", "tmi.v2", "dat", "C:\\data\\my survey\\", "\\data\\my survey\\" },
        { "C:\\data\\", "", "", "", "C:\\data\\", "\\data\\" },
        { "\\home\\x.y\\", "", "", "", "\\home\\x.y\\", "\\home\\x.y\\" },
        { "\\home\\a\\..\\b\\none", "none", "none", "", "\\home\\b\\", "\\home\\b\\" },
        { " \\w\xC3\xA4rme\\f.t ", "f.t", "f", "t", "\\w\xC3\xA4rme\\", "\\w\xC3\xA4rme\\" },
    };
    for (const Case & given : cases) {
        EXPECT_EQ(file_name_of_path(given.path), given.name) << given.path;
        EXPECT_EQ(file_stem_of_path(given.path), given.stem) << given.path;
        EXPECT_EQ(file_extension_of_path(given.path), given.extension) << given.path;
        EXPECT_EQ(folder_of_path(given.path), given.folder) << given.path;
        EXPECT_EQ(folder_without_drive(given.path), given.without_drive) << given.path;
    }
    EXPECT_EQ(file_name_of_path(std::string_view("x\\a.b\0junk", 10)), "a.b");
    EXPECT_EQ(drive_of_path("C:\\data"), "C:");
    EXPECT_EQ(folder_of_path("sub\\a.b"), current_folder() + "\\sub\\"); // against the current folder
    EXPECT_EQ(absolute_path("sub\\."), current_folder() + "\\sub");
}

TEST(relative_path, given_two_places_then_the_way_between_them)
{
    struct Case {
        std::string from, to, way;
    };
    const Case cases[] = {
        { "C:\\inv\\tile0101\\", "C:\\inv\\mesh", "..\\mesh" },
        { "C:\\inv\\tile0101\\", "C:\\models\\a\\start.sus", "..\\..\\models\\a\\start.sus" },
        { "C:\\inv\\", "C:\\inv\\sub\\mesh", "sub\\mesh" },
        { "C:\\inv\\sub\\", "C:\\inv", ".." },
        { "C:\\inv\\", "C:\\inv\\", "" },                  // all is shared
        { "C:\\inv\\", "D:\\inv\\mesh", "D:\\inv\\mesh" }, // another drive
        { "C:\\inv\\", "mesh", "mesh" },
    };
    for (const Case & given : cases) EXPECT_EQ(relative_path(given.from, given.to), given.way) << given.from << " " << given.to;
}

TEST(files_and_folders, given_names_with_blanks_and_accents_then_found_made_and_deleted)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("r\xC3\xA9sum\xC3\xA9 1.dat", "x");
    EXPECT_EQ(find_file(path), "r\xC3\xA9sum\xC3\xA9 1.dat");
    EXPECT_EQ(find_file("  "), "");
    EXPECT_EQ(find_file(folder.path()), ""); // a folder is no file
    EXPECT_EQ(find_file(folder.file("none")), "");
    EXPECT_TRUE(folder_exists(folder.path()));
    EXPECT_FALSE(folder_exists(path));

    make_folder_path(folder.file("a b\\c\\"));
    make_folder_path(folder.file("a b\\c")); // once more does no harm
    EXPECT_TRUE(folder_exists(folder.file("a b\\c")));
    EXPECT_THROW(make_folder_path(path + "\\below"), FileFault);

    delete_file(folder.path());
    EXPECT_TRUE(folder_exists(folder.path()));
    delete_file(path);
    delete_file(path);
    EXPECT_EQ(find_file(path), "");
}

TEST(change_to_path, given_files_and_folders_then_the_folder_becomes_current_or_nothing_changes)
{
    const TemporaryFolder folder;
    const std::string start = current_folder();
    const std::string file = folder.write("data.txt", "x");
    make_folder_path(folder.file("sub"));
    const auto current_after = [&start](const std::string & path) {
        change_to_path(start);
        change_to_path(path);
        return current_folder();
    };
    EXPECT_EQ(current_after(folder.file("sub")), folder.file("sub"));
    EXPECT_EQ(current_after(file), folder.path());
    EXPECT_EQ(current_after(folder.file("gone\\")), folder.path());
    EXPECT_EQ(current_after(folder.file("gone\\deep\\file")), start);
    EXPECT_EQ(current_after("  "), start);
    change_to_path(start);
}

TEST(make_temp_file_name, given_two_calls_then_two_names_and_no_file)
{
    const TemporaryFolder folder;
    const std::string first = make_temp_file_name(folder.path(), "~WD"), second = make_temp_file_name(folder.path(), "~WD");
    EXPECT_NE(first, second);
    EXPECT_TRUE(first.starts_with(folder.file("~WD")));
    EXPECT_EQ(find_file(first), "");
}
