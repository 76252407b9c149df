#include "rules/survey_place.h"

#include "data/location_reader.h"
#include "data/observed_processing.h"
#include "data/record_parser.h"
#include "grid/geographic_position.h"
#include "grid/grid_source.h"
#include "host/cancelled_dialogs.h"
#include "rules/data_columns.h"
#include "rules/database_columns.h"
#include "rules/survey_columns.h"
#include "support/answers_within.h"
#include "support/fault.h"
#include "support/paths.h"
#include "support/text.h"
#include "support/text_file.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int32_t grid_data = 1, database_kind = 2;
constexpr std::int32_t above_sea_level = 1; // a kind of sensor height
constexpr std::size_t look_size = std::size_t{ 1 } << 16;
constexpr double widest_survey = 15; // degrees; beyond it, a field of its middle means nothing, or dummies stand among the values

struct Silence : CancelledDialogs {
    void message(const std::string &) override {}
    std::optional<PointTransform> define_transform(const PointTransform &) override { return std::nullopt; }
};

/// What the points of a file cover.
struct Cover {
    double west = HUGE_VAL, east = -HUGE_VAL, south = HUGE_VAL, north = -HUGE_VAL;
    double low = HUGE_VAL, high = -HUGE_VAL;
};

double middle(double a, double b) { return a + (b - a) / 2; }

bool is_plausible(const Cover & degrees)
{
    if (!(degrees.south >= -90 && degrees.north <= 90 && degrees.west >= -180 && degrees.east <= 360)) return false;
    if (degrees.south == 0 && degrees.north == 0 && degrees.west == 0 && degrees.east == 0) return false; // never filled in
    return degrees.north - degrees.south <= widest_survey && degrees.east - degrees.west <= widest_survey;
}

std::optional<GeographicPosition> centre_of_degrees(const Cover & degrees)
{
    if (!is_plausible(degrees)) return std::nullopt;
    const double longitude = middle(degrees.west, degrees.east);
    return GeographicPosition{ longitude > 180 ? longitude - 360 : longitude, middle(degrees.south, degrees.north) };
}

/// The lines of a part of a text, as the reader of locations divides them.
std::vector<std::string> lines_of(TextFile & file, std::string_view text)
{
    const auto take_line = detect_line_ending(file) ? &take_text_line : &take_raw_line;
    std::vector<std::string> lines;
    for (std::string line; take_line(text, line);) lines.push_back(line);
    return lines;
}

/// The beginning and the end of a file of points; a line that is cut is none of them.
struct Look {
    std::vector<std::string> names;
    std::vector<std::string> first, last; ///< data lines
};

/// The names stand in the line that the definition tells, or else just above the first data line, where most files have them.
std::vector<std::string> names_in(const std::vector<std::string> & lines, std::int32_t name_line, std::int32_t first_line)
{
    const std::int32_t line = name_line >= 1 ? name_line : first_line - 1;
    if (line < 1 || static_cast<std::size_t>(line) > lines.size()) return {};
    const List<std::string> names = column_names_in(lines[static_cast<std::size_t>(line - 1)]);
    return { names.items().begin(), names.items().end() };
}

Look look_at(const InversionDefinition & definition)
{
    TextFile file(definition.data_file[0]);
    const std::string_view all = file.all();
    const std::int32_t first_line = std::max(1, definition.data_first_line[0]);
    Look look;
    look.first = lines_of(file, all.substr(0, look_size));
    if (all.size() > look_size) look.first.pop_back();
    look.names = names_in(look.first, definition.data_name_line[0], first_line);
    look.first.erase(look.first.begin(), look.first.begin() + std::min<std::ptrdiff_t>(first_line - 1, std::ssize(look.first)));
    if (all.size() <= look_size) {
        look.last = look.first;
    } else {
        look.last = lines_of(file, all.substr(all.size() - look_size));
        look.last.erase(look.last.begin());
    }
    return look;
}

/// records: lines, or the fields of rows.
template <class Record>
Cover cover_of(const std::vector<Record> & records, const LocationSource & source)
{
    const RecordParser parser(source);
    Cover cover;
    for (const Record & fields : records) {
        LocationRecord record;
        parser.parse(fields, record);
        const auto [x, y, z] = std::tuple(record.number[0], record.number[1], record.number[2]);
        if (is_missing(x) || is_missing(y)) continue;
        cover = { std::min(cover.west, x),
                  std::max(cover.east, x),
                  std::min(cover.south, y),
                  std::max(cover.north, y),
                  cover.low,
                  cover.high };
        if (is_missing(z)) continue;
        cover.low = std::min(cover.low, z + static_cast<double>(source.elevation_offset));
        cover.high = std::max(cover.high, z + static_cast<double>(source.elevation_offset));
    }
    return cover;
}

