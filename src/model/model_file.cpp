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

/// The lines of values, and the memory in which they are made.
struct Lines {
    std::vector<float> values;
    std::vector<char> room;
    std::size_t size = 0;

    std::string_view text() const { return { room.data(), size }; }
};

void put_lines(const ModelText & form, Lines & lines)
{
    lines.room.resize(lines.values.size() * longest_line);
    char * at = lines.room.data();
    const char * last_line = nullptr;
    std::uint32_t last_bits = 0;
    for (const float value : lines.values) {
        char * const line = at;
        if (const auto bits = std::bit_cast<std::uint32_t>(value); last_line != nullptr && bits == last_bits) {
            // Neighbours are often equal, and in a starting model all are.
            at += line - last_line;
            std::memmove(line, last_line, longest_line);
        } else {
            at = put_line(at, value, form);
            last_bits = bits;
        }
        last_line = line;
    }
    lines.size = static_cast<std::size_t>(at - lines.room.data());
}

}

void write_model_file(const std::string & path, const UbcMesh & mesh, const NodeWindow & window, const List<float> & values,
                      const ModelText & form, Progress & progress)
{
    constexpr std::int64_t values_at_once = std::int64_t{ 1 } << 14;
    FileWriter file(path);
    if (form.skip) {
        file.close();
        return;
    }
    const WindowColumns columns(mesh, window, values);
    const std::int64_t at_once = std::max(values_at_once / std::max(columns.height(), std::int64_t{ 1 }), std::int64_t{ 1 });
    const auto end_of = [&](std::size_t block) {
        return std::min(static_cast<std::int64_t>(block + 1) * at_once, columns.count());
    };
    std::int64_t rows_told = 0;
    Percentage percentage(progress, window.y_last - window.y_first);
    work_in_order<Lines>(
        static_cast<std::size_t>((columns.count() + at_once - 1) / at_once), working_threads(),
        [&](std::size_t block, Lines & lines) {
            columns.gather(static_cast<std::int64_t>(block) * at_once, end_of(block), lines.values);
            put_lines(form, lines);
        },
        [&](std::size_t block, const Lines & lines) {
            file.text(lines.text());
            for (; (rows_told + 1) * columns.width() <= end_of(block); ++rows_told) percentage.report(rows_told + 1);
        });
    file.close();
}
