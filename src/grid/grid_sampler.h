#pragma once

#include "grid/grid_access.h"

#include <span>
#include <variant>
#include <vector>

/// Takes values between the cells of a grid that is held in memory.
///
/// A value is that of the centre of its cell. Between four centres it is bilinear. It is missing (-1e32) where one of those that
/// carry weight is missing, and outside the grid's outer edges. In the outermost half cell, where the centres lie on one side
/// only, the row or column of cells at the edge goes on to the edge: no value is drawn out beyond what was measured.
///
/// A position nearer than a millionth of a cell to the line through cell centres is on that line, so that a mesh laid on the
/// grid's own lattice is not blanked by the last digit of a coordinate.
class GridSampler {
public:
    /// prepared: a header with a working copy, which is read whole. Fails with a `FileFault` when it cannot be.
    explicit GridSampler(const GridHeader & prepared);

    /// x, y: positions in the grid's units; values: as many. Missing positions give missing values.
    void sample(std::span<const double> x, std::span<const double> y, std::span<double> values) const;

    const GridHeader & header() const { return header_; }

private:
    GridHeader header_;
    std::variant<std::vector<float>, std::vector<double>> cells_; ///< from the north west, row by row
};