Cover cover_of_all(const LocationSource & source, Host & host)
{
    Silence silence;
    Host quiet = { silence, host.progress, host.settings, host.launcher, host.debug };
    ObservedData points;
    LocationStatistics found;
    if (read_locations_file(source, ReadMode::statistics, points, found, quiet) != Status::good || points.point_count == 0)
        return {};
    Cover cover = { found.minimum_x, found.maximum_x, found.minimum_y, found.maximum_y };
    if (found.z.minimum <= found.z.maximum) cover.low = found.z.minimum, cover.high = found.z.maximum;
    return cover;
}

template <class Record>
std::optional<IgrfDate> first_date(const std::vector<Record> & records, std::int32_t column)
{
    LocationSource source;
    source.text_column = column;
    const RecordParser parser(source);
    LocationRecord record;
    for (const Record & fields : records) {
        record = {};
        parser.parse(fields, record);
        if (!record.text) continue;
        if (const auto date = survey_date(*record.text)) return date;
    }
    return std::nullopt;
}

/// The middle of the first and the last date; to a thousandth of a year when they differ.
std::optional<IgrfDate> date_of(const Look & look, std::int32_t column)
{
    if (column < 1) return std::nullopt;
    const auto first = first_date(look.first, column);
    const std::vector<std::string> backwards(look.last.rbegin(), look.last.rend());
    const auto last = first_date(backwards, column);
    if (!first || !last || first->decimal_year == last->decimal_year) return first;
    return IgrfDate{ std::round(1000 * middle(first->decimal_year, last->decimal_year)) / 1000 };
}

/// What of the definition's points is read: their degrees where they have them, else their coordinates.
LocationSource source_of(const InversionDefinition & definition, const SurveyColumns & columns)
{
    LocationSource source = location_source(definition, 0);
    source.value_column = {};
    source.line_column = -1;
    source.transform.in_use = false; // where the data are, not where the mesh has them
    if (columns.has_degrees()) source.x_column = columns.longitude, source.y_column = columns.latitude;
    return source;
}

std::optional<SurveyPlace> place_of(const Cover & cover, const SurveyColumns & columns, const InversionDefinition & definition)
{
    if (!(cover.west <= cover.east)) return std::nullopt;
    const auto centre = columns.has_degrees()
                            ? centre_of_degrees(cover)
                            : geographic_position_of_point(definition.data_file[0], middle(cover.west, cover.east),
                                                           middle(cover.south, cover.north));
    if (!centre) return std::nullopt;
    SurveyPlace place = { centre->latitude, centre->longitude, {}, {} };
    if (definition.sensor_height_type == above_sea_level && cover.low <= cover.high)
        place.elevation = middle(cover.low, cover.high);
    return place;
}

std::optional<SurveyPlace> place_of_text(const InversionDefinition & definition, SurveyLook how, Host & host)
{
    const Look look = look_at(definition);
    const SurveyColumns columns = survey_columns(look.names);
    const LocationSource source = source_of(definition, columns);
    auto place =
        place_of(how == SurveyLook::whole ? cover_of_all(source, host) : cover_of(look.first, source), columns, definition);
    if (place) place->date = date_of(look, columns.date);
    return place;
}

std::optional<SurveyPlace> place_of_database(const InversionDefinition & definition, SurveyLook how, Host & host)
{
    DataPreview look;
    preview_database(definition, 0, look);
    const SurveyColumns columns = survey_columns(look.names);
    const LocationSource source = source_of(definition, columns);
    auto place =
        place_of(how == SurveyLook::whole ? cover_of_all(source, host) : cover_of(look.rows, source), columns, definition);
    if (place && columns.date > 0) place->date = first_date(look.rows, columns.date);
    return place;
}

std::optional<SurveyPlace> place_of_points(const InversionDefinition & definition, SurveyLook how, Host & host)
{
    const auto place = definition.data_kind[0] == database_kind ? &place_of_database : &place_of_text;
    return place(definition, how, host);
}

std::optional<SurveyPlace> place_of_grid(const std::string & path)
{
    std::string fault;
    const auto source = open_grid_source(path, 1, fault);
    if (!source || !header_fault(source->header()).empty()) return std::nullopt;
    const GridLimits & limits = source->header().limits;
    const auto centre = geographic_position_in_grid(path, middle(limits.west, limits.east), middle(limits.south, limits.north));
    if (!centre) return std::nullopt;
    return SurveyPlace{ centre->latitude, centre->longitude, {}, {} };
}

}

std::optional<SurveyPlace> survey_place(const Setup & setup, SurveyLook look, Host & host)
{
    const InversionDefinition & definition = setup.definition;
    const bool is_grid = definition.data_file_type == grid_data;
    const std::string & path = definition.data_file[is_grid ? 2 : 0];
    if (trim(path).empty() || !path_answers(path) || find_file(path).empty()) return std::nullopt;
    try {
        return is_grid ? place_of_grid(path) : place_of_points(definition, look, host);
    } catch (const Stopped &) {
        throw;
    } catch (const std::exception &) { // a file that cannot be read says nothing; the check tells why
        return std::nullopt;
    }
}
