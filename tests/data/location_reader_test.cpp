#include "data/described_points.h"
#include "data/line_scanner.h"
#include "data/observed_processing.h"
#include "data/record_parser.h"
#include "fakes/definition_values.h"
#include "support/numbers.h"
#include "support/plain_number.h"
#include "support/text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {

/// The source that a definition gives; `columns` and `also` as in location_reader.cases.
LocationSource source_of(const std::string & columns = "", const std::string & also = "")
{
    InversionDefinition definition;
    take_lines("Obs data definitions: " + (columns.empty() ? "1 0 1 0 1 2 3 4 0 0 0" : columns), definition);
    take_lines(also, definition);
    return location_source(definition, 0);
}

struct Reader : PointsReader {
    TemporaryFolder folder;

    Status read(LocationSource source, const std::string & content, ReadMode mode = ReadMode::store, ReadShares shares = {})
    {
        if (source.file_name.empty()) source.file_name = folder.write("points of Zoë.dat", content);
        return PointsReader::read(source, mode, shares);
    }
};

TEST(read_locations_file, given_a_text_then_its_points)
{
    for (const auto & [columns, also, text, points] : cases_of<4>("location_reader.cases")) {
        SCOPED_TRACE(text);
        Reader reader;
        const LocationSource source = source_of(columns, also);
        EXPECT_EQ(reader.read(source, text), Status::good);
        EXPECT_EQ(described(reader.data), points);
        EXPECT_TRUE(reader.recorded.dialogs.messages.empty());
        const std::int32_t stored = reader.data.point_count;
        EXPECT_EQ(reader.read(source, text, ReadMode::statistics), Status::good);
        EXPECT_EQ(reader.data.point_count, stored);
        EXPECT_TRUE(reader.data.xyz[0].empty());
    }
}

TEST(read_locations_file,
     given_a_long_line_then_it_is_cut_where_line_feeds_stand_alone_and_the_last_column_that_can_be_named_is_read)
{
    Reader reader;
    std::string line;
    for (int i = 1; i <= 512; ++i) line += general_text(i) + " ";
    EXPECT_EQ(reader.read(source_of("1 0 1 0 1 2 3 512 0 0 0"), line), Status::good);
    EXPECT_EQ(described(reader.data), "1 2 3 512");
    const std::string blanks(10233, ' ');
    EXPECT_EQ(reader.read(source_of(), "1 2 3 4" + blanks + "5 6 7 8\n"), Status::good);
    EXPECT_EQ(described(reader.data), "1 2 3 4; 5 6 7 8");
    EXPECT_EQ(reader.read(source_of(), "1 2 3" + blanks + "4\r\n"), Status::good);
    EXPECT_EQ(described(reader.data), "1 2 3 4");
}

TEST(read_locations_file, given_depths_or_an_interval_then_elevations_or_points_between)
{
    Reader reader;
    LocationSource source = source_of("", "Sensor height definitions: 1 10 0");
    source.z_is_depth = 1;
    EXPECT_EQ(reader.read(source, "1 2 3 4\n1 2 * 4\n"), Status::good);
    EXPECT_EQ(described(reader.data), "1 2 7 4; 1 2 * *");
    source = source_of("1 0 1 1 2 3 4 5 0 0 0");
    source.interpolation_interval = 10;
    EXPECT_EQ(reader.read(source, "a 0 0 0 1\na 30 0 6 2\nb 60 0 0 3\n"), Status::good);
    EXPECT_EQ(described(reader.data), "0 0 0 1 [a]; 10 0 2 2 [a]; 20 0 4 2 [a]; 30 0 6 2 [a]; 60 0 0 3 [b]");
    EXPECT_EQ(reader.read(source, "a 0 0 0 1\na 3e6 0 6 2\n"), Status::bad); // a slip, and not 300,000 points
    EXPECT_EQ(reader.recorded.dialogs.messages.back(),
              "An error occurred while reading the location file : a reading of line a lies 3000000 m from the one before, "
              "too far to fill in points every 10 m");
}

TEST(read_locations_file, given_lines_and_categories_then_first_points_and_sorted_names)
{
    Reader reader;
    LocationSource source = source_of("1 0 1 1 2 3 4 0 0 0 0");
    source.category_column = 5, source.text_column = 6;
    ASSERT_EQ(reader.read(source, "L1,0,0,0,slate,p\nL1,1,0,0,,q\nL2,2,0,0,basalt\nL2,x,0,0,gabbro\nL1,3,0,0,slate,r\n"),
              Status::good);
    EXPECT_EQ(reader.data.line_name, (List<std::string>{ "L1", "L2", "L1" }));
    EXPECT_EQ(reader.data.line_first_point, (List<std::int32_t>{ 1, 3, 4, 5 }));
    EXPECT_EQ(reader.data.category_name, (List<std::string>{ "NA", "basalt", "slate" }));
    EXPECT_EQ(reader.data.category_index, (List<std::int32_t>{ 3, 1, 2, 3 }));
    EXPECT_EQ(reader.data.text, (List<std::string>{ "p", "q", "", "r" }));
    EXPECT_TRUE(reader.data.value[0].empty());
}

