#include "grid/grid_sampler.h"

#include "grid/grid_source.h"
#include "support/fault.h"
#include "support/missing.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double on_the_line = 1e-6; // of a cell

/// The two neighbouring rows or columns that a position lies between, and how much of each it takes.
struct Between {
    std::int32_t first, second;
    double second_weight;
};

/// distance: from the grid's edge in cells, 0 to count.
Between between(double distance, std::int32_t count)
{
    const double place = std::clamp(distance - 0.5, 0.0, count - 1.0);
    const double nearest = std::nearbyint(place);
    if (std::abs(place - nearest) < on_the_line) {
        const auto on = static_cast<std::int32_t>(nearest);
        return { on, on, 0 };
    }
    const auto first = static_cast<std::int32_t>(place);
    return { first, first + 1, place - first };
}

template <class Value>
class Sampling {
public:
    Sampling(const GridHeader & header, const std::vector<Value> & cells) : header_(header), cells_(cells) {}

    double at(double x, double y) const
    {
        const GridLimits & limits = header_.limits;
        if (!(x >= limits.west && x <= limits.east && y >= limits.south && y <= limits.north)) return missing_value;
        const Between column = between((x - limits.west) / header_.cell_size_x, header_.columns);
        const Between row = between((limits.north - y) / header_.cell_size_y, header_.rows);
        const double upper = along(row.first, column);
        const double lower = row.second == row.first ? upper : along(row.second, column);
        return blend(upper, lower, row.second_weight);
    }

private:
    double along(std::int32_t row, const Between & column) const
    {
        const Value * const cells = cells_.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(header_.columns);
        return blend(cells[column.first], cells[column.second], column.second_weight);
    }

    static double blend(double first, double second, double second_weight)
    {
        if (is_missing(first) || is_missing(second)) return missing_value;
        return first + (second - first) * second_weight;
    }

    const GridHeader & header_;
    const std::vector<Value> & cells_;
};

template <class Value>
std::vector<Value> read_cells(GridSource & source)
{
    const GridHeader & header = source.header();
    std::vector<Value> cells;
    cells.reserve(static_cast<std::size_t>(header.columns) * static_cast<std::size_t>(header.rows));
    for_each_strip(source, whole_grid(header), [&](const GridWindow &, std::span<const double> values) {
        std::ranges::transform(values, std::back_inserter(cells), [](double value) { return static_cast<Value>(value); });
    });
    return cells;
}

}

GridSampler::GridSampler(const GridHeader & prepared) : header_(prepared)
{
    std::string fault;
    const auto source = open_grid_source(prepared.work_name, 1, fault);
    if (!source) throw FileFault("cannot read", prepared.work_name, fault.empty() ? "it is not a grid" : fault);
    if (source->fits_f32())
        cells_ = read_cells<float>(*source);
    else
        cells_ = read_cells<double>(*source);
}

void GridSampler::sample(std::span<const double> x, std::span<const double> y, std::span<double> values) const
{
    std::visit(
        [&](const auto & cells) {
            const Sampling sampling(header_, cells);
            for (std::size_t i = 0; i < values.size(); ++i) values[i] = sampling.at(x[i], y[i]);
        },
        cells_);
}
