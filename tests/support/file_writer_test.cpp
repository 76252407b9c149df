#include "fakes/temporary_folder.h"
#include "support/fault.h"
#include "support/file_writer.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace {

/// The description of the fault that `work` ends with, empty when it ends well.
std::string fault_of(const std::function<void()> & work)
{
    try {
        work();
    } catch (const FileFault & fault) {
        return fault.what();
    }
    return {};
}

std::size_t file_count(const TemporaryFolder & folder)
{
    const std::filesystem::directory_iterator files(host_path(folder.path()));
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

}

TEST(file_writer, given_text_lines_and_blocks_then_in_order_with_cr_lf)
{
    const TemporaryFolder folder;
    std::string expected = "head\r\n";
    FileWriter file(folder.write("out", "what was there before"));
    file.line("head");
    const std::string large(700'000, 'x'); // more than the buffer
    for (int i = 0; i < 50; ++i) {
        char * const at = file.room(65'536);
        file.commit(std::fill_n(at, 60'000, static_cast<char>('a' + i % 26)));
        expected.append(60'000, static_cast<char>('a' + i % 26));
        file.text("-");
        expected += "-";
    }
    file.text(large);
    file.close();
    EXPECT_EQ(folder.read("out"), expected + large);
    EXPECT_THROW(file.room(65'537), Fault);
}

TEST(file_writer, given_a_place_that_takes_nothing_then_a_fault_with_the_path_and_the_reason)
{
    const TemporaryFolder folder;
    const std::string below_a_file = folder.write("file", "x") + "\\out";
    for (const std::string & path : { below_a_file, folder.path(), folder.file("none\\out") })
        EXPECT_TRUE(fault_of([&] { FileWriter{ path }; }).starts_with("cannot create " + path + ": "));
}

#ifdef __linux__
TEST(file_writer, given_a_full_disk_then_a_fault_however_little_is_written)
{
    const std::string full = "cannot write \\dev\\full: No space left on device";
    for (const bool durable : { false, true })
        EXPECT_EQ(fault_of([&] {
                      FileWriter file("\\dev\\full");
                      file.text("x"); // still in the buffer
                      file.close(durable);
                  }),
                  full);
    EXPECT_EQ(fault_of([] {
                  FileWriter file("\\dev\\full");
                  for (int i = 0; i < 100; ++i) file.line(std::string(100'000, 'x'));
              }),
              full);
}
#endif

TEST(replace_file, given_success_or_failure_then_the_new_file_or_the_old_one_and_no_other)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("definition.inp", "old");
    replace_file(path, "new\r\n");
    EXPECT_EQ(folder.read("definition.inp"), "new\r\n");
    EXPECT_EQ(file_count(folder), 1U);

    make_folder_path(folder.file("taken\\inside"));
    EXPECT_TRUE(
        fault_of([&] { replace_file(folder.file("taken"), "new"); }).starts_with("cannot replace " + folder.file("taken")));
    EXPECT_TRUE(folder_exists(folder.file("taken\\inside")));
    EXPECT_EQ(file_count(folder), 2U);

    EXPECT_NE(fault_of([&] { replace_file(path + "\\below", "new"); }), "");
    EXPECT_EQ(folder.read("definition.inp"), "new\r\n");
}
