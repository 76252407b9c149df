#include "model/null_aware_cubic.h"

#include "support/missing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace {

using Weights = std::array<double, 4>;

constexpr std::size_t step_x = 1, step_y = 4, step_z = 16; // within a block

/// Places in the model of the four cells of an axis; a short axis repeats its last cell, which then has no weight.
std::array<std::size_t, 4> places_of(const CellAxis & axis, const AxisTaps & taps, std::size_t step)
{
    std::array<std::size_t, 4> places{};
    for (std::int32_t i = 0; i < 4; ++i)
        places[static_cast<std::size_t>(i)] = static_cast<std::size_t>(std::min(taps.first + i, axis.count() - 1)) * step;
    return places;
}

/// The four by four by four cells around a position; a null is NaN, so that it shows in any sum it takes part in.
struct Block {
    std::array<double, 64> values;
    double low = std::numeric_limits<double>::infinity(), high = -low;

    Block(const CellModel & model, const AxisTaps & x, const AxisTaps & y, const AxisTaps & z)
    {
        const auto row = static_cast<std::size_t>(model.x.count());
        const auto places_x = places_of(model.x, x, 1);
        const auto places_y = places_of(model.y, y, row);
        const auto places_z = places_of(model.z, z, row * static_cast<std::size_t>(model.y.count()));
        double * next = values.data();
        for (const std::size_t layer : places_z)
            for (const std::size_t line : places_y)
                for (const std::size_t cell : places_x) *next++ = take(model.values[layer + line + cell]);
    }

    double take(float value)
    {
        if (is_missing(value)) return std::numeric_limits<double>::quiet_NaN();
        low = std::min(low, static_cast<double>(value));
        high = std::max(high, static_cast<double>(value));
        return value;
    }

    /// NaN when a cell with a weight is null.
    double sum(const Weights & x, const Weights & y, const Weights & z) const
    {
        const auto line = [&](const double * cells) {
            double sum = 0;
            for (std::size_t i = 0; i < 4; ++i)
                if (x[i] != 0) sum += x[i] * cells[i];
            return sum;
        };
        double total = 0;
        for (std::size_t k = 0; k < 4; ++k) {
            if (z[k] == 0) continue;
            double layer = 0;
            for (std::size_t j = 0; j < 4; ++j)
                if (y[j] != 0) layer += y[j] * line(&values[k * step_z + j * step_y]);
            total += z[k] * layer;
        }
        return total;
    }

    double limited(double value, double reach) const
    {
        const double margin = reach * (high - low);
        return std::clamp(value, low - margin, high + margin);
    }
};

/// What the slope along one axis adds to the value of the cell at `own`. reach: grows to what a one-sided slope needs.
double rise_along(const CellAxis & axis, const AxisTaps & taps, const double * own, std::size_t step, double & reach)
{
    const double nothing = std::numeric_limits<double>::quiet_NaN();
    const double before = taps.cell > 0 ? *(own - step) : nothing;
    const double after = taps.cell + 1 < axis.count() ? *(own + step) : nothing;
    const bool has_before = !std::isnan(before), has_after = !std::isnan(after);
    if (!has_before && !has_after) return 0;
    const double gap = axis.distance(has_before ? taps.cell - 1 : taps.cell, has_after ? taps.cell + 1 : taps.cell);
    if (!has_before || !has_after) reach = std::max(reach, std::abs(taps.offset) / gap);
    return ((has_after ? after : *own) - (has_before ? before : *own)) / gap * taps.offset;
}

}

float null_aware_value(const CellModel & model, const AxisTaps & x, const AxisTaps & y, const AxisTaps & z)
{
    if (x.cell < 0 || y.cell < 0 || z.cell < 0) return missing_value_f32;
    const auto cell = [](std::int32_t number) { return static_cast<std::size_t>(number); };
    const std::size_t row = cell(model.x.count()), layer = row * cell(model.y.count());
    if (is_missing(model.values[cell(z.cell) * layer + cell(y.cell) * row + cell(x.cell)])) return missing_value_f32;

    const Block block(model, x, y, z);
    double value = block.sum(x.cubic, y.cubic, z.cubic);
    if (!std::isnan(value) && !x.beyond && !y.beyond && !z.beyond) return static_cast<float>(value);
    double reach = std::max({ 0.5, x.reach, y.reach, z.reach });
    if (std::isnan(value)) value = block.sum(x.linear, y.linear, z.linear);
    if (std::isnan(value)) {
        const double * own =
            &block.values[cell(z.cell - z.first) * step_z + cell(y.cell - y.first) * step_y + cell(x.cell - x.first)];
        value = *own + rise_along(model.x, x, own, step_x, reach) + rise_along(model.y, y, own, step_y, reach) +
                rise_along(model.z, z, own, step_z, reach);
    }
    return static_cast<float>(block.limited(value, reach));
}
