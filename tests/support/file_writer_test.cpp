#include "fakes/temporary_folder.h"
#include "support/fault.h"
#include "support/file_writer.h"

#include <algorithm>
#include <gtest/gtest.h>
#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#endif

namespace {

/// The fault of writing to a path; empty when all went well.
std::string fault_of(const std::string & path, const std::string & content)
{
    try {
        FileWriter file(path);
        file.text(content);
        file.close();
    } catch (const FileFault & fault) {
        return fault.what();
    }
    return "";
}

TEST(file_writer, given_lines_and_blocks_then_they_reach_the_file_in_order)
{
    const TemporaryFolder folder;
    const std::string large(3 << 20, 'x'); // beyond the buffer
    FileWriter file(folder.file("out.txt"));
    file.line("1");
    file.text(large);
    file.commit(std::fill_n(file.room(2), 1, 'a'));
    file.close();
    EXPECT_EQ(folder.read("out.txt"), "1\r\n" + large + "a");
}

TEST(file_writer, given_a_place_that_cannot_be_written_then_the_fault_names_it)
{
    const TemporaryFolder folder;
    const std::string below = folder.write("file", "x") + "\\below";
    EXPECT_TRUE(fault_of(below, "x").starts_with("cannot create " + below + ": ")) << fault_of(below, "x");
#ifdef __linux__
    for (const std::size_t size : { 1, 3 << 20 }) // found on closing, and on the way
        EXPECT_EQ(fault_of("\\dev\\full", std::string(size, 'x')), "cannot write \\dev\\full: No space left on device");
#endif
}

#ifndef _WIN32
/// No file may grow beyond ten bytes, as on a full disk.
struct SmallFiles {
    rlimit before = {};
    SmallFiles()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{ 10, before.rlim_max };
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallFiles() { setrlimit(RLIMIT_FSIZE, &before); }
};

TEST(replace_file, given_no_room_for_the_new_file_then_the_old_one_stays_alone)
{
    const TemporaryFolder folder;
    const std::string path = folder.file("kept.inp");
    replace_file(path, "old");
    {
        const SmallFiles small;
        EXPECT_THROW(replace_file(path, std::string(1000, 'n')), FileFault);
    }
    EXPECT_EQ(folder.read("kept.inp"), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(host_path(folder.path())), {}), 1);
}
#endif

}
