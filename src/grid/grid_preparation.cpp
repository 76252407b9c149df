#include "grid/grid_preparation.h"

#include "grid/grid_detection.h"
#include "grid/grid_formats.h"
#include "grid/grid_source.h"
#include "grid/grid_statistics.h"
#include "grid/grid_writer.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/work_file.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// A working copy that is deleted unless it is kept.
class PendingCopy {
public:
    explicit PendingCopy(std::string name) : name_(std::move(name)) {}
    ~PendingCopy() { delete_work_file(name_); }
    PendingCopy(const PendingCopy &) = delete;
    PendingCopy & operator=(const PendingCopy &) = delete;

    const std::string & name() const { return name_; }
    std::string keep() { return std::exchange(name_, ""); }

private:
    std::string name_;
};

std::string limits_text(const GridLimits & limits)
{
    return general_text(limits.west) + " to " + general_text(limits.east) + " by " + general_text(limits.south) + " to " +
           general_text(limits.north);
}

/// The cells from `low` to `high`, distances from the grid's edge in cells, with one more on each side where there is one.
void cover(double low, double high, std::int32_t count, std::int32_t & first, std::int32_t & wanted)
{
    const double from = std::clamp(std::floor(low) - 1, 0.0, double{ 1 } * count);
    const double to = std::clamp(std::ceil(high) + 1, 0.0, double{ 1 } * count);
    first = static_cast<std::int32_t>(from);
    wanted = static_cast<std::int32_t>(to) - first;
}

GridWindow covering_window(const GridHeader & header, const GridLimits & limits)
{
    GridWindow window;
    cover((limits.west - header.limits.west) / header.cell_size_x, (limits.east - header.limits.west) / header.cell_size_x,
          header.columns, window.column, window.columns);
    cover((header.limits.north - limits.north) / header.cell_size_y, (header.limits.north - limits.south) / header.cell_size_y,
          header.rows, window.row, window.rows);
    return window;
}

bool touch(const GridLimits & a, const GridLimits & b)
{
    return a.west < b.east && b.west < a.east && a.south < b.north && b.south < a.north;
}

/// The header of the part of a grid that lies in a window. Edges that are the grid's own stay what they are, to the last digit.
GridHeader header_of_part(GridHeader header, const GridWindow & window)
{
    const GridLimits whole = header.limits;
    GridLimits & limits = header.limits;
    if (window.column > 0) limits.west = whole.west + window.column * header.cell_size_x;
    if (window.row > 0) limits.north = whole.north - window.row * header.cell_size_y;
    if (window.column + window.columns < header.columns)
        limits.east = whole.west + (window.column + window.columns) * header.cell_size_x;
    if (window.row + window.rows < header.rows) limits.south = whole.north - (window.row + window.rows) * header.cell_size_y;
    header.columns = window.columns;
    header.rows = window.rows;
    return header;
}

/// Writes the window of the grid as a working copy.
GridHeader copy_window(GridSource & source, const GridHeader & header, const GridWindow & window)
{
    GridHeader copy = header_of_part(header, window);
    delete_stale_work_files("");
    PendingCopy pending(new_work_file_name(""));
    GridWriter writer(pending.name(), copy, source.fits_f32() ? CopyValues::f32 : CopyValues::f64);
    copy.work_lock = std::make_shared<FileLock>(lock_path(pending.name()).value_or(FileLock()));
    GridSummary summary;
    for_each_strip(source, window, [&](GridWindow strip, std::span<const double> values) {
        summary.add(values);
        strip.column -= window.column;
        strip.row -= window.row;
        writer.write(strip, values);
    });
    writer.close();
    copy.minimum = summary.statistics().minimum;
    copy.maximum = summary.statistics().maximum;
    copy.work_name = pending.keep();
    return copy;
}

Status refuse(const std::string & what, const GridHeader & header, const std::string & why, Dialogs & dialogs)
{
    dialogs.message(what + ": " + header.file_name + (why.empty() ? "" : ": " + why));
    return Status::bad;
}

Status check_grid(GridHeader & header, Dialogs & dialogs)
{
    const bool is_there = !find_file(header.file_name).empty();
    if (is_there && detect_grid_file(header, dialogs) == Status::good) {
        if (file_kind(header) == FileKind::grid) return Status::good;
        header.fault = picture_fault;
        header.format = nullptr;
    }
    if (header.format != nullptr) return refuse("The specified grid is invalid", header, header.fault, dialogs);
    return refuse("Failed to determine grid format", header, is_there ? header.fault : "there is no such file", dialogs);
}

Status make_copy(GridHeader & header, GridLimits & limits, Dialogs & dialogs)
{
    const GridLimits wanted = limits.are_set() ? limits : header.limits;
    if (!touch(header.limits, wanted))
        return refuse("The grid does not cover any part of the wanted area", header,
                      "it spans " + limits_text(header.limits) + ", wanted are " + limits_text(wanted), dialogs);
    std::string fault;
    const auto source = open_grid_source(header.file_name, header.band, fault);
    if (!source) return refuse("Failed to determine grid format", header, fault, dialogs);
    header = copy_window(*source, header, limits.are_set() ? covering_window(header, wanted) : whole_grid(header));
    limits = wanted;
    return Status::good;
}

}

Status prepare_grid(GridHeader & header, GridLimits & limits, Dialogs & dialogs)
{
    delete_work_file(header.work_name);
    if (check_grid(header, dialogs) != Status::good) return Status::bad;
    try {
        return make_copy(header, limits, dialogs);
    } catch (const Fault & fault) {
        dialogs.message(fault.what());
        return Status::bad;
    }
}

void delete_work_file(std::string & name)
{
    if (file_name_of_path(name).starts_with('~')) delete_file(name);
    name.clear();
}
