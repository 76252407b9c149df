#include "fakes/temporary_folder.h"
#include "support/fault.h"
#include "support/text_file.h"

#include <gtest/gtest.h>

namespace {

/// All lines that a reader gives, each followed by "|".
std::string lines_of(std::string_view content, bool (*read)(TextFile &, std::string &))
{
    const TemporaryFolder folder;
    TextFile file(folder.write("lines.txt", content));
    std::string all, line;
    while (read(file, line)) all += line + "|";
    EXPECT_EQ(line, "");
    return all;
}

TEST(text_file, given_odd_line_ends_and_bytes_then_the_lines_are_printable)
{
    EXPECT_EQ(lines_of("a\r\nb\rc\nd", &read_text_line), "a|b|c|d|");
    EXPECT_EQ(lines_of("a\r\n\r\n\rb\n\n", &read_text_line), "a|||b||");
    EXPECT_EQ(lines_of("", &read_text_line), "");
    EXPECT_EQ(lines_of("\xEF\xBB\xBF-1\t2\x7F\xC3\xA9~\x01", &read_text_line), "-1 2~|");
    EXPECT_EQ(lines_of("a\t\xC3\xA9\r\nb\rc\n", &read_raw_line), "a\t\xC3\xA9|b|c|");
    EXPECT_EQ(lines_of("\r\n \t\r\n! a\r\n  # b\r\n  1 2 \r\n\r\n", &read_data_line), "1 2|");
}

TEST(text_file, given_each_byte_at_each_place_then_only_what_can_be_printed_stays)
{
    std::string content, expected;
    for (int byte = 0; byte < 256; ++byte)
        for (std::size_t place = 0; place < 9 && byte != '\r'; ++place) {
            std::string line = "abcdefghi";
            line[place] = static_cast<char>(byte);
            content += line + "\n";
            if (byte == '\n') line[place] = '|';
            if (byte == '\t') line[place] = ' ';
            expected += (line[place] < ' ' || byte > 126 ? line.erase(place, 1) : line) + "|";
        }
    EXPECT_EQ(lines_of(content, &read_text_line), expected);
}

TEST(text_file, given_a_long_line_then_it_is_whole_up_to_its_limit)
{
    const std::string long_line(3000, 'x'), too_long(10245, 'y');
    EXPECT_EQ(lines_of(long_line + "\n" + too_long + "\r\nz", &read_text_line),
              long_line + "|" + too_long.substr(0, 10240) + "|yyyyy|z|");
}

TEST(text_file, given_the_first_bytes_then_the_line_ending_is_known)
{
    const std::string a(511, 'a');
    const std::pair<std::string, bool> lf_only[] = { { "a\nb", true },   { "", true },        { "a\r\nb", false },
                                                     { "\xEF\r", true }, { a + "a\r", true }, { a + "\r", false } };
    const TemporaryFolder folder;
    for (const auto & [content, expected] : lf_only) {
        TextFile file(folder.write("ends.txt", content));
        file.skip(content.size());
        EXPECT_EQ(detect_line_ending(file), expected);
        EXPECT_EQ(file.rest(), content);
    }
}

TEST(text_file, given_a_path_then_it_is_opened_as_it_is_written_here_or_the_fault_names_it)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("mess d\xC3\xA9j\xC3\xA0.dat", "x");
    EXPECT_EQ(TextFile(path).all(), "x");
    EXPECT_EQ(TextFile(host_path(path).string()).all(), "x"); // with the separators of this computer
    for (const std::string & bad : { folder.file("gone.dat"), folder.path(), path + "\\below" }) {
        std::string words;
        try {
            const TextFile file(bad);
        } catch (const FileFault & fault) {
            words = fault.what();
        }
        EXPECT_NE(words.find(bad + ": "), std::string::npos) << words;
    }
}

}
