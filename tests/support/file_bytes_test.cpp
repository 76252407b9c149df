#include "fakes/temporary_folder.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/text_file.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr std::size_t large = std::size_t{ 3 } << 20;

TEST(file_bytes, given_a_large_file_that_is_cut_short_while_it_is_read_then_a_fault_and_no_crash)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("readings.xyz", std::string(large, '7'));
    const FileBytes whole(folder.write("other.xyz", std::string(large, '8'))), cut(path);
    EXPECT_EQ(std::ranges::count(cut.text().substr(0, large / 2), '7'), large / 2);
    EXPECT_NO_THROW(cut.verify());
    std::filesystem::resize_file(host_path(path), large / 3);
    EXPECT_EQ(std::ranges::count(cut.text().substr(large - 100), '7'), 0);
    EXPECT_EQ(cut.text().front(), '7');
    EXPECT_THROW(cut.verify(), FileFault);
    EXPECT_EQ(std::ranges::count(whole.text(), '8'), large);
    EXPECT_NO_THROW(whole.verify());
    EXPECT_EQ(FileBytes(path).text().size(), large / 3);
}

TEST(file_bytes, given_lines_of_a_file_that_vanishes_then_a_fault)
{
    const TemporaryFolder folder;
    std::string content;
    while (content.size() < large) content += "455000.1 7555000.2 310.5\r\n";
    const std::string path = folder.write("readings.xyz", content);
    TextFile file(path);
    std::string line;
    ASSERT_TRUE(read_text_line(file, line));
    std::filesystem::resize_file(host_path(path), 0);
    EXPECT_THROW(while (read_text_line(file, line)){}, FileFault);
}

}
