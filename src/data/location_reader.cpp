#include "data/location_reader.h"

#include "data/line_scanner.h"
#include "data/point_gatherer.h"
#include "data/record_parser.h"

#include <algorithm>
#include <exception>

namespace {

constexpr std::int32_t database_file = 2;

bool is_comment(std::string_view line) { return line.starts_with('\\') || line.starts_with('!'); }

/// The line of the next record. Every line but a comment counts towards the increment, a blank one too, but a record is never
/// blank. False at the end of the file, even with a line in hand that has not been counted out.
bool next_record(LineScanner & lines, std::int32_t read_increment, std::string_view & line)
{
    line = {};
    for (std::int32_t count = 0; line.empty() || count < read_increment;) {
        if (!lines.next(line)) return false;
        if (is_comment(line))
            line = {};
        else
            ++count;
    }
    return true;
}

void read_text_points(const LocationSource & source, ReadMode mode, ObservedData & data, LocationStatistics & statistics,
                      Host & host)
{
    TextFile file(source.file_name);
    const LineReader reader = detect_line_ending(file) ? LineReader::printable : LineReader::raw;
    const RecordParser parser(source);
    const std::int64_t expected =
        mode == ReadMode::store ? estimate_line_count(file.all()) / std::max(source.read_increment, 1) + 1 : 0;
    PointGatherer points(source, mode, statistics, expected);

    LineScanner lines(file, reader);
    Percentage percentage(host.progress, lines.bytes_total());
    std::string_view line;
    LocationRecord record;
    for (std::int32_t number = 1; number < source.first_data_line && lines.next(line);) ++number;
    while (next_record(lines, source.read_increment, line)) {
        parser.parse(line, record);
        points.take(record);
        if (lines.block_begun()) percentage.report(lines.bytes_read());
    }
    points.finish(data, statistics);
}

}

Status read_locations_file(const LocationSource & source, ReadMode mode, ObservedData & data, LocationStatistics & statistics,
                           Host & host)
{
    if (source.file_type == database_file) {
        host.dialogs.message("Geosoft databases (.gdb) cannot be read here; export the data to a point file instead: " +
                             source.file_name);
        return Status::bad;
    }
    try {
        read_text_points(source, mode, data, statistics, host);
        return Status::good;
    } catch (const std::exception & fault) {
        host.dialogs.message(std::string("An error occurred while reading the location file : ") + fault.what());
        return Status::bad;
    }
}
