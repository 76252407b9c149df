#include "batch/commands.h"
#include "batch/printed_lines.h"
#include "grid/grid_detection.h"
#include "grid/grid_formats.h"
#include "grid/grid_statistics.h"
#include "support/numbers.h"
#include "support/paths.h"

#include <cmath>

namespace {

std::string extent_text(const GridLimits & limits)
{
    return general_text(limits.west) + " " + general_text(limits.east) + " " + general_text(limits.south) + " " +
           general_text(limits.north);
}

/// One number where the two are the same but for what the file's arithmetic leaves in the last digits.
std::string cell_size_text(const GridHeader & header)
{
    const bool square = std::abs(header.cell_size_x - header.cell_size_y) <= 1e-9 * header.cell_size_x;
    const std::string x = general_text(header.cell_size_x);
    return square ? x : x + " " + general_text(header.cell_size_y);
}

void print_grid(const GridHeader & header, const GridStatistics & statistics)
{
    const bool at_centres = header.registration == GridRegistration::node;
    print({ { "kind", "grid" },
            { "columns", general_text(header.columns) },
            { "rows", general_text(header.rows) },
            { "extent", extent_text(header.limits) },
            { "cell_size", cell_size_text(header) },
            { "minimum", general_text(statistics.minimum) },
            { "maximum", general_text(statistics.maximum) },
            { "mean", general_text(statistics.mean) },
            { "null_cells", general_text(static_cast<double>(statistics.null_count)) },
            { "format", header.format->name },
            { "registration", at_centres ? "node" : "cell" },
            { "null_rule", null_rule_text(header) } });
}

}

Status grid_command(const std::string & file, Host & display)
{
    GridHeader header;
    header.file_name = file;
    const Status status = detect_grid_file(header, display.dialogs);
    if (status != Status::good && !header.fault.empty())
        display.dialogs.message("The grid file format could not be dertermined for the file: " + file + ": " + header.fault);
    if (status != Status::good && (!header.fault.empty() || find_file(file).empty())) return Status::bad;
    if (file_kind(header) != FileKind::grid) {
        print({ { "kind", file_kind(header) == FileKind::image ? "image" : "point" } });
        return Status::good;
    }
    GridStatistics statistics;
    if (grid_statistics(header, Median::left_out, statistics, display.dialogs) != Status::good) return Status::bad;
    print_grid(header, statistics);
    return Status::good;
}
