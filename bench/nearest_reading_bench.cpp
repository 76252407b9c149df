// The nearest of five million readings for each of a million cells. The floor is one plain pass: the cell of a reading by
// arithmetic, its distance to the centre, and a note of the nearer one.

#include "data/observed_processing.h"
#include "fakes/recorded_host.h"
#include "support/fault.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr std::int32_t readings_count = 5'000'000;
constexpr std::int32_t cells_per_side = 1000;
constexpr double cell_size = 25; // metres

UbcMesh wide_mesh()
{
    UbcMesh mesh;
    mesh.total_cells = { cells_per_side, cells_per_side, 1 };
    mesh.nodes_z = { 100, 75 };
    for (std::int32_t i = 0; i <= cells_per_side; ++i) mesh.nodes_x.push_back(cell_size * i);
    mesh.nodes_y = mesh.nodes_x;
    return mesh;
}

InversionDefinition flat_definition()
{
    InversionDefinition definition;
    definition.topo_type = 1;
    definition.sensor_height_type = 1;
    definition.add_padding_cells = 0;
    definition.mesh_cell_size = { cell_size, cell_size, cell_size, 1 };
    return definition;
}

/// Flight lines from south to north, five metres of noise aside; each holds as many readings.
ObservedData survey()
{
    constexpr std::int32_t lines = 1000;
    constexpr double width = cells_per_side * cell_size;
    std::mt19937 random(11);
    const auto noise = [&random](double size) { return size * (static_cast<double>(random() % 2001) / 1000 - 1); };
    ObservedData data;
    data.point_count = readings_count;
    for (std::int32_t i = 0; i < readings_count; ++i) {
        const double along = static_cast<double>(i % (readings_count / lines)) / (readings_count / lines);
        const double across = (i / (readings_count / lines) + 0.5) / lines;
        data.xyz[0].push_back(std::clamp(across * width + noise(5), 0.0, width - 1));
        data.xyz[1].push_back(std::clamp(along * width + noise(5), 0.0, width - 1));
        data.xyz[2].push_back(150 + noise(20));
        data.value[0].push_back(static_cast<float>(noise(500)));
    }
    return data;
}

/// The same readings without any order.
ObservedData shuffled(ObservedData data)
{
    std::mt19937 random(13);
    for (std::int32_t i = readings_count; i > 1; --i) {
        const auto other = static_cast<std::int32_t>(1 + random() % static_cast<unsigned>(i));
        for (List<double> & list : data.xyz) std::swap(list[i], list[other]);
        std::swap(data.value[0][i], data.value[0][other]);
    }
    return data;
}

void select(benchmark::State & state, const ObservedData & points)
{
    const UbcMesh mesh = wide_mesh();
    const InversionDefinition definition = flat_definition();
    const TopoSurface none;
    RecordedHost quiet;
    for (auto _ : state) {
        ObservedReadings readings;
        select_point_readings(points, definition, mesh, none, readings, quiet.host);
        benchmark::DoNotOptimize(readings.selected.selected_count);
    }
}

void one_pass(benchmark::State & state, const ObservedData & points)
{
    const auto x = points.xyz[0].items();
    const auto y = points.xyz[1].items();
    for (auto _ : state) {
        constexpr std::size_t cells = std::size_t{ cells_per_side } * cells_per_side;
        std::vector<float> distance(cells, std::numeric_limits<float>::infinity());
        std::vector<std::int32_t> nearest(cells, -1);
        for (std::size_t i = 0; i < x.size(); ++i) {
            const double ix = std::floor(x[i] / cell_size);
            const double iy = std::floor(y[i] / cell_size);
            const double dx = x[i] - (ix + 0.5) * cell_size;
            const double dy = y[i] - (iy + 0.5) * cell_size;
            const auto cell = static_cast<std::size_t>(iy * cells_per_side + ix);
            const auto here = static_cast<float>(std::sqrt(dx * dx + dy * dy));
            if (!(here < distance[cell])) continue;
            distance[cell] = here;
            nearest[cell] = static_cast<std::int32_t>(i);
        }
        benchmark::DoNotOptimize(nearest.data());
    }
}

const ObservedData & along_lines()
{
    static const ObservedData data = survey();
    return data;
}
const ObservedData & without_order()
{
    static const ObservedData data = shuffled(along_lines());
    return data;
}

void ours(benchmark::State & state) { select(state, along_lines()); }
void floor(benchmark::State & state) { one_pass(state, along_lines()); }
void ours_shuffled(benchmark::State & state) { select(state, without_order()); }
void floor_shuffled(benchmark::State & state) { one_pass(state, without_order()); }

}

BENCHMARK(ours)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(floor)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ours_shuffled)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(floor_shuffled)->Unit(benchmark::kMillisecond)->UseRealTime();
