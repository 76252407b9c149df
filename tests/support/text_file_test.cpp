#include "fakes/temporary_folder.h"
#include "support/fault.h"
#include "support/text_file.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

Lines lines_of(const std::string & content, bool (*read)(TextFile &, std::string &))
{
    const TemporaryFolder folder;
    TextFile file(folder.write("text", content));
    Lines lines;
    for (std::string line; read(file, line);) lines.push_back(line);
    return lines;
}

}

TEST(read_text_line, given_any_line_end_and_byte_then_printable_lines)
{
    struct Case {
        std::string content;
        Lines lines;
    };
    const Case cases[] = {
        { "a\nb\n", { "a", "b" } },
        { "a\r\nb", { "a", "b" } },
        { "a\rb\rc", { "a", "b", "c" } }, // carriage returns alone
        { "a\r\r\nb", { "a", "", "b" } }, // a carriage return, then both
        { "\n\n", { "", "" } },
        { "", {} },
        { "1\t2\n", { "1 2" } }, // a tab becomes a blank
        { "\xEF\xBB\xBFn\xC3\xA4m\x01\x7F"
          "e 1234567 x~\n",
          { "nme 1234567 x~" } }, // all other bytes go
        { std::string("a\0b\n", 4), { "ab" } },
    };
    for (const Case & given : cases) EXPECT_EQ(lines_of(given.content, read_text_line), given.lines) << given.content;
}

TEST(read_text_line, given_each_byte_at_each_place_then_kept_replaced_or_dropped)
{
    std::string content;
    Lines expected;
    for (int byte = 0; byte < 256; ++byte)
        for (std::size_t place = 0; place < 9; ++place) {
            if (byte == '\n' || byte == '\r') continue;
            std::string line = "abcdefghi";
            line[place] = static_cast<char>(byte);
            content += line + "\n";
            if (byte == '\t') line[place] = ' ';
            if (byte != '\t' && (byte < 32 || byte > 126)) line.erase(place, 1);
            expected.push_back(line);
        }
    EXPECT_EQ(lines_of(content, read_text_line), expected);
}

TEST(read_text_line, given_a_long_line_then_cut_at_10240_characters)
{
    const auto sizes = [](std::size_t length) {
        std::vector<std::size_t> sizes;
        for (const std::string & line : lines_of(std::string(length, 'x') + "\r\nend\r\n", read_text_line))
            sizes.push_back(line.size());
        return sizes;
    };
    EXPECT_EQ(sizes(3000), (std::vector<std::size_t>{ 3000, 3 }));
    EXPECT_EQ(sizes(10240), (std::vector<std::size_t>{ 10240, 3 })); // no empty line between
    EXPECT_EQ(sizes(25000), (std::vector<std::size_t>{ 10240, 10240, 4520, 3 }));
}

TEST(other_line_readers, given_blank_lines_and_comments_then_each_skips_its_own)
{
    const std::string content = "! head\r\n\r\n \t\r\n # more\r\n  5 5\t \r\nx ! y";
    EXPECT_EQ(lines_of(content, read_nonblank_line), (Lines{ "! head", " # more", "  5 5  ", "x ! y" }));
    EXPECT_EQ(lines_of(content, read_data_line), (Lines{ "5 5", "x ! y" }));
    EXPECT_EQ(lines_of("a\tb\x01\rc", read_raw_line), (Lines{ "a\tb\x01", "c" })); // with all its bytes
}

TEST(detect_line_ending, given_the_start_of_a_file_then_true_without_carriage_return)
{
    const TemporaryFolder folder;
    const auto lf_only = [&folder](const std::string & content) {
        TextFile file(folder.write("text", content));
        std::string line;
        read_raw_line(file, line);
        const bool result = detect_line_ending(file);
        EXPECT_EQ(file.rest(), content); // wound back
        return result;
    };
    EXPECT_TRUE(lf_only("a\nb\n"));
    EXPECT_FALSE(lf_only("a\r\nb\r\n"));
    EXPECT_FALSE(lf_only(std::string(511, 'x') + "\r"));
    EXPECT_TRUE(lf_only(std::string(512, 'x') + "\r")); // beyond what is looked at
    EXPECT_TRUE(lf_only("\xEF\xBB\xBF"
                        "a\r\n")); // a UTF-8 mark ends the look
    EXPECT_TRUE(lf_only(""));
}

TEST(text_file, given_what_cannot_be_read_then_a_fault_with_the_path)
{
    const TemporaryFolder folder;
    for (const std::string & path : { folder.file("none"), folder.path() }) {
        try {
            const TextFile file(path);
            ADD_FAILURE() << "opened " << path;
        } catch (const FileFault & fault) {
            EXPECT_NE(std::string(fault.what()).find(path), std::string::npos) << fault.what();
        }
    }
}
