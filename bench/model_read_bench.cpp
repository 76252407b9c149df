// Reading a model of 256 x 256 x 128 cells from text, in the order of UBC files, into internal units. The floor is the mapped
// file and std::from_chars for one value after the other, left in the order of the file.

#include "fakes/recorded_host.h"
#include "model/mesh_reader.h"
#include "model/model_file.h"
#include "model/model_reader.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/file_writer.h"
#include "support/paths.h"

#include <benchmark/benchmark.h>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <random>
#include <vector>

namespace {

constexpr std::int64_t cell_count = 256 * 256 * 128;
constexpr std::int64_t width_count = 1'000'000;

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

void write_model(const std::string & path)
{
    RecordedHost quiet;
    const UbcMesh mesh = model_mesh();
    write_model_file(path, mesh, whole_mesh(mesh), inverted_model(), {}, quiet.progress);
}

void write_mesh(const std::string & path)
{
    std::mt19937 random(7);
    FileWriter file(path);
    file.line(std::to_string(width_count) + " 1 1");
    file.line("0 0 0");
    for (std::int64_t i = 0; i < width_count; ++i) {
        char * const at = file.room(32);
        char * end =
            std::to_chars(at, at + 24, 25 + static_cast<double>(random() % 1'000'000) * 1e-4, std::chars_format::fixed, 4).ptr;
        *end++ = i % 10 == 9 ? '\n' : ' ';
        file.commit(end);
    }
    file.line("100");
    file.line("50");
    file.close();
}

/// An input, made once and then found again by later runs and by the script beside this program.
std::string input_file(const char * name, void (*write)(const std::string & path))
{
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    if (!std::filesystem::exists(path)) {
        write(definition_path(path.string() + ".new"));
        std::filesystem::rename(path.string() + ".new", path);
    }
    return definition_path(path);
}

std::string model_file() { return input_file("bench_model.sus", write_model); }
std::string mesh_file() { return input_file("bench_mesh.msh", write_mesh); }

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

void mesh(benchmark::State & state)
{
    RecordedHost quiet;
    BaseModel base;
    base.mesh_file = mesh_file();
    for (auto _ : state)
        if (read_mesh_file(base, quiet.host) != Status::good || base.mesh.cells_x() != width_count)
            throw Fault("the mesh was not read");
}

void mesh_floor(benchmark::State & state)
{
    const std::string path = mesh_file();
    for (auto _ : state) {
        const FileBytes bytes(path);
        std::vector<double> numbers;
        numbers.reserve(width_count + 8);
        const char * const end = bytes.text().data() + bytes.text().size();
        for (const char * at = bytes.text().data(); at != end;) {
            if (*at <= ' ') {
                ++at;
                continue;
            }
            double number = 0;
            at = std::from_chars(at, end, number).ptr;
            numbers.push_back(number);
        }
        if (std::ssize(numbers) != width_count + 8) throw Fault("the floor was not read");
    }
}

}

BENCHMARK(ours)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(floor_from_chars)->Name("floor")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(mesh)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(mesh_floor)->Unit(benchmark::kMillisecond)->UseRealTime();
