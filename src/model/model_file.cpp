#include "model/model_file.h"

#include "support/bulk_format.h"
#include "support/file_writer.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace {

constexpr std::size_t longest_line = 16; // " -d.dddddE+dd", CR and LF

/// Formats one line at `at` and gives its end.
char * put_line(char * at, float value, const ModelText & form)
{
    constexpr float null_limit = -1e32F;
    *at++ = ' ';
    at = put_exponent(at, value <= null_limit ? form.null_value : value / form.scale);
    *at++ = '\r';
    *at++ = '\n';
    return at;
}

void write_values(FileWriter & file, std::span<const float> values, const ModelText & form)
{
    constexpr std::size_t at_once = 4096;
    for (; !values.empty(); values = values.subspan(std::min(at_once, values.size()))) {
        char * at = file.room(at_once * longest_line);
        const char * last_line = nullptr;
        std::uint32_t last_bits = 0;
        for (const float value : values.first(std::min(at_once, values.size()))) {
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
        file.commit(at);
    }
}

/// Copies the columns of cells that start at `first` one after the other. In memory the cells of a column lie a layer
/// apart; taking a few columns together fetches each line of memory once.
void gather_columns(std::span<const float> cells, std::size_t layer_step, std::size_t columns, std::span<float> gathered)
{
    const std::size_t height = gathered.size() / columns;
    for (std::size_t z = 0; z < height; ++z)
        for (std::size_t column = 0; column < columns; ++column) gathered[column * height + z] = cells[z * layer_step + column];
}

}

void write_model_file(const std::string & path, const UbcMesh & mesh, const NodeWindow & window, const List<float> & values,
                      const ModelText & form, Progress & progress)
{
    FileWriter file(path);
    if (form.skip) {
        file.close();
        return;
    }
    constexpr std::int32_t columns_at_once = 32;
    const std::int64_t row_step = mesh.cells_x();
    const std::int64_t layer_step = row_step * mesh.cells_y();
    const auto number_of = [&](std::int32_t x, std::int32_t y, std::int32_t z) {
        return (z - 1) * layer_step + (y - 1) * row_step + x;
    };
    const std::int32_t height = window.z_last - window.z_first;
    std::vector<float> gathered(static_cast<std::size_t>(height) * columns_at_once);
    Percentage percentage(progress, window.y_last - window.y_first);
    for (std::int32_t y = window.y_first; y < window.y_last; ++y) {
        for (std::int32_t x = window.x_first; x < window.x_last && height > 0; x += columns_at_once) {
            const std::int32_t columns = std::min(columns_at_once, window.x_last - x);
            static_cast<void>(values[number_of(x + columns - 1, y, window.z_last - 1)]); // the check for all of them
            const auto cells = values.items().subspan(static_cast<std::size_t>(number_of(x, y, window.z_first) - 1));
            const auto some = std::span(gathered).first(static_cast<std::size_t>(columns) * static_cast<std::size_t>(height));
            gather_columns(cells, static_cast<std::size_t>(layer_step), static_cast<std::size_t>(columns), some);
            write_values(file, some, form);
        }
        percentage.report(y + 1 - window.y_first);
    }
    file.close();
}
