#pragma once

#include "grid/grid_access.h"

#include <functional>
#include <memory>
#include <span>
#include <string>

/// One grid file open for reading, whatever reads it.
class GridSource {
public:
    virtual ~GridSource() = default;

    /// What the file says of itself. `file_name` and `work_name` are the caller's.
    const GridHeader & header() const { return header_; }
    /// True when 32-bit floats hold the values without loss.
    bool fits_f32() const { return fits_f32_; }
    /// True when the file holds its columns one after the other, so that it is best read in strips from north to south.
    bool by_columns() const { return by_columns_; }

    /// The values of a window, row by row from the north, each from the west; missing values are -1e32.
    /// Fails with a `FileFault` when the file does not hold them.
    virtual void read(const GridWindow & window, std::span<double> values) = 0;

protected:
    GridHeader header_;
    bool fits_f32_ = false;
    bool by_columns_ = false;
};

/// Opens a band of a grid file, told by its content; a band out of range is the first.
///
/// Null when the file is not a grid. Then `fault` says what is wrong with a file that looks like one, and is empty otherwise.
std::unique_ptr<GridSource> open_grid_source(const std::string & path, std::int32_t band, std::string & fault);

/// What is impossible in a header (no cells, edges or cell sizes the wrong way round); empty when nothing is.
std::string header_fault(const GridHeader & header);

/// All cells of a grid.
inline GridWindow whole_grid(const GridHeader & header) { return { 0, 0, header.columns, header.rows }; }

/// Gives a window to `visit` strip by strip, each a window of its own and its values. A strip is of moderate size, so that
/// memory does not grow with the grid.
void for_each_strip(GridSource & source, const GridWindow & window,
                    const std::function<void(const GridWindow &, std::span<const double>)> & visit);
