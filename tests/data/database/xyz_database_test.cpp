#include "data/database/database_texts.h"
#include "data/described_points.h"
#include "fakes/case_table.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

/// x and y in columns 1 and 2.
LocationSource source_of(const std::string & path, std::int32_t file_type = 2)
{
    LocationSource source;
    source.file_name = path, source.file_type = file_type;
    source.x_column = 1, source.y_column = 2;
    return source;
}

/// The points with the second column as the value too, as a database or as plain columns.
std::string points_of(const std::string & path, std::int32_t file_type, const TextLines & text_lines)
{
    LocationSource source = source_of(path, file_type);
    source.first_data_line = text_lines.first, source.read_increment = text_lines.increment;
    source.value_column[0] = 2;
    PointsReader points;
    EXPECT_EQ(points.read(source), Status::good);
    return described(points.data);
}

}

TEST(database_kind, given_a_file_then_what_it_is)
{
    for (const auto & [name, content, kind] : cases_of<3>("database/database_kinds.cases")) {
        const TemporaryFolder folder;
        EXPECT_EQ(database_kind(folder.write(name, content)), static_cast<DatabaseKind>(number_in(kind))) << content;
    }
    EXPECT_EQ(database_kind("C:\\no\\such.xyz"), DatabaseKind::none);
    EXPECT_EQ(DatabaseTexts("C:\\no\\such.gdb", {}).rows, "The specified data file does not exist");
}

TEST(xyz_database, given_lines_in_the_habits_of_the_field_then_columns_rows_and_the_points_of_plain_columns)
{
    for (const auto & [text, first, increment, names, rows] : cases_of<5>("database/xyz_database.cases")) {
        SCOPED_TRACE(text + " " + first + " " + increment);
        const TemporaryFolder folder;
        const TextLines text_lines = { number_in(first), number_in(increment) };
        const std::string path = folder.write("s.xyz", text);
        DatabaseTexts read(path, text_lines);
        if (const std::size_t at = read.rows.find(folder.path()); at != read.rows.npos)
            read.rows.erase(at, folder.path().size() + 1);
        EXPECT_EQ(read.names, names);
        EXPECT_EQ(read.rows, rows);
        if (!names.empty()) {
            EXPECT_EQ(points_of(path, 2, text_lines), points_of(folder.write("s.dat", text), 0, text_lines));
        }
    }
}

TEST(xyz_database, given_a_long_line_then_it_comes_in_pieces_and_no_reading_is_lost_or_moved)
{
    const TemporaryFolder folder;
    std::string text = "Line 1\n";
    for (int i = 1; i <= 20000; ++i) text += std::to_string(i) + " " + std::to_string(2 * i) + (i % 3 == 0 ? "\n\n" : "\n");
    const std::string path = folder.write("s.xyz", text);
    PointsReader reader;
    const ObservedData & data = reader.data;
    EXPECT_EQ(open_database(path, {}, reader.recorded.host)->lines().size(), 3U);
    EXPECT_EQ(open_database(path, {}, reader.recorded.host)->first_lines(30).size(), 1U);
    LocationSource source = source_of(path);
    source.line_column = 3;
    ASSERT_EQ(reader.read(source), Status::good);
    ASSERT_EQ(data.point_count, 20000);
    for (std::int32_t i = 1; i <= 20000; ++i) ASSERT_EQ(data.xyz[0][i], i);
    EXPECT_EQ(data.xyz[1][20000], 40000);
    EXPECT_EQ(data.line_name, (List<std::string>{ "1" }));
}

TEST(xyz_database, given_a_column_behind_the_readings_then_no_line_name_is_taken_for_a_number)
{
    const TemporaryFolder folder;
    PointsReader reader;
    LocationSource source = source_of(folder.write("s.xyz", "Line 7\n1 2\n1 2 3\n"));
    source.line_column = 4;
    EXPECT_EQ(reader.read(source), Status::good);
    source.value_column[0] = 4;
    EXPECT_EQ(reader.read(source), Status::bad);
    EXPECT_NE(reader.recorded.dialogs.messages.at(0).find("Column 4, for the value, is the name of the line"), std::string::npos);
}
