#include "model/model_interpolation.h"

#include "model/null_aware_cubic.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/ordered_work.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

std::size_t columns_of(const UbcMesh & mesh) { return mesh.centres_x.items().size() * mesh.centres_y.items().size(); }
std::size_t cells_of(const UbcMesh & mesh) { return columns_of(mesh) * mesh.centres_z.items().size(); }

void require_count(const List<float> & values, std::size_t count, const char * what)
{
    if (values.items().size() == count) return;
    throw SubscriptFault(std::string(what) + " has " + std::to_string(values.items().size()) + " values where its mesh has " +
                         std::to_string(count));
}

/// For its life the cells above the first value of each column hold that value, and columns without one 0.
class FilledColumns {
public:
    FilledColumns(std::span<float> values, std::size_t columns)
        : values_(values), first_values_(columns), layers_(values.size() / columns)
    {
        find_first_values();
        fill([this](std::size_t column) {
            const std::size_t first = first_values_[column];
            return first == layers_ ? 0.0F : values_[first * first_values_.size() + column];
        });
    }
    ~FilledColumns()
    {
        fill([](std::size_t) { return missing_value_f32; });
    }
    FilledColumns(const FilledColumns &) = delete;
    FilledColumns & operator=(const FilledColumns &) = delete;

private:
    void find_first_values()
    {
        std::fill(first_values_.begin(), first_values_.end(), layers_);
        std::size_t empty = first_values_.size();
        const float * value = values_.data();
        for (; deepest_ < layers_ && empty > 0; ++deepest_)
            for (std::size_t & first : first_values_)
                if (!is_missing(*value++) && first == layers_) {
                    first = deepest_;
                    --empty;
                }
    }

    template <class ValueOf>
    void fill(const ValueOf & value_of)
    {
        float * value = values_.data();
        for (std::size_t layer = 0; layer < deepest_; ++layer)
            for (std::size_t column = 0; column < first_values_.size(); ++column, ++value)
                if (layer < first_values_[column]) *value = value_of(column);
    }

    std::span<float> values_;
    std::vector<std::size_t> first_values_; ///< layer per column, from 0; the number of layers in an empty column
    std::size_t layers_;
    std::size_t deepest_ = 0; ///< no column is filled from this layer down
};

/// The taps of the targets along one axis.
struct TargetAxis {
    std::vector<double> positions;
    std::vector<AxisTaps> taps;
    std::int32_t reach_first = 0, reach_end = 0; ///< the base cells that count for any of them

    TargetAxis(const List<double> & centres, const CellAxis & base) : positions(centres.items().begin(), centres.items().end())
    {
        reach_first = base.count();
        for (const double position : positions) {
            taps.push_back(base.taps_at(position));
            if (taps.back().cell < 0) continue;
            reach_first = std::min(reach_first, taps.back().first);
            reach_end = std::max(reach_end, std::min(taps.back().first + 4, base.count()));
        }
        reach_first = std::min(reach_first, reach_end);
    }
};

/// Work space of one thread.
struct Buffers {
    std::vector<double> plane; ///< base rows and columns at the height of a target layer
    std::vector<double> row;   ///< base columns at the height and row of targets
};

/// Places, in steps of a size, of the four base cells that count.
std::array<std::size_t, 4> steps_to(const AxisTaps & taps, std::int32_t count, std::size_t step)
{
    std::array<std::size_t, 4> steps{};
    for (std::int32_t i = 0; i < 4; ++i)
        steps[static_cast<std::size_t>(i)] = static_cast<std::size_t>(std::min(taps.first + i, count - 1)) * step;
    return steps;
}

double known(float value) { return is_missing(value) ? nan : static_cast<double>(value); }
double known(double value) { return value; }

/// Weighted sum of four rows of values that lie `steps` behind `rows`.
template <class Value>
void combine(const Value * rows, const std::array<std::size_t, 4> & steps, const std::array<double, 4> & weights, double * sums,
             std::size_t count)
{
    const Value *a = rows + steps[0], *b = rows + steps[1], *c = rows + steps[2], *d = rows + steps[3];
    const auto [wa, wb, wc, wd] = weights;
    for (std::size_t i = 0; i < count; ++i) sums[i] = wa * known(a[i]) + wb * known(b[i]) + wc * known(c[i]) + wd * known(d[i]);
}

/// Interpolates layer by layer of the target.
///
/// Without a transform a layer is made in three passes: four base layers into a plane, four rows of it into one, four cells of
/// that into a target. Nulls take part as NaN. So do the weights in the outer half cells, where sums have a limit: what is NaN in
/// the end is done again by itself.
class LayerWork {
public:
    LayerWork(const CellModel & base, const UbcMesh & target, const Interpolation & how, std::span<float> values)
        : base_(base), how_(how), x_(target.centres_x, base.x), y_(target.centres_y, base.y), z_(target.centres_z, base.z),
          values_(values)
    {
        for (const AxisTaps & taps : x_.taps)
            row_taps_.push_back({ taps.first, apart(taps) ? std::array{ nan, nan, nan, nan } : taps.cubic });
    }

    void operator()(std::size_t layer, Buffers & buffers) const
    {
        const std::span<float> cells = values_.subspan(layer * x_.taps.size() * y_.taps.size(), x_.taps.size() * y_.taps.size());
        const AxisTaps & z = z_.taps[layer];
        if (z.cell < 0) return;
        if (how_.transform != nullptr)
            transformed_layer(layer, cells);
        else if (apart(z))
            layer_apart(z, cells);
        else
            separable_layer(z, buffers, cells);
        if (how_.mask_surface != nullptr) mask(z_.positions[layer], cells);
    }

private:
    struct RowTaps {
        std::int32_t first;
        std::array<double, 4> weights;
    };

