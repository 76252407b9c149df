#pragma once

#include "mesh/ubc_mesh.h"
#include "utilities/rotated_extents.h"

/// The mesh and one edge cell more on each side, in mesh coordinates. Ground within it counts, and it is what is read of a grid.
inline Extents surroundings_of(const UbcMesh & mesh)
{
    const auto before_first = [](const List<double> & nodes) { return nodes[1] - (nodes[2] - nodes[1]); };
    const auto behind_last = [](const List<double> & nodes) {
        const std::int32_t last = nodes.size();
        return nodes[last] + (nodes[last] - nodes[last - 1]);
    };
    return { before_first(mesh.nodes_x), behind_last(mesh.nodes_x), before_first(mesh.nodes_y), behind_last(mesh.nodes_y) };
}
