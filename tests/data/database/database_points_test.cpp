#include "data/database/database_points.h"
#include "data/described_points.h"
#include "fakes/given_survey.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

using Strings = std::vector<std::string>;

// Columns: 1 LineNumber, 2 Line, 3 E, 4 N, 5 TMI, 6 Base, 7 Flight, 8 and 9 Z.
LocationSource source_of(std::int32_t z, std::int32_t value, std::int32_t line)
{
    LocationSource source;
    source.file_name = "C:\\survey.gdb";
    source.x_column = 3, source.y_column = 4, source.z_column = z, source.value_column[0] = value, source.line_column = line;
    return source;
}

struct Reader : PointsReader {
    GivenDatabase database;

    Status read(const LocationSource & source, ReadMode mode = ReadMode::store)
    {
        return read_database_points(database, source, mode, data, statistics, recorded.host);
    }
};

struct PointCase {
    void (*change)(GivenDatabase & database);
    std::int32_t z, value, line;
    const char * points;
};

void shorten(GivenDatabase & database) { database.survey.lines.resize(1); }

const PointCase point_cases[] = {
    // every line in turn; a row of the survey is a record
    { [](auto &) {}, 8, 5, 2,
      "724307.21 491569.63 276.32 54820.92 [100101]; 723880.91 491709.2 270.08 54821.96 [100101]; "
      "723449.81 491852.57 274.22 54809.35 [100101]; 721343.57 491892.9 232.57 54783.96 [100201]; "
      "721809.78 491748.62 227.54 54779.19 [100201]; 718075.55 489746.46 235.82 55002.25 [100602]" },
    // the second element of an array; texts trimmed
    { [](auto & d) { shorten(d); }, 9, 0, 7,
      "724307.21 491569.63 176.82 [L100101]; 723880.91 491709.2 217.31 [L100101]; 723449.81 491852.57 231.55 [L100101]" },
    // a null of the value ends the record, which keeps what stands to its left
    { [](auto & d) { shorten(d), d.survey.values("Base", 0).reals[1] = 7; }, 9, 6, 2,
      "724307.21 491569.63 * * [100101]; 723880.91 491709.2 217.31 7 [100101]; 723449.81 491852.57 * * [100101]" },
    // a null of a coordinate drops the row
    { [](auto & d) { shorten(d), d.survey.values("E", 0).reals[0] = -1e32, d.survey.values("N", 0).reals[1] = -2e30; }, 8, 5, 0,
      "723449.81 491852.57 274.22 54809.35" },
    // a channel that ends early, of the position, of the value and of the line name
    { [](auto & d) { shorten(d), d.survey.values("N", 0).reals.pop_back(), d.survey.values("TMI", 0).reals.resize(1); }, 8, 5, 0,
      "724307.21 491569.63 276.32 54820.92; 723880.91 491709.2 * *" },
    { [](auto & d) { shorten(d), d.survey.values("Line", 0).integers.resize(2); }, 0, 0, 2,
      "724307.21 491569.63 * [100101]; 723880.91 491709.2 * [100101]; 723449.81 491852.57 * [*]" },
    // a channel that is listed but not to be found ends each record at its column
    { [](auto & d) { shorten(d), d.missing_channel = "TMI", d.survey.values("E", 0).reals.resize(1); }, 8, 5, 0,
      "724307.21 491569.63 * *" },
    // text in place of a number
    { [](auto & d) {
         shorten(d), d.survey.values("Flight", 0).texts = { "12.5", "1 2", "" };
     },
      0, 7, 0, "724307.21 491569.63 * 12.5; 723880.91 491709.2 * *; 723449.81 491852.57 * *" },
};

TEST(read_database_points, given_channels_then_points)
{
    for (const PointCase & c : point_cases) {
        SCOPED_TRACE(c.points);
        Reader reader;
        c.change(reader.database);
        EXPECT_EQ(reader.read(source_of(c.z, c.value, c.line)), Status::good);
        EXPECT_EQ(described(reader.data), c.points);
        const std::int32_t stored = reader.data.point_count;
        EXPECT_EQ(reader.read(source_of(c.z, c.value, c.line), ReadMode::statistics), Status::good);
        EXPECT_EQ(reader.data.point_count, stored);
        EXPECT_TRUE(reader.data.xyz[0].empty());
        EXPECT_EQ(reader.recorded.dialogs.messages, Strings{});
        EXPECT_TRUE(reader.database.locks.empty());
        EXPECT_GE(reader.database.locked, 12);
    }
}

TEST(read_database_points, given_lines_of_the_database_then_only_the_line_column_opens_lines)
{
    Reader reader;
    for (std::size_t line = 0; line < 3; ++line)
        for (std::int32_t & number : reader.database.survey.values("Line", line).integers) number = 5;
    reader.database.survey.values("Base", 0).reals.push_back(1); // a row more, without a line name, coordinates or points
    EXPECT_EQ(reader.read(source_of(8, 5, 2)), Status::good);
    EXPECT_EQ(reader.data.line_name, (List<std::string>{ "5", "*", "5" }));
    EXPECT_EQ(reader.data.line_first_point, (List<std::int32_t>{ 1, 4, 4, 7 }));
    EXPECT_EQ(reader.recorded.progress.percents, (std::vector<int>{ 0, 33, 67, 100 }));
    EXPECT_EQ(reader.statistics.maximum_x, 724307.21);
    EXPECT_EQ(reader.statistics.z.minimum, 227.54F);
}

