#pragma once

#include "mesh/tile_layout.h"
#include "mesh/ubc_mesh.h"

#include <array>
#include <cstdint>

/// A few rings of coarse cells around a tile, against the effects of its edge. Sides: x low, x high, y low, y high.
struct ExpandedMesh {
    std::array<std::int32_t, 5> expanded_multipliers = { 1, 2, 4, 8, 16 }; ///< of the tile's first cell, inner ring first
    std::array<double, 4> expanded_limits = {};                            ///< metres, per side
    std::array<std::int32_t, 4> expanded_rings = {};                       ///< kept on each side
    std::array<std::int32_t, 4> expanded_first = {}; ///< node numbers of the design mesh: x first, x last, y first, y last
    /// Per ring, inner first, and side: the node number of the design mesh under the ring cell's centre; 0 without that ring.
    std::array<std::array<std::int32_t, 4>, 5> expanded_cell_index = {};
};

/// Lays the rings of one tile; outer rings are dropped until the rest fits into the design mesh.
void set_expanded_mesh_limits(const UbcMesh & mesh, const TileLayout & layout, Tile tile, ExpandedMesh & expanded);
