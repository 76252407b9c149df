// Reading a model of 256 x 256 x 128 cells from text, in the order of UBC files, into internal units. The floor is the mapped
// file and std::from_chars for one value after the other, left in the order of the file.

#include "fakes/recorded_host.h"
#include "model/model_file.h"
#include "model/model_reader.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/paths.h"

#include <benchmark/benchmark.h>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <random>
#include <vector>

namespace {

constexpr std::int64_t cell_count = 256 * 256 * 128;

UbcMesh model_mesh()
{
    UbcMesh mesh;
    mesh.total_cells = { 256, 256, 128 };
    mesh.nodes_x.assign(257);
    mesh.nodes_y.assign(257);
    mesh.nodes_z.assign(129);
    return mesh;
}

/// Values of five decades and either sign, and air in a twentieth of the cells.
List<float> inverted_model()
{
    std::mt19937 random(7);
    std::normal_distribution<float> decades(-3, 1);
    List<float> values(cell_count);
    for (float & value : values.items()) {
        value = std::pow(10.0F, decades(random));
        if (random() % 4 == 0) value = -value;
        if (random() % 20 == 0) value = -1e32F;
    }
    return values;
}

/// The input, made once and then found again by later runs and by the script beside this program.
std::string model_file()
{
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "bench_model.sus";
    if (!std::filesystem::exists(path)) {
        RecordedHost quiet;
        const UbcMesh mesh = model_mesh();
        write_model_file(definition_path(path.string() + ".new"), mesh, whole_mesh(mesh), inverted_model(), {}, quiet.progress);
        std::filesystem::rename(path.string() + ".new", path);
    }
    return definition_path(path);
}

void ours(benchmark::State & state)
{
    RecordedHost quiet;
    BaseModel base;
    base.mesh = model_mesh();
    base.mesh_loaded = true;
    base.model_file = model_file();
    for (auto _ : state)
        if (read_model_file(base, false, quiet.host) != Status::good) throw Fault("the model was not read");
    state.SetItemsProcessed(state.iterations() * cell_count);
}

void floor_from_chars(benchmark::State & state)
{
    const std::string path = model_file();
    for (auto _ : state) {
        const FileBytes bytes(path);
        std::vector<float> values;
        values.reserve(cell_count);
        const char * const end = bytes.text().data() + bytes.text().size();
        for (const char * at = bytes.text().data(); end - at > 3; at += 2) { // CR and LF
            float value = 0;
            at = std::from_chars(at + 1, end, value).ptr; // a blank in front
            values.push_back(value);
        }
        if (std::ssize(values) != cell_count) throw Fault("the floor was not read");
    }
    state.SetItemsProcessed(state.iterations() * cell_count);
}

}

BENCHMARK(ours)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(floor_from_chars)->Name("floor")->Unit(benchmark::kMillisecond)->UseRealTime();
