#include "mesh/expanded_mesh.h"

#include <numeric>

namespace {

/// One side of a tile, from which rings go outwards: down (-1) or up (1) its axis.
struct Side {
    const List<double> & nodes;
    std::size_t place; // of its results
    int direction;
    std::int32_t node; // the tile's outermost
    double cell_size;
};

void lay_rings(const Side & side, ExpandedMesh & expanded)
{
    const auto & multipliers = expanded.expanded_multipliers;
    const std::int32_t sum = std::accumulate(multipliers.begin(), multipliers.end(), 0);
    const double start = side.nodes[side.node];
    const double edge = side.nodes[side.direction < 0 ? 1 : side.nodes.size()];
    const double outwards = side.direction * side.cell_size;

    double limit = start + sum * outwards;
    std::size_t rings = multipliers.size();
    for (; rings > 0 && (limit - edge) * side.direction > 0; --rings) limit -= multipliers[rings - 1] * outwards;
    expanded.expanded_limits[side.place] = limit;
    expanded.expanded_rings[side.place] = static_cast<std::int32_t>(rings);

    double position = start;
    for (std::size_t k = 0; k < multipliers.size(); ++k) {
        std::int32_t & index = expanded.expanded_cell_index[k][side.place];
        index = 0;
        if (k >= rings) continue;
        position += multipliers[k] * outwards / 2;
        index = interval_of(side.nodes, position);
        position += multipliers[k] * outwards / 2;
    }
}

/// The first node whose next one is not below `limit`.
std::int32_t first_node(const List<double> & nodes, double limit)
{
    std::int32_t node = 1;
    while (node + 1 < nodes.size() && nodes[node + 1] < limit) ++node;
    return node;
}

/// From the end, the first node whose previous one is not above `limit`.
std::int32_t last_node(const List<double> & nodes, double limit)
{
    std::int32_t node = nodes.size();
    while (node > 2 && nodes[node - 1] > limit) --node;
    return node;
}

}

void set_expanded_mesh_limits(const UbcMesh & mesh, const TileLayout & layout, Tile tile, ExpandedMesh & expanded)
{
    const TileBounds & x = layout.x_of(tile);
    const TileBounds & y = layout.y_of(tile);
    const double x_size = mesh.nodes_x[x.first + 1] - mesh.nodes_x[x.first];
    const double y_size = mesh.nodes_y[y.first + 1] - mesh.nodes_y[y.first];
    lay_rings({ mesh.nodes_x, 0, -1, x.first, x_size }, expanded);
    lay_rings({ mesh.nodes_x, 1, 1, x.end, x_size }, expanded);
    lay_rings({ mesh.nodes_y, 2, -1, y.first, y_size }, expanded);
    lay_rings({ mesh.nodes_y, 3, 1, y.end, y_size }, expanded);
    const auto & limits = expanded.expanded_limits;
    expanded.expanded_first = { first_node(mesh.nodes_x, limits[0]), last_node(mesh.nodes_x, limits[1]),
                                first_node(mesh.nodes_y, limits[2]), last_node(mesh.nodes_y, limits[3]) };
}