TEST(read_locations_file, given_values_and_a_window_then_statistics)
{
    Reader reader;
    LocationSource source = source_of();
    source.value_column[1] = 5;
    source.value_window = { false, true };
    reader.statistics.value[1].minimum = 0;
    reader.statistics.value[1].maximum = 10;
    ASSERT_EQ(reader.read(source, "1 2 3 4 5\n-1 8 * 1 1\n3 4 6 * 1\n3 4 6 9 11\n2 4 6 9 10\n", ReadMode::statistics),
              Status::good);
    const LocationStatistics & s = reader.statistics;
    EXPECT_EQ(reader.data.point_count, 2); // value 2 is missing in two records, and so below its limit
    EXPECT_EQ((std::array{ s.minimum_x, s.maximum_y }), (std::array{ 1.0, 4.0 }));
    EXPECT_EQ((std::array{ s.z.mean, s.z.maximum, s.value[0].mean }), (std::array{ 4.5F, 6.0F, 6.5F }));
    EXPECT_EQ((std::array{ s.value[1].minimum, s.value[1].maximum, s.value[2].minimum }), (std::array{ 0.0F, 10.0F, 1e32F }));
}

TEST(read_locations_file, given_a_fault_then_one_message_and_nothing_changed)
{
    const std::array<std::string, 4> cases[] = {
        // file, columns, content, the message, or its beginning where the system has a say
        { "C:\\no\\such file.dat", "", "", "An error occurred while reading the location file : cannot open" },
        { "", "1 0 1 0 1 2 3 513 0 0 0", "1 2 3 4\n", "An error occurred while reading the location file : column 513 " },
        { "C:\\a b.gdb", "", "", "The specified data file does not exist" },
    };
    for (const auto & [file, columns, content, message] : cases) {
        SCOPED_TRACE(message);
        Reader reader;
        reader.data.point_count = 7;
        LocationSource source = source_of(columns);
        source.file_name = file;
        source.file_type = file.ends_with(".gdb") ? 2 : 0;
        EXPECT_EQ(reader.read(source, content), Status::bad);
        ASSERT_EQ(reader.recorded.dialogs.messages.size(), 1U);
        EXPECT_TRUE(reader.recorded.dialogs.messages[0].starts_with(message)) << reader.recorded.dialogs.messages[0];
        EXPECT_EQ(reader.data.point_count, 7);
    }
}

std::string random_text(std::mt19937 & random, std::string_view alphabet, std::size_t longest)
{
    std::string text(random() % (longest + 1), ' ');
    for (char & c : text) c = alphabet[random() % alphabet.size()];
    return text;
}

// Blocks and threads must not show.

constexpr ReadShares whole{ std::size_t{ 1 } << 30, 1 };
constexpr ReadShares shares_of_all_kinds[] = { { 1, 1 }, { 1, 3 }, { 11, 2 }, { 60, 3 }, { 700, 2 } };

TEST(read_locations_file, given_any_blocks_and_threads_then_the_same)
{
    using Change = void (*)(LocationSource &);
    const Change changes[] = {
        [](auto &) {},
        [](auto & s) { s.read_increment = 3; },
        [](auto & s) { s.interpolation_interval = 0.5; },
        [](auto & s) { s.line_column = s.category_column = 0; },
        [](auto & s) { s.text_column = 0, s.value_window[0] = true; },
        [](auto & s) { s.x_column = 5, s.line_column = 1; },
    };
    const char * const records[] = { "1,2,3,4,L1,a,t", "5,1,0,2,L1,b,u",    "0,0,0,1,0,b,", "0,0,0,*", "3,4,*",
                                     "x,1,2,3,L2,c,v", "2,2,2,2,,,",        "8 8 8 8 L3 c", "",        "!",
                                     "0,0,0,1",        "6,6,6,6,L1,c\x01,w" };
    std::mt19937 random(4);
    for (int i = 0; i < 60; ++i) {
        std::string content = i % 4 == 0 ? "\xEF\xBB\xBF" : "";
        for (int line = 0; line < 60; ++line) {
            content += records[random() % std::size(records)];
            content += i % 3 == 0 ? "\n" : random() % 20 == 0 ? "\r" : "\r\n";
        }
        LocationSource source = source_of("2 0 1 5 1 2 3 4 0 0 0"); // the sums are exact, and some records do not reach the texts
        source.value_column[2] = 1, source.category_column = 6, source.text_column = 7;
        changes[random() % std::size(changes)](source);
        const ReadMode mode = i % 5 == 0 ? ReadMode::statistics : ReadMode::store;
        Reader expected;
        for (Range & range : expected.statistics.value) range = { 1, 5, 0 };
        const LocationStatistics limits = expected.statistics;
        ASSERT_EQ(expected.read(source, content, mode, whole), Status::good);
        for (const ReadShares & shares : shares_of_all_kinds) {
            Reader reader;
            reader.statistics = limits;
            ASSERT_EQ(reader.read(source, content, mode, shares), Status::good);
            ASSERT_EQ(reader.data, expected.data) << shares.block_size << " " << shares.threads << "\n" << content;
            ASSERT_EQ(reader.statistics, expected.statistics) << shares.block_size << " " << shares.threads << "\n" << content;
        }
    }
}