    static bool apart(const AxisTaps & taps) { return taps.cell < 0 || taps.beyond; }

    void separable_layer(const AxisTaps & z, Buffers & buffers, std::span<float> cells) const
    {
        const auto row = static_cast<std::size_t>(base_.x.count());
        make_plane(z, buffers);
        buffers.row.resize(std::max<std::size_t>(row, 4)); // zeros behind a short row, which have no weight
        const auto from = static_cast<std::size_t>(x_.reach_first),
                   count = static_cast<std::size_t>(x_.reach_end - x_.reach_first);
        for (const AxisTaps & y : y_.taps) {
            const std::span<float> targets = cells.first(x_.taps.size());
            cells = cells.subspan(x_.taps.size());
            if (apart(y)) {
                row_apart(y, z, targets);
                continue;
            }
            combine(buffers.plane.data() + from, steps_to(y, base_.y.count(), row), y.cubic, buffers.row.data() + from, count);
            combine_along_row(buffers.row.data(), targets);
            for (std::size_t i = 0; i < targets.size(); ++i)
                if (std::isnan(targets[i])) targets[i] = null_aware_value(base_, x_.taps[i], y, z);
        }
    }

    void make_plane(const AxisTaps & z, Buffers & buffers) const
    {
        const auto row = static_cast<std::size_t>(base_.x.count()), layer = row * static_cast<std::size_t>(base_.y.count());
        const auto from = static_cast<std::size_t>(x_.reach_first),
                   count = static_cast<std::size_t>(x_.reach_end - x_.reach_first);
        const auto steps = steps_to(z, base_.z.count(), layer);
        buffers.plane.resize(layer);
        for (auto y = static_cast<std::size_t>(y_.reach_first); y < static_cast<std::size_t>(y_.reach_end); ++y)
            combine(base_.values.data() + y * row + from, steps, z.cubic, buffers.plane.data() + y * row + from, count);
    }

    void combine_along_row(const double * row, std::span<float> targets) const
    {
        for (std::size_t i = 0; i < targets.size(); ++i) {
            const auto & [first, weights] = row_taps_[i];
            const double * cells = row + first;
            targets[i] = static_cast<float>((weights[0] * cells[0] + weights[2] * cells[2]) +
                                            (weights[1] * cells[1] + weights[3] * cells[3]));
        }
    }

    void row_apart(const AxisTaps & y, const AxisTaps & z, std::span<float> targets) const
    {
        if (y.cell < 0) return;
        for (std::size_t i = 0; i < targets.size(); ++i) targets[i] = null_aware_value(base_, x_.taps[i], y, z);
    }

    void layer_apart(const AxisTaps & z, std::span<float> cells) const
    {
        for (std::size_t y = 0; y < y_.taps.size(); ++y)
            row_apart(y_.taps[y], z, cells.subspan(y * x_.taps.size(), x_.taps.size()));
    }

    void transformed_layer(std::size_t layer, std::span<float> cells) const
    {
        for (std::size_t y = 0; y < y_.taps.size(); ++y)
            for (std::size_t x = 0; x < x_.taps.size(); ++x)
                if (x_.taps[x].cell >= 0 && y_.taps[y].cell >= 0)
                    cells[y * x_.taps.size() + x] = transformed_value(x_.positions[x], y_.positions[y], z_.positions[layer]);
    }

    float transformed_value(double x, double y, double z) const
    {
        apply_point_transform(*how_.transform, TransformDirection::forward, x, y, z);
        return null_aware_value(base_, base_.x.taps_at(x), base_.y.taps_at(y), base_.z.taps_at(z));
    }

    /// Centres descend, so the cells from the top to the first centre below the ground are those not below it.
    void mask(double centre, std::span<float> cells) const
    {
        const auto ground = how_.mask_surface->items();
        for (std::size_t i = 0; i < cells.size(); ++i)
            if (!(centre < static_cast<double>(ground[i]))) cells[i] = missing_value_f32;
    }

    const CellModel & base_;
    const Interpolation & how_;
    TargetAxis x_, y_, z_;
    std::vector<RowTaps> row_taps_;
    std::span<float> values_; ///< all null at the start
};

unsigned threads_for(const Interpolation & how, std::size_t cells)
{
    constexpr std::size_t worth_threads = 50000;
    if (how.threads != 0) return how.threads;
    return cells < worth_threads ? 1 : working_threads();
}

}

void interpolate_ubc_model(const UbcMesh & base, List<float> & base_values, const UbcMesh & target, List<float> & target_values,
                           const Interpolation & how, Progress & progress)
{
    require_count(base_values, cells_of(base), "the base model");
    if (how.mask_surface != nullptr) require_count(*how.mask_surface, columns_of(target), "the ground");
    target_values.assign(static_cast<std::int64_t>(cells_of(target)), missing_value_f32);
    if (base_values.empty() || target_values.empty()) return;

    std::optional<FilledColumns> filled;
    if (how.fill_above) filled.emplace(base_values.items(), columns_of(base));

    // A mesh of format 4 counts by its regular nodes: its cells are carried to trapezoids, and a position in one is carried back
    // by the same weights, so that it ends where it began.
    using Order = CellAxis::Order;
    const CellModel model{ { base.nodes_x, base.centres_x, Order::ascending },
                           { base.nodes_y, base.centres_y, Order::ascending },
                           { base.nodes_z_ascending, base.centres_z, Order::from_top },
                           base_values.items() };
    const LayerWork work(model, target, how, target_values.items());
    Percentage percentage(progress, target.centres_z.size());
    work_in_order<Buffers>(target.centres_z.items().size(), threads_for(how, cells_of(target)), work,
                           [&](std::size_t layer, Buffers &) { percentage.report(static_cast<std::int64_t>(layer) + 1); });
}
