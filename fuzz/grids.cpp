#include "fuzz/readers.h"
#include "fuzz/surroundings.h"
#include "grid/ers_header.h"
#include "grid/geosoft_grid.h"
#include "grid/grid_statistics.h"
#include "grid/gxf_grid.h"
#include "grid/image_registration.h"
#include "grid/netcdf_size.h"
#include "support/fault.h"
#include "support/paths.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int64_t most_values = std::int64_t{ 1 } << 20; // of what is read whole

struct Counts {
    std::int32_t first, count;
};

/// A part of `whole` cells, or all of them.
Counts take_counts(Input & input, std::int32_t whole)
{
    const std::int32_t first = std::min(input.take_number(0, 256), whole - 1);
    return { first, std::min(input.take_number(1, 255), whole - first) };
}

/// What a window holds is what the whole grid holds there.
void read_window(GridSource & source, const GridWindow & window, std::span<const double> whole)
{
    std::vector<double> part(static_cast<std::size_t>(window.columns) * static_cast<std::size_t>(window.rows));
    source.read(window, part);
    if (whole.empty()) return;
    std::size_t i = 0;
    for (std::int32_t row = window.row; row < window.row + window.rows; ++row)
        for (std::int32_t column = window.column; column < window.column + window.columns; ++column, ++i) {
            const double value = whole[static_cast<std::size_t>(row) * static_cast<std::size_t>(source.header().columns) +
                                       static_cast<std::size_t>(column)];
            must(part[i] == value || (part[i] != part[i] && value != value), "a window other than the grid");
        }
}

void read_grid(GridSource & source, Input & choices)
{
    const GridHeader & header = source.header();
    if (!header_fault(header).empty()) return;
    const Counts columns = take_counts(choices, header.columns), rows = take_counts(choices, header.rows);
    std::vector<double> whole;
    if (std::int64_t{ header.columns } * header.rows <= most_values) {
        GridSummary summary;
        for_each_strip(source, whole_grid(header), [&](const GridWindow &, std::span<const double> values) {
            summary.add(values);
            if (!source.by_columns()) whole.insert(whole.end(), values.begin(), values.end());
        });
        summary.statistics();
    }
    read_window(source, { columns.first, rows.first, columns.count, rows.count }, whole);
}

/// The choices of the window stand in front of the grid.
void read_grid_file(Input input, bool (*is_grid)(const std::string &), std::unique_ptr<GridSource> (*open)(const std::string &))
{
    Input choices{ input.text.substr(0, 4) };
    input.text.remove_prefix(choices.text.size());
    const std::string path = scratch_file("grid.grd", input.text);
    if (!is_grid(path)) return;
    const std::unique_ptr<GridSource> source = open(path);
    read_grid(*source, choices);
}

}

void read_geosoft_grid(Input input) { read_grid_file(input, is_geosoft_grid, open_geosoft_grid); }
void read_gxf_grid(Input input) { read_grid_file(input, is_gxf_grid, open_gxf_grid); }
void read_netcdf_header(Input input) { promised_netcdf_size(input.text); }

void read_registration(Input input)
{
    constexpr const char * names[] = { "picture.pgw", "picture.pngw",    "picture.wld",
                                       "picture.ers", "picture.png.ers", "picture.tab" };
    std::string path = scratch_folder() + "\\";
    path += names[input.take_byte() % std::size(names)];
    const std::int32_t columns = input.take_number(1, 200), rows = input.take_number(1, 200);
    scratch_file(file_name_of_path(path), input.text);
    std::string fault;
    const auto registration = read_image_registration(scratch_folder() + "\\picture.png", columns, rows, fault);
    try {
        if (path.ends_with("ers")) read_ers_header(path);
    } catch (const Fault &) {
        must(!registration, "a position from a header that cannot be read");
    }
    delete_file(path);
    must(registration.has_value() == fault.empty(), "a picture without a position or a word why");
    if (!registration) return;
    GridHeader header;
    header.columns = columns;
    header.rows = rows;
    header.limits = registration->limits;
    header.cell_size_x = registration->cell_size_x;
    header.cell_size_y = registration->cell_size_y;
    must(header_fault(header).empty(), "a position where no picture can lie: " + header_fault(header));
}
