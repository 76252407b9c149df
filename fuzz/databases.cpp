#include "data/database/aseg_definition.h"
#include "data/database/database_points.h"
#include "data/database/text_database.h"
#include "data/line_scanner.h"
#include "data/record_lines.h"
#include "data/record_parser.h"
#include "fuzz/point_reading.h"
#include "fuzz/readers.h"
#include "fuzz/surroundings.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <functional>

namespace {

constexpr std::int32_t database_file = 2;

/// A value of a text database, and what is known of it.
using CheckValue = std::function<void(std::int32_t symbol, const std::string & value)>;

void check_line(SurveyDatabase & database, const DatabaseLine & line, const CheckValue & check_value)
{
    std::int32_t symbol = 0;
    for (const DatabaseChannel & channel : database.channels()) {
        ++symbol;
        ChannelValues values;
        for (const std::int32_t element : { 0, channel.array_size - 1 }) {
            database.read_channel(line, symbol, element, values);
            must(values.count() == database.row_count(line, symbol), "a channel of another length than its line");
            for (const std::string & text : values.texts) check_value(symbol, text);
        }
    }
}

/// The number of columns; nothing when the database cannot be opened or lists no fields.
std::int32_t check_database(const LocationSource & source, const CheckValue & check_value)
{
    FuzzHost surroundings;
    const auto database = open_database(source.file_name, { source.first_data_line, source.read_increment }, surroundings.host);
    must((database == nullptr) == (surroundings.dialogs.messages > 0), "a database without its one message");
    if (database == nullptr) return 0;
    const std::vector<DatabaseField> fields = get_field_list(*database, surroundings.host);
    if (fields.empty()) return 0;
    if (fields.back().last_column > highest_column) return fields.back().last_column;
    must(static_cast<std::int32_t>(column_names_of(fields).size()) == fields.back().last_column, "a name for each column");
    std::int32_t symbol = 0;
    for (const DatabaseChannel & channel : database->channels())
        must(database->find_channel(channel.name) == ++symbol, "a channel under another's name");
    const std::size_t first = database->first_lines(30).size();
    const std::vector<DatabaseLine> lines = database->lines();
    must(first <= lines.size(), "more lines at the beginning than in all");
    for (const DatabaseLine & line : lines) check_line(*database, line, check_value);
    return fields.back().last_column;
}

PointReading check_points(const LocationSource & source)
{
    PointReading stored(source, ReadMode::store);
    check_counted(PointReading(source, ReadMode::statistics), stored);
    if (stored.status == Status::good) check_lists(source, stored.data);
    return stored;
}

std::int32_t highest_of(const LocationSource & source)
{
    return std::max({ source.x_column, source.y_column, source.z_column, source.value_column[0], source.value_column[1],
                      source.value_column[2], source.line_column, source.category_column, source.text_column });
}

/// The line of a reading, by the rules of line-structured texts put down once more.
bool is_reading(std::string_view line)
{
    const std::size_t begin = line.find_first_not_of(" \t");
    if (begin == std::string_view::npos || line[begin] == '/') return false;
    const std::string word = upper_case(line.substr(begin, line.find_first_of(" \t", begin) - begin));
    return word != "LINE" && word != "TIE" && word != "RANDOM";
}

/// True when all that is no reading is nothing to the reader of plain columns either: no place, and no text that it would keep.
bool has_only_readings(const LocationSource & source, const std::string & path)
{
    TextFile file(path);
    LineScanner lines(file.all(), detect_line_ending(file) ? LineReader::printable : LineReader::raw);
    const RecordParser parser(source);
    for (std::string_view line; lines.next(line);) {
        if (is_skipped(line) || is_reading(line)) continue;
        LocationRecord record;
        parser.parse(line, record);
        const bool is_place = !is_missing(record.number[0]) && !is_missing(record.number[1]);
        if (is_place || record.line || record.category || record.text) return false;
    }
    return true;
}

void compare_with_columns(LocationSource source, const PointReading & read, std::string_view text)
{
    source.file_type = 0;
    const std::string database = source.file_name;
    source.file_name = scratch_file("columns.dat", text);
    if (text.find('\0') != std::string_view::npos || !has_only_readings(source, database)) return;
    const PointReading plain(source, ReadMode::store);
    must(plain.status == read.status, "a read that depends on whether lines are looked at");
    if (read.status != Status::good) return;
    must(same_points(plain.data, read.data) && same_limits(plain.statistics, read.statistics), "other points than in columns");
}

/// A line's name makes no difference to where the points are; but a point at 0 is left out of a line "0".
void read_named_lines(LocationSource source, const PointReading & read, std::int32_t name_column)
{
    for (std::int32_t i = 1; i <= read.data.point_count; ++i)
        if (read.data.xyz[0][i] == 0 && read.data.xyz[1][i] == 0 && read.data.xyz[2][i] == 0) return;
    source.line_column = name_column;
    source.interpolation_interval = 0; // points are filled in along named lines only
    const PointReading named = check_points(source);
    must(named.status == read.status, "a read that depends on the names of lines");
    must(named.data.xyz == read.data.xyz, "points that depend on the names of lines");
}

}

void read_xyz_database(Input input)
{
    LocationSource source = take_source(input);
    source.file_type = database_file;
    Input choices{ input.text.substr(0, 4) };
    input.text.remove_prefix(choices.text.size());
    source.file_name = scratch_file("lines.xyz", input.text);
    if (database_kind(source.file_name) != DatabaseKind::line_xyz) return;
    const std::int32_t columns = check_database(source, [](std::int32_t, const std::string &) {});
    const PointReading read = check_points(source);
    if (columns == 0) return;
    if (columns > highest_of(source)) compare_with_columns(source, read, input.text);
    if (read.status == Status::good && source.line_column <= 0 && !source.transform.in_use)
        read_named_lines(source, read, columns);
    if (choices.take_number(0, 8) == 1) show_columns(source.file_name, choices);
}

void read_aseg_database(Input input)
{
    LocationSource source = take_source(input);
    source.file_type = database_file;
    Input choices{ input.text.substr(0, 4) };
    input.text.remove_prefix(choices.text.size());
    source.file_name = scratch_file("pair.dfn", input.take_to(pair_mark));
    scratch_file("pair.dat", input.text);
    const AsegDefinition definition = read_aseg_definition(source.file_name);
    std::size_t end = 0;
    for (const AsegField & field : definition.fields) {
        must(field.begin == end && field.count > 0 && field.width > 0, "a field that is not behind the one before");
        end += field.size();
    }
    must(end == definition.record_length, "a record of another length than its fields");
    check_database(source, [&](std::int32_t symbol, const std::string & value) {
        const bool is_text = definition.fields.at(static_cast<std::size_t>(symbol) - 1).is_text;
        must(is_text || value == "*" || is_numeric(value), "no number in a column of numbers: " + value);
    });
    check_points(source);
    if (choices.take_number(0, 8) == 1) show_columns(source.file_name, choices);
}
