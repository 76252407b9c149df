#include "model/model_file.h"

#include "model/window_columns.h"
#include "support/bulk_format.h"
#include "support/file_writer.h"
#include "support/missing.h"
#include "support/ordered_work.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t longest_line = 16; // " -d.dddddE+dd", CR and LF

/// Formats one line at `at` and gives its end.
char * put_line(char * at, float value, const ModelText & form)
{
    *at++ = ' ';
    at = put_exponent(at, value <= missing_value_f32 ? form.null_value : value / form.scale);
    *at++ = '\r';
    *at++ = '\n';
    return at;
}

/// The lines of whole columns, and the memory in which they are made.
struct Lines {
    std::vector<float> values;
    std::vector<char> room;
    std::size_t size = 0;
    std::vector<std::size_t> top_ends, ends; ///< of each column's first lines, and of all of them

    std::string_view text() const { return { room.data(), size }; }
};

/// Puts one line behind the other.
class LineMaker {
public:
    LineMaker(const ModelText & form, char * at) : form_(form), at_(at) {}

    /// Gives the end of the lines.
    const char * put(std::span<const float> values)
    {
        char * at = at_;
        const char * last_line = last_line_;
        std::uint32_t last_bits = last_bits_;
        for (const float value : values) {
            char * const line = at;
            if (const auto bits = std::bit_cast<std::uint32_t>(value); last_line != nullptr && bits == last_bits) {
                // Neighbours are often equal, and in a starting model all are.
                at += line - last_line;
                std::memmove(line, last_line, longest_line);
            } else {
                at = put_line(at, value, form_);
                last_bits = bits;
            }
            last_line = line;
        }
        last_line_ = last_line;
        last_bits_ = last_bits;
        return at_ = at;
    }

private:
    const ModelText & form_;
    char * at_;
    const char * last_line_ = nullptr;
    std::uint32_t last_bits_ = 0;
};

/// height: cells in a column; top: how many of them are counted by themselves.
void put_lines(const ModelText & form, std::size_t height, std::size_t top, Lines & lines)
{
    lines.room.resize(lines.values.size() * longest_line);
    const char * const start = lines.room.data();
    LineMaker maker(form, lines.room.data());
    lines.top_ends.clear();
    lines.ends.clear();
    for (std::span<const float> left = lines.values; !left.empty(); left = left.subspan(height)) {
        lines.top_ends.push_back(static_cast<std::size_t>(maker.put(left.first(top)) - start));
        lines.ends.push_back(static_cast<std::size_t>(maker.put(left.subspan(top, height - top)) - start));
    }
    lines.size = lines.ends.empty() ? 0 : lines.ends.back();
}

void add_places(const Lines & lines, ColumnPlaces & places)
{
    const std::uint64_t start = places.ends.back();
    for (std::size_t i = 0; i < lines.ends.size(); ++i) {
        places.top_sizes.push_back(static_cast<std::uint32_t>(start + lines.top_ends[i] - places.ends.back()));
        places.ends.push_back(start + lines.ends[i]);
    }
}

}

void write_model_file(const std::string & path, const UbcMesh & mesh, const NodeWindow & window, const List<float> & values,
                      const ModelText & form, Progress & progress, ColumnPlaces * places)
{
    constexpr std::int64_t values_at_once = std::int64_t{ 1 } << 14;
    FileWriter file(path);
    const WindowColumns columns(mesh, window, values);
    const std::int64_t at_once = std::max(values_at_once / std::max(columns.height(), std::int64_t{ 1 }), std::int64_t{ 1 });
    const auto end_of = [&](std::size_t block) {
        return std::min(static_cast<std::int64_t>(block + 1) * at_once, columns.count());
    };
    const auto height = static_cast<std::size_t>(columns.height());
    const std::size_t top = places != nullptr ? std::min(static_cast<std::size_t>(places->top_cells), height) : 0;
    if (places != nullptr) {
        *places = {};
        places->top_cells = static_cast<std::int32_t>(top);
    }
    std::int64_t rows_told = 0;
    Percentage percentage(progress, window.y_last - window.y_first);
    work_in_order<Lines>(
        static_cast<std::size_t>((columns.count() + at_once - 1) / at_once), working_threads(),
        [&](std::size_t block, Lines & lines) {
            columns.gather(static_cast<std::int64_t>(block) * at_once, end_of(block), lines.values);
            put_lines(form, height, top, lines);
        },
        [&](std::size_t block, const Lines & lines) {
            file.text(lines.text());
            if (places != nullptr) add_places(lines, *places);
            for (; (rows_told + 1) * columns.width() <= end_of(block); ++rows_told) percentage.report(rows_told + 1);
        });
    file.close();
}
