// Five of ten columns of a text of five million rows: what reading points costs. The floor is the mapped file, std::from_chars
// for the wanted columns and memchr over the others, without a question asked.

#include "data/location_reader.h"
#include "fakes/recorded_host.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/file_writer.h"
#include "support/paths.h"

#include <benchmark/benchmark.h>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <random>
#include <vector>

namespace {

constexpr std::int64_t full_rows = 5'000'000;
constexpr std::array<int, 5> wanted_columns = { 3, 4, 5, 7, 8 };

/// A whole number written with a point before its last `decimals` digits, and what stands behind it.
char * put(char * at, std::int64_t scaled, int decimals, char behind)
{
    if (scaled < 0) *at++ = '-';
    const std::int64_t size = scaled < 0 ? -scaled : scaled;
    std::int64_t unit = 1;
    for (int i = 0; i < decimals; ++i) unit *= 10;
    at = std::to_chars(at, at + 20, size / unit).ptr;
    if (decimals > 0) {
        *at++ = '.';
        for (std::int64_t digit = unit / 10, rest = size % unit; digit > 0; digit /= 10)
            *at++ = static_cast<char>('0' + rest / digit % 10);
    }
    *at++ = behind;
    return at;
}

/// An airborne survey: line, fiducial, east, north, height, ground, field, residual, base (a dummy), satellites.
void write_survey(const std::string & path, std::int64_t rows)
{
    std::mt19937 random(7);
    const auto noise = [&random](std::int64_t width) { return static_cast<std::int64_t>(random()) % width; };
    FileWriter file(path);
    for (std::int64_t row = 0; row < rows; ++row) {
        const std::int64_t line = row / 2000;
        char * at = file.room(256);
        at = put(at, 100001 + 10 * line, 0, ',');
        at = put(at, 2348821 + row, 1, ',');
        at = put(at, 45000000 + row % 2000 * 1037 + noise(60), 2, ',');
        at = put(at, 612345678 + line * 5000 + noise(300), 2, ',');
        at = put(at, 27000 + noise(3000), 2, ',');
        at = put(at, 19000 + noise(2000), 2, ',');
        at = put(at, 54800000 + noise(500000), 3, ',');
        at = put(at, 200000 - noise(400000), 3, ',');
        at = put(at, -999999, 2, ',');
        at = put(at, 4 + noise(9), 0, '\n');
        file.commit(at);
    }
    file.close();
}

/// The input, made once and then found again by later runs and by the script beside this program.
std::string survey_file(std::int64_t rows)
{
    const std::string name = rows == full_rows ? "bench_locations.txt" : "bench_locations_quarter.txt";
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    if (!std::filesystem::exists(path)) {
        write_survey(definition_path(path.string() + ".new"), rows);
        std::filesystem::rename(path.string() + ".new", path);
    }
    return definition_path(path);
}

void read_survey(benchmark::State & state, std::int64_t rows)
{
    RecordedHost quiet;
    LocationSource source;
    source.file_name = survey_file(rows);
    source.x_column = wanted_columns[0];
    source.y_column = wanted_columns[1];
    source.z_column = wanted_columns[2];
    source.value_column = { wanted_columns[3], wanted_columns[4], 0 };
    for (auto _ : state) {
        ObservedData data;
        LocationStatistics statistics;
        const Status status = read_locations_file(source, ReadMode::store, data, statistics, quiet.host);
        if (status != Status::good || data.point_count != rows) throw Fault("the survey was not read");
    }
}

void ours(benchmark::State & state) { read_survey(state, full_rows); }
void ours_quarter(benchmark::State & state) { read_survey(state, full_rows / 4); }

const char * skip_field(const char * at, const char * end, char delimiter)
{
    const void * const found = std::memchr(at, delimiter, static_cast<std::size_t>(end - at));
    return found == nullptr ? end : static_cast<const char *>(found) + 1;
}

void floor(benchmark::State & state)
{
    const std::string path = survey_file(full_rows);
    for (auto _ : state) {
        const FileBytes bytes(path);
        std::array<std::vector<double>, 3> places;
        std::array<std::vector<float>, 2> values;
        for (auto & list : places) list.reserve(full_rows);
        for (auto & list : values) list.reserve(full_rows);
        const char * at = bytes.text().data();
        const char * const end = at + bytes.text().size();
        while (at != end) {
            int column = 1;
            for (std::size_t i = 0; i < wanted_columns.size(); ++i, ++column) {
                for (; column < wanted_columns[i]; ++column) at = skip_field(at, end, ',');
                double number = 0;
                at = std::from_chars(at, end, number).ptr + 1;
                if (i < 3)
                    places[i].push_back(number);
                else
                    values[i - 3].push_back(static_cast<float>(number));
            }
            at = skip_field(at, end, '\n');
        }
        if (std::ssize(values[1]) != full_rows) throw Fault("the floor was not read");
    }
}

}

BENCHMARK(ours)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ours_quarter)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(floor)->Unit(benchmark::kMillisecond)->UseRealTime();
