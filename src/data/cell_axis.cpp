#include "data/cell_axis.h"

#include "support/numbers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int32_t clear_cells = 4; ///< of the padding at either end

/// A hundredth of a cell, but a metre where coordinates are so large that a float holds nothing finer.
float snap_distance(const List<double> & nodes, double cell_size)
{
    const float snap = to_f32(cell_size / 100);
    const bool large = std::abs(nodes[1]) > 1e6 || std::abs(nodes[nodes.size() - 1]) > 1e6;
    return large ? std::max(snap, 1.0F) : snap;
}

}

CellAxis::CellAxis(const List<double> & nodes, std::int32_t first_core, double cell_size, bool keeps_clear)
    : list_(nodes), nodes_(nodes.items()), snap_(snap_distance(nodes, cell_size)), first_core_(first_core),
      core_start_(nodes[first_core]), cells_per_metre_(1 / (nodes[first_core + 1] - core_start_)),
      largest_guess_(nodes.size() - first_core), lowest_(nodes[keeps_clear ? 1 + clear_cells : 1]),
      highest_(nodes[keeps_clear ? nodes.size() - clear_cells : nodes.size()])
{
}
