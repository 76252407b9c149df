#include "model/value_order.h"

#include "support/fault.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

enum Axis : std::size_t { x, y, z };

struct Loop {
    Axis axis;
    bool downwards = false; ///< from the last cell to the first
};

constexpr std::array<std::array<Loop, 3>, 5> orders = { {
    { { { y }, { x }, { z } } },
    { { { z }, { y }, { x } } },
    { { { z }, { x }, { y, true } } },
    { { { z }, { y, true }, { x, true } } },
    { { { z }, { y, true }, { x } } },
} };

constexpr std::int64_t most_loops_together = 32;

}

ValueLayout layout_of_order(std::int32_t order, const UbcMesh & mesh)
{
    if (order < 1 || order > static_cast<std::int32_t>(orders.size()))
        throw Fault("a model file has no order " + std::to_string(order) + " of its values");
    const std::int64_t layer = std::int64_t{ mesh.cells_x() } * mesh.cells_y();
    const std::array<std::int64_t, 3> steps = { 1, mesh.cells_x(), layer };
    ValueLayout layout;
    for (std::size_t i = 0; i < 3; ++i) {
        const Loop loop = orders[static_cast<std::size_t>(order - 1)][i];
        layout.count[i] = mesh.total_cells[loop.axis];
        layout.step[i] = loop.downwards ? -steps[loop.axis] : steps[loop.axis];
        if (loop.downwards) layout.start += (layout.count[i] - 1) * steps[loop.axis];
    }
    return layout;
}

ValueLayout layout_of_earth(const UbcMesh & mesh)
{
    constexpr std::int32_t layers_slowest = 2;
    ValueLayout layout = layout_of_order(layers_slowest, mesh);
    const std::int64_t above = std::int64_t{ mesh.air_cells } + mesh.sea_cells;
    if (mesh.air_cells < 0 || mesh.sea_cells < 0 || above > mesh.cells_z())
        throw Fault("the mesh has more layers of air and sea than layers");
    layout.count[0] -= above;
    layout.start = above * layout.step[0];
    return layout;
}

ValuePlacer::ValuePlacer(const ValueLayout & layout, std::span<float> values) : layout_(layout), values_(values)
{
    const bool adjacent = std::abs(layout.step[2]) == 1;
    const std::int64_t loops = adjacent ? 1 : std::min(most_loops_together, layout.count[1]);
    gathered_.resize(static_cast<std::size_t>(loops * layout.count[2]));
}

void ValuePlacer::take(std::span<const float> more)
{
    while (!more.empty() && !complete()) {
        const std::int64_t loops = loops_together();
        const std::size_t wanted = static_cast<std::size_t>(loops * layout_.count[2]) - gathered_count_;
        const auto some = more.first(std::min(wanted, more.size()));
        std::ranges::copy(some, gathered_.begin() + static_cast<std::ptrdiff_t>(gathered_count_));
        gathered_count_ += some.size();
        taken_ += std::ssize(some);
        more = more.subspan(some.size());
        if (some.size() == wanted) place_gathered(loops);
    }
}

/// How many of the innermost loops are gathered this time.
std::int64_t ValuePlacer::loops_together() const
{
    return std::min(std::ssize(gathered_) / layout_.count[2], layout_.count[1] - middle_);
}

void ValuePlacer::place_gathered(std::int64_t loops)
{
    const std::int64_t first = layout_.start + slow_ * layout_.step[0] + middle_ * layout_.step[1];
    const std::int64_t depth = layout_.count[2];
    for (std::int64_t i = 0; i < depth; ++i)
        for (std::int64_t loop = 0; loop < loops; ++loop)
            values_[static_cast<std::size_t>(first + i * layout_.step[2] + loop * layout_.step[1])] =
                gathered_[static_cast<std::size_t>(loop * depth + i)];
    gathered_count_ = 0;
    middle_ += loops;
    if (middle_ < layout_.count[1]) return;
    middle_ = 0;
    ++slow_;
}
