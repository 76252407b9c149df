#include "data/location_reader.h"

#include "data/database/database_points.h"
#include "data/line_scanner.h"
#include "data/point_block.h"
#include "data/point_gatherer.h"
#include "support/ordered_work.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <vector>

namespace {

constexpr std::int32_t database_file = 2;
constexpr std::int64_t records_at_once = std::int64_t{ 1 } << 14;

/// Cuts a text into blocks that end with a line feed, behind which a new line always begins. A text without any is one block.
std::vector<std::string_view> blocks_of(std::string_view text, std::size_t size)
{
    std::vector<std::string_view> blocks;
    while (!text.empty()) {
        const std::size_t feed = text.find('\n', std::max(size, std::size_t{ 1 }) - 1);
        blocks.push_back(text.substr(0, feed == std::string_view::npos ? feed : feed + 1));
        text.remove_prefix(blocks.back().size());
    }
    return blocks;
}

class TextReading {
public:
    TextReading(const LocationSource & source, ReadMode mode, const LocationStatistics & limits, std::string_view text,
                LineReader reader, Host & host)
        : rules_(source, mode, limits), end_(text.data() + text.size()), reader_(reader), lines_(text, reader),
          points_(source, mode, mode == ReadMode::store ? expected_points(source, text) : 0),
          percentage_(host.progress, std::ssize(text)), size_(std::ssize(text))
    {
        std::string_view line;
        for (std::int32_t number = 1; number < source.first_data_line && lines_.next(line);) ++number;
    }

    /// For an increment, which counts lines on through the whole text.
    void read_in_turn()
    {
        PointBlock block;
        for (bool more = true; more;) {
            more = read_block(rules_, lines_, records_at_once, points_.texts(), block);
            take(block, lines_.rest().data());
        }
    }

    void read_shared(const ReadShares & shares)
    {
        const RecordTexts unknown{ { {}, false }, { {}, false }, { {}, false } };
        const auto blocks = blocks_of(lines_.rest(), shares.block_size);
        const auto read = [&](std::size_t number, const RecordTexts & before, PointBlock & block) {
            LineScanner lines(blocks[number], reader_);
            read_block(rules_, lines, std::numeric_limits<std::int64_t>::max(), before, block);
        };
        work_in_order<PointBlock>(
            blocks.size(), shares.threads == 0 ? working_threads() : shares.threads,
            [&](std::size_t number, PointBlock & block) { read(number, number == 0 ? RecordTexts{} : unknown, block); },
            [&](std::size_t number, PointBlock & block) {
                if (block.asks_for_texts) read(number, points_.texts(), block);
                take(block, blocks[number].data() + blocks[number].size());
            });
    }

    void finish(ObservedData & data, LocationStatistics & statistics) { points_.finish(data, statistics); }

private:
    static std::int64_t expected_points(const LocationSource & source, std::string_view text)
    {
        return estimate_line_count(text) / std::max(source.read_increment, 1) + 1;
    }

    void take(const PointBlock & block, const char * read_to)
    {
        points_.take(block);
        percentage_.report(size_ - (end_ - read_to));
    }

    PointRules rules_;
    const char * end_;
    LineReader reader_;
    LineScanner lines_;
    PointGatherer points_;
    Percentage percentage_;
    std::int64_t size_;
};

void read_text_points(const LocationSource & source, ReadMode mode, ObservedData & data, LocationStatistics & statistics,
                      Host & host, const ReadShares & shares)
{
    TextFile file(source.file_name);
    const LineReader reader = detect_line_ending(file) ? LineReader::printable : LineReader::raw;
    TextReading reading(source, mode, statistics, file.all(), reader, host);
    if (source.read_increment > 1)
        reading.read_in_turn();
    else
        reading.read_shared(shares);
    file.verify();
    reading.finish(data, statistics);
}

Status read_database(const LocationSource & source, ReadMode mode, ObservedData & data, LocationStatistics & statistics,
                     Host & host)
{
    const auto database = open_database(source.file_name, { source.first_data_line, source.read_increment }, host);
    return database != nullptr ? read_database_points(*database, source, mode, data, statistics, host) : Status::bad;
}

}

Status read_locations_file(const LocationSource & source, ReadMode mode, ObservedData & data, LocationStatistics & statistics,
                           Host & host, const ReadShares & shares)
{
    try {
        if (source.file_type == database_file) return read_database(source, mode, data, statistics, host);
        read_text_points(source, mode, data, statistics, host, shares);
        return Status::good;
    } catch (const std::exception & fault) {
        host.dialogs.message(std::string("An error occurred while reading the location file : ") + fault.what());
        return Status::bad;
    }
}
