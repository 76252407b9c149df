#include "fakes/temporary_folder.h"
#include "support/fault.h"
#include "support/file_writer.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

std::ptrdiff_t files_in(const TemporaryFolder & folder)
{
    return std::distance(fs::directory_iterator(host_path(folder.path())), {});
}

TEST(new_file, given_one_that_is_dropped_then_what_stood_there_stays_alone)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("out.txt", "old");
    {
        FileWriter dropped(path);
        dropped.text(std::string(1 << 20, 'n'));
        EXPECT_EQ(folder.read("out.txt"), "old"); // until the new one is whole
    }
    EXPECT_EQ(folder.read("out.txt"), "old");
    EXPECT_EQ(files_in(folder), 1);
}

#ifndef _WIN32
TEST(new_file, given_a_link_or_permissions_then_they_stay)
{
    const TemporaryFolder folder;
    const fs::path real = host_path(folder.write("real.txt", "old"));
    fs::create_symlink("real.txt", host_path(folder.file("link.txt")));
    constexpr fs::perms own = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(real, own);
    replace_file(folder.file("link.txt"), "new");
    EXPECT_TRUE(fs::is_symlink(host_path(folder.file("link.txt"))));
    EXPECT_EQ(folder.read("real.txt"), "new");
    EXPECT_EQ(fs::status(real).permissions(), own);
    EXPECT_EQ(files_in(folder), 2);
}

TEST(new_file, given_a_protected_file_then_its_copy_can_be_replaced)
{
    const TemporaryFolder folder;
    const std::string source = folder.write("model.sus", "1");
    fs::permissions(host_path(source), fs::perms::owner_read);
    for (int run = 1; run <= 2; ++run) copy_file(source, folder.file("copy.sus"));
    EXPECT_NE(fs::status(host_path(folder.file("copy.sus"))).permissions() & fs::perms::owner_write, fs::perms::none);
}

/// Does something in a process of its own, which ends as when killed.
void in_another_process(const std::function<void()> & steps)
{
    const pid_t child = fork();
    if (child == 0) {
        steps();
        _exit(0);
    }
    waitpid(child, nullptr, 0);
}

TEST(stale_work_files, given_those_of_dead_and_living_processes_then_only_the_dead_ones_go)
{
    const TemporaryFolder folder;
    in_another_process([&folder] {
        const FileWriter file(folder.file("a.txt"));
        _exit(0); // which leaves its working file behind
    });
    ASSERT_EQ(files_in(folder), 1);
    // Too like ours to be touched by chance: one digit too many, one sign too many, a link, a folder.
    for (const char * name : { "~WDqvinv3d_12345678901.tmp", "~WDqvinv3d_1x.tmp", "~WDqvinv3d_.tmp", "~WD7.tmp" })
        folder.write(name, "the user's");
    fs::create_symlink("~WD7.tmp", host_path(folder.file("~WDqvinv3d_1.tmp")));
    fs::create_directory(host_path(folder.file("~WDqvinv3d_2.tmp")));
    const FileWriter living(folder.file("b.txt")); // looks
    EXPECT_EQ(files_in(folder), 7);
}

TEST(stale_work_files, given_a_file_that_another_program_is_writing_then_it_is_left_alone)
{
    const TemporaryFolder folder;
    const FileWriter living(folder.file("b.txt"));
    // this process has looked, by another name
    in_another_process([&folder] { delete_stale_work_files(folder.path() + "\\.\\"); });
    EXPECT_EQ(files_in(folder), 1);
}

TEST(lock_path, given_a_folder_that_is_locked_then_nobody_else_gets_it_until_it_is_free)
{
    const TemporaryFolder folder;
    std::optional<FileLock> lock = lock_path(folder.path());
    ASSERT_TRUE(lock && lock->holds());
    EXPECT_FALSE(lock_path(folder.path(), std::chrono::milliseconds(20)));
    lock.reset();
    EXPECT_TRUE(lock_path(folder.path()));
    EXPECT_FALSE(lock_path(folder.file("none"))->holds());
    EXPECT_EQ(files_in(folder), 0);
}
#endif

}
