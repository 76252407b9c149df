// Writing a model of 256 x 256 x 128 cells as text, beside the same lines made by std::to_chars in a buffer that goes nowhere.

#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "model/model_file.h"

#include <benchmark/benchmark.h>
#include <charconv>
#include <cmath>
#include <random>
#include <vector>

namespace {

UbcMesh mesh_of_cells(std::int32_t x, std::int32_t y, std::int32_t z)
{
    UbcMesh mesh;
    mesh.total_cells = { x, y, z };
    mesh.nodes_x.assign(x + 1);
    mesh.nodes_y.assign(y + 1);
    mesh.nodes_z.assign(z + 1);
    return mesh;
}

const UbcMesh & mesh()
{
    static const UbcMesh mesh = mesh_of_cells(256, 256, 128);
    return mesh;
}

std::int64_t cell_count() { return std::int64_t{ mesh().cells_x() } * mesh().cells_y() * mesh().cells_z(); }

/// What an inversion gives back: values of five decades and either sign, and air in a twentieth of the cells.
List<float> inverted_model()
{
    std::mt19937 random(7);
    std::normal_distribution<float> decades(-3, 1);
    List<float> values(cell_count());
    for (float & value : values.items()) {
        value = std::pow(10.0F, decades(random));
        if (random() % 4 == 0) value = -value;
        if (random() % 20 == 0) value = -1e32F;
    }
    return values;
}

void write(benchmark::State & state, const List<float> & values)
{
    const TemporaryFolder folder;
    RecordedHost quiet;
    for (auto _ : state) write_model_file(folder.file("model.sus"), mesh(), whole_mesh(mesh()), values, {}, quiet.progress);
    state.SetItemsProcessed(state.iterations() * values.size());
}

void ours(benchmark::State & state) { write(state, inverted_model()); }
void ours_starting_model(benchmark::State & state) { write(state, List<float>(cell_count())); }

void floor_to_chars(benchmark::State & state)
{
    const List<float> values = inverted_model();
    std::vector<char> buffer(std::size_t{ 1 } << 20);
    for (auto _ : state) {
        char * at = buffer.data();
        for (const float value : values.items()) {
            if (buffer.data() + buffer.size() - at < 32) at = buffer.data();
            *at++ = ' ';
            at = std::to_chars(at, at + 24, value <= -1e32F ? -1.0F : value, std::chars_format::scientific, 5).ptr;
            *at++ = '\r';
            *at++ = '\n';
        }
        benchmark::DoNotOptimize(at);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * values.size());
}

}

BENCHMARK(ours)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(3);
BENCHMARK(ours_starting_model)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(3);
BENCHMARK(floor_to_chars)->Name("floor")->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(3);