TEST(read_locations_file, given_a_late_fault_or_a_stop_among_blocks_then_it_ends_the_read)
{
    std::string content;
    for (int i = 0; i < 100; ++i) content += "1 2 3 4\n";
    for (const ReadShares & shares : shares_of_all_kinds) {
        Reader reader;
        reader.data.point_count = 7;
        EXPECT_EQ(reader.read(source_of(), content + "1 2 3 4e38\n" + content, ReadMode::store, shares), Status::bad);
        EXPECT_EQ(reader.recorded.dialogs.messages,
                  (std::vector<std::string>{
                      "An error occurred while reading the location file : Overflow: a number is beyond single precision" }));
        EXPECT_EQ(reader.data.point_count, 7);
        if (shares.block_size > 11) continue; // the progress moves block by block
        reader.recorded.progress.stop_at_percent = 50;
        EXPECT_THROW(static_cast<void>(reader.read(source_of(), content, ReadMode::store, shares)), Stopped);
    }
}

// The quick ways must agree with the plain procedures of support on whatever a file may hold.

TEST(read_plain_number, given_any_text_then_the_same_as_number_prefix)
{
    std::mt19937 random(1);
    int taken = 0;
    for (int i = 0; i < 300000; ++i) {
        const std::string text = random_text(random, "0123456789012345678901234567890.....e-+x", 1 + random() % 30);
        double value = 0;
        const char * const end = read_plain_number(text.data(), text.data() + text.size(), value);
        if (end == nullptr) continue;
        ++taken;
        const NumberPrefix prefix = number_prefix(text);
        ASSERT_EQ(static_cast<std::size_t>(end - text.data()), prefix.length) << text;
        ASSERT_EQ(value, prefix.value) << text;
    }
    EXPECT_GT(taken, 100000);
}

TEST(line_scanner, given_any_bytes_then_the_lines_of_the_line_readers)
{
    std::mt19937 random(2);
    const std::string_view alphabets[] = { "ab,12 ", "ab\t12 \"", "ab\r1\x01\xC3", "abc" };
    for (int i = 0; i < 60; ++i) {
        std::string content;
        while (content.size() < 150000) { // past more than one block, some of them odd
            content += random_text(random, alphabets[random() % 100 != 0 ? 0 : random() % 4], random() % 500 != 0 ? 100 : 30000);
            content += random() % 9 != 0 ? i % 2 == 0 ? "\n" : "\r\n" : "";
        }
        std::string_view again = content;
        const LineReader reader = i % 3 == 0 ? LineReader::raw : LineReader::printable;
        LineScanner scanner(content, reader);
        std::string expected;
        std::string_view line;
        while (reader == LineReader::raw ? take_raw_line(again, expected) : take_text_line(again, expected)) {
            ASSERT_TRUE(scanner.next(line));
            const bool has_mark = expected.find_first_of(",\"") != std::string::npos;
            std::string given(line);
            if (reader == LineReader::printable && !has_mark) std::ranges::replace(given, '\t', ' ');
            ASSERT_EQ(given, expected);
        }
        EXPECT_FALSE(scanner.next(line));
    }
}

TEST(record_parser, given_any_line_then_the_fields_of_the_splitters)
{
    std::mt19937 random(3);
    for (int i = 0; i < 200000; ++i) {
        const std::string line = random_text(random, i % 2 == 0 ? "ab1 \t;'\"" : "ab1  ,,\"", 24);
        LocationSource source;
        source.text_column = static_cast<std::int32_t>(1 + random() % 5);
        source.x_column = static_cast<std::int32_t>(1 + random() % 5);
        std::int32_t count = 5;
        List<std::string> fields(count);
        std::string_view rest = line;
        if (line.find(',') != std::string::npos)
            split_fields(count, line, ',', fields);
        else
            for (std::string & field : fields.items()) field = next_token(rest);

        LocationRecord record;
        RecordParser(source).parse(line, record);
        const std::string & x = fields[source.x_column];
        EXPECT_EQ(record.number[0], is_numeric(x) ? leading_number(x) : -1e32) << line;
        const bool reached = source.text_column < source.x_column || is_numeric(x);
        ASSERT_EQ(record.text.has_value(), reached) << line;
        if (reached) {
            ASSERT_EQ(*record.text, fields[source.text_column]) << line;
        }
    }
}

}
