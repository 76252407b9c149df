#pragma once

#include "mesh/ubc_mesh.h"
#include "support/list.h"

#include <span>

/// One horizontal axis of the mesh, as readings are sorted into its cells. Cells and nodes count from 1.
class CellAxis {
public:
    /// first_core: the first node of the core, where the cells are of one size. keeps_clear: the four outermost cells at either
    /// end take no reading. Fails with a `SubscriptFault` when there are no such cells.
    CellAxis(const List<double> & nodes, std::int32_t first_core, double cell_size, bool keeps_clear);

    /// True from the first node that takes readings up to, not with, the last.
    bool takes(double position) const { return position >= lowest_ && position < highest_; }

    /// The cell that holds a position: what `interval_of` gives, and mostly got without a search.
    std::int32_t cell_of(double position) const
    {
        const double steps = (position - core_start_) * cells_per_metre_;
        if (steps >= 0 && steps < largest_guess_) {
            const auto cell = first_core_ + static_cast<std::int32_t>(steps);
            if (node(cell) <= position && position < node(cell + 1)) return cell;
        }
        return interval_of(list_, position);
    }

    /// Moves a position that lies on an edge of its cell, or nearly so, into the cell.
    void snap(std::int32_t cell, double & position) const
    {
        if (distance(position, cell) < snap_) position += static_cast<double>(snap_);
        if (distance(position, cell + 1) < snap_) position -= static_cast<double>(snap_);
    }

    double centre(std::int32_t cell) const { return (node(cell) + node(cell + 1)) / 2; }

private:
    double node(std::int32_t number) const { return nodes_[static_cast<std::size_t>(number) - 1]; }
    float distance(double position, std::int32_t number) const
    {
        const double gap = position - node(number);
        return static_cast<float>(gap < 0 ? -gap : gap);
    }

    const List<double> & list_;
    std::span<const double> nodes_;
    float snap_; // metres
    std::int32_t first_core_;
    double core_start_, cells_per_metre_, largest_guess_;
    double lowest_, highest_;
};
