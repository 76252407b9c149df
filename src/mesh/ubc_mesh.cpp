#include "mesh/ubc_mesh.h"

#include <algorithm>

std::int32_t interval_of(const List<double> & nodes, double value)
{
    const auto items = nodes.items();
    return static_cast<std::int32_t>(std::upper_bound(items.begin(), items.end(), value) - items.begin());
}

std::int32_t node_not_above(const List<double> & nodes, double value) { return interval_of(nodes, value + same_place); }