struct FaultCase {
    void (*change)(GivenDatabase & database);
    std::int32_t value;
    const char * fault; ///< thrown or shown
};

const FaultCase fault_cases[] = {
    { [](auto & d) {
         d.survey.channels.resize(511, { "More", 5, { 3, { {} } } });
     },
      5,
      "C:\\survey.gdb has 513 columns, more than the 512 that can be read; export the lines to a point file, and choose that" },
    { [](auto & d) { d.failing_channel = "Base"; }, 5, "held by another" },
    { [](auto & d) { d.reads_left = 13; }, 5, "a bad block" },
    { [](auto &) {}, 513, "column 513 lies beyond the last one that can be read, 512" },
    { [](auto & d) { d.reads_left = 0; }, 5, "Error Opening Database in get_field_list: no list" },
    { [](auto &) {}, 10,
      "Column 10, for the value, is not in the database C:\\survey.gdb, which has 9 columns: 1 LineNumber, 2 Line, 3 E, 4 N, 5 "
      "TMI, "
      "6 Base, 7 Flight, 8 Z[1], 9 Z[2]" },
};

TEST(read_database_points, given_a_fault_then_nothing_changed_and_nothing_held)
{
    for (const FaultCase & c : fault_cases) {
        SCOPED_TRACE(c.fault);
        Reader reader;
        c.change(reader.database);
        reader.data.point_count = 7;
        reader.statistics.maximum_x = 8;
        std::string fault;
        try {
            EXPECT_EQ(reader.read(source_of(8, c.value, 2)), Status::bad);
            ASSERT_EQ(reader.recorded.dialogs.messages.size(), 1U);
            fault = reader.recorded.dialogs.messages[0];
        } catch (const Fault & thrown) {
            fault = thrown.what();
        }
        EXPECT_EQ(fault, c.fault);
        EXPECT_EQ(reader.data.point_count, 7);
        EXPECT_EQ(reader.statistics.maximum_x, 8);
        EXPECT_TRUE(reader.database.locks.empty());
    }
}

TEST(read_database_points, given_a_stop_then_nothing_changed_and_nothing_held)
{
    Reader reader;
    reader.recorded.progress.stop_at_percent = 67;
    EXPECT_THROW(static_cast<void>(reader.read(source_of(8, 5, 2))), Stopped);
    EXPECT_EQ(reader.data.point_count, 0);
    EXPECT_EQ(reader.database.locked, 7);
    EXPECT_TRUE(reader.database.locks.empty());
}

TEST(get_field_list, given_odd_names_then_they_are_left_out_and_logged)
{
    const TemporaryFolder folder;
    Reader reader;
    reader.recorded.debug.level = 1;
    reader.recorded.debug.file = folder.file("a.log");
    const char * const names[] = { "", "  ", "tab\there", "H\xF6he", "A b", "~", "Z" };
    for (std::size_t i = 0; i < std::size(names); ++i) reader.database.survey.channels[i].name = names[i];
    const auto fields = get_field_list(reader.database, reader.recorded.host);
    EXPECT_EQ(column_names_of(fields), (Strings{ "LineNumber", "A b", "~", "Z[1]", "Z[2]" }));
    EXPECT_EQ(fields.back().last_column, 5);
    EXPECT_EQ(get_gdb_val(nullptr, 1, reader.recorded.host), "");
    const std::string log = folder.read("a.log");
    EXPECT_EQ(log.substr(log.find("1 : ")), "1 : Zero length name!\r\n2 : Zero length name!\r\n"
                                            "3 : Non-printing character tab\there\r\n4 : Non-printing character H\xF6he\r\n"
                                            "5 : Bad hGDBVV in get_gdb_val\r\n");
}

TEST(get_gdb_val, given_a_value_then_the_text_of_a_column_file)
{
    const double nan = std::numeric_limits<double>::quiet_NaN(), infinity = std::numeric_limits<double>::infinity();
    const ChannelValues integers{ 0, { -2147483647, 12345678 }, {}, {} };
    const ChannelValues reals{ 4, {}, { -1e30, -0.99e30, nan, infinity, 724307.21, -0.1 - 0.2, 1e-7 }, {} };
    const ChannelValues texts{ -9, {}, {}, { "  a b ", std::string("L1\0rest", 7), "*" } };
    const std::pair<const ChannelValues *, Strings> cases[] = {
        { &integers, { "-2147483647", "12345678" } },
        { &reals, { "*", "-9.9E+29", "*", "*", "724307.21", "-0.3", "1E-07" } },
        { &texts, { "a b", "L1", "*" } },
    };
    RecordedHost recorded;
    for (const auto & [values, expected] : cases)
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_EQ(get_gdb_val(values, static_cast<std::int32_t>(i + 1), recorded.host), expected[i]);
}

}
