// A model of 256 x 256 x 64 cells taken over to 512 x 512 x 128 cells of the same volume: whole, and with air above a hilly
// ground and a few holes, without and with the filling of the air. The floor copies to each target the value of the cell it lies
// in.

#include "fakes/recorded_host.h"
#include "model/model_interpolation.h"

#include <benchmark/benchmark.h>
#include <cmath>

namespace {

void lay_axis(std::int32_t cells, double start, double width, List<double> & nodes, List<double> & centres)
{
    for (std::int32_t i = 0; i <= cells; ++i) nodes.push_back(start + i * width);
    for (std::int32_t i = 0; i < cells; ++i) centres.push_back(start + (i + 0.5) * width);
}

UbcMesh mesh_of(std::int32_t x, std::int32_t y, std::int32_t z)
{
    UbcMesh mesh;
    mesh.total_cells = { x, y, z };
    lay_axis(x, 0, 6400.0 / x, mesh.nodes_x, mesh.centres_x);
    lay_axis(y, 0, 6400.0 / y, mesh.nodes_y, mesh.centres_y);
    lay_axis(z, 0, -1600.0 / z, mesh.nodes_z, mesh.centres_z);
    for (std::int32_t i = z + 1; i >= 1; --i) mesh.nodes_z_ascending.push_back(mesh.nodes_z[i]);
    return mesh;
}

const UbcMesh & base()
{
    static const UbcMesh mesh = mesh_of(256, 256, 64);
    return mesh;
}
const UbcMesh & target()
{
    static const UbcMesh mesh = mesh_of(512, 512, 128);
    return mesh;
}

bool in_air_or_hole(std::int32_t x, std::int32_t y, std::int32_t z)
{
    const double ground = 8 + 4 * std::sin(x / 19.0) * std::cos(y / 23.0) + 2 * std::sin((x + 2 * y) / 7.0);
    return z < ground || (x % 64 < 3 && y % 64 < 3 && z % 32 < 3);
}

List<float> model(bool with_nulls)
{
    List<float> values;
    for (std::int32_t z = 0; z < 64; ++z)
        for (std::int32_t y = 0; y < 256; ++y)
            for (std::int32_t x = 0; x < 256; ++x) {
                const double value = std::sin(x / 5.0) * std::cos(y / 6.0) * std::sin(z / 4.0);
                values.push_back(with_nulls && in_air_or_hole(x, y, z) ? -1e32F : static_cast<float>(value));
            }
    return values;
}

void interpolate(benchmark::State & state, bool with_nulls, bool fill_above)
{
    RecordedHost quiet;
    List<float> values = model(with_nulls), result;
    for (auto _ : state) interpolate_ubc_model(base(), values, target(), result, { .fill_above = fill_above }, quiet.progress);
    state.SetItemsProcessed(state.iterations() * result.size());
}

void ours(benchmark::State & state) { interpolate(state, false, false); }
void ours_nulls(benchmark::State & state) { interpolate(state, true, false); }
void ours_nulls_filled(benchmark::State & state) { interpolate(state, true, true); }

void floor_copy(benchmark::State & state)
{
    const List<float> values = model(false);
    List<float> result;
    for (auto _ : state) {
        result.assign(std::int64_t{ 512 } * 512 * 128);
        float * next = result.items().data();
        for (std::size_t z = 0; z < 128; ++z)
            for (std::size_t y = 0; y < 512; ++y)
                for (std::size_t x = 0; x < 512; ++x) *next++ = values.items()[(z / 2 * 256 + y / 2) * 256 + x / 2];
        benchmark::ClobberMemory();
    }
}

}

BENCHMARK(ours)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(3);
BENCHMARK(ours_nulls)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(3);
BENCHMARK(ours_nulls_filled)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(3);
BENCHMARK(floor_copy)->Name("floor")->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(3);
