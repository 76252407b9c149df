#pragma once

#include "support/list.h"

#include <array>
#include <cstdint>

/// A rectilinear mesh. Lists are numbered from 1; x grows eastwards, y northwards, and z runs from the top down, so its nodes
/// descend in elevation. All lengths in metres.
struct UbcMesh {
    std::array<std::int32_t, 3> total_cells = {}; ///< x, y, z, with padding

    List<double> widths_x, widths_y, widths_z;    ///< one per cell
    List<double> nodes_x, nodes_y, nodes_z;       ///< one more than cells
    List<double> nodes_z_ascending;               ///< nodes_z, bottom first
    List<double> centres_x, centres_y, centres_z; ///< midpoints of adjacent nodes

    // Node numbers that bound the core within the lists, and the positions that go with them.
    std::int32_t core_x_first = 1, core_x_last = 1;
    std::int32_t core_y_first = 1, core_y_last = 1;
    std::int32_t core_z_first = 1, core_z_last = 1;
    double core_x_start = 0, core_x_end = 0; ///< with padding the outer limits, not the core's
    double core_y_start = 0, core_y_end = 0;
    double mesh_z_top = 0, mesh_z_bottom = 0;

    std::int32_t cells_x() const { return total_cells[0]; }
    std::int32_t cells_y() const { return total_cells[1]; }
    std::int32_t cells_z() const { return total_cells[2]; }
};

/// The largest number k with nodes[k] at or below `value`, found by bisection: 0 below the first node, the last number from the
/// last node up. nodes ascend.
std::int32_t interval_of(const List<double> & nodes, double value);
