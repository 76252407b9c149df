#include "model/cubic_taps.h"

#include "mesh/ubc_mesh.h"

#include <algorithm>
#include <cmath>

namespace {

/// Where `along` lies between two centres: 0 at the first, 1 at the second. Nodes are sums of widths, so the centres of two
/// meshes that ought to agree differ in their last digits; taken as one they need no neighbour, which may be null.
double fraction_of(double along, double lower, double gap)
{
    constexpr double same_place = 1e-9;
    const double fraction = (along - lower) / gap;
    if (std::abs(fraction) < same_place) return 0;
    return std::abs(fraction - 1) < same_place ? 1 : fraction;
}

}

CellAxis::CellAxis(const List<double> & nodes, const List<double> & centres, Order order)
    : nodes_(nodes), sign_(order == Order::from_top ? -1 : 1)
{
    centres_.reserve(centres.items().size());
    for (const double centre : centres.items()) centres_.push_back(sign_ * centre);
}

AxisTaps CellAxis::taps_at(double position) const
{
    AxisTaps taps;
    const std::int32_t interval = interval_of(nodes_, position); // NaN lies at the end, so outside
    if (interval == 0 || interval == nodes_.size()) return taps;
    taps.cell = sign_ < 0 ? count() - interval : interval - 1;
    taps.offset = sign_ * position - at(taps.cell);
    if (count() == 1) {
        taps.cubic[0] = taps.linear[0] = 1;
        return taps;
    }
    const std::int32_t lower = std::clamp(taps.offset < 0 ? taps.cell - 1 : taps.cell, 0, count() - 2);
    weigh(sign_ * position, lower, taps);
    return taps;
}

/// lower: the first of the two cells around the position, or at an end of the axis the first of the outer two.
void CellAxis::weigh(double along, std::int32_t lower, AxisTaps & taps) const
{
    taps.first = std::clamp(lower - 1, 0, std::max(count() - 4, 0));
    const auto place = [&taps](std::int32_t cell) { return static_cast<std::size_t>(cell - taps.first); };
    const double gap = distance(lower, lower + 1);
    const double t = fraction_of(along, at(lower), gap);
    taps.linear[place(lower)] = 1 - t;
    taps.linear[place(lower + 1)] = t;
    taps.beyond = t < 0 || t > 1;
    if (taps.beyond) {
        taps.cubic = taps.linear;
        const double past = std::max(at(0) - along, along - at(count() - 1));
        taps.reach = past / distance(taps.first, std::min(taps.first + 3, count() - 1));
        return;
    }
    taps.cubic[place(lower)] = (1 + 2 * t) * (1 - t) * (1 - t);
    taps.cubic[place(lower + 1)] = t * t * (3 - 2 * t);
    const auto add_slope = [&](double weight, std::int32_t from, std::int32_t to) {
        const double share = weight / distance(from, to);
        taps.cubic[place(from)] -= share;
        taps.cubic[place(to)] += share;
    };
    add_slope(t * (1 - t) * (1 - t) * gap, std::max(lower - 1, 0), lower + 1);
    add_slope(t * t * (t - 1) * gap, lower, std::min(lower + 2, count() - 1));
}
