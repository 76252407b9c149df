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

    // What a mesh file brings besides; a design mesh leaves it as it is here.
    std::int32_t mesh_format = 0;                    ///< 0 UBC, 1 earth, sea and air layers, 2 to 5 with topography
    double origin_x = 0, origin_y = 0, origin_z = 0; ///< the first nodes; z is the top
    std::int32_t padding_x_start = 0, padding_x_end = 0, padding_y_start = 0, padding_y_end = 0; ///< padding cells found
    std::int32_t padding_z_top = 0, padding_z_bottom = 0;
    double core_size_x = 0, core_size_y = 0, core_size_z = 0; ///< smallest width inside the core
    std::int32_t earth_cells = 0, sea_cells = 0, air_cells = 0;
    bool topo_present = false;
    List<float> topo_nodes; ///< elevation at each surface node, x fastest; -1e32 where the file holds no number
    float topo_min = 1e32F, topo_max = -1e32F;
    double ground_level = 0; ///< elevation of a layered mesh's sea floor, or the top of a mesh that carries topography
    float drape_top = 0, drape_bottom = 0, drape_depth = 0;
    bool trapezoid_present = false;
    List<double> trapezoid_nodes;  ///< a pair of positions per surface node, x fastest, the pair together
    double trapezoid_rotation = 0; ///< radians

    std::int32_t cells_x() const { return total_cells[0]; }
    std::int32_t cells_y() const { return total_cells[1]; }
    std::int32_t cells_z() const { return total_cells[2]; }
    bool topo_varies() const { return topo_present && topo_max > topo_min; }
};

/// The largest number k with nodes[k] at or below `value`, found by bisection: 0 below the first node, the last number from the
/// last node up. nodes ascend.
std::int32_t interval_of(const List<double> & nodes, double value);

/// Positions closer than this, in metres, are one. A definition keeps cell sizes to seven decimals, so that the sum of a thousand
/// thirds of a cell is that far off the node it stands for.
inline constexpr double same_place = 1e-4;

/// As `interval_of`, where a value just short of a node lies on it.
std::int32_t node_not_above(const List<double> & nodes, double value);
