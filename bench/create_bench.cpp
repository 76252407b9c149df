// The parts of a whole creation one after the other, without form, check, scripts or progress shown: what `create` may cost at
// least with these parts. measure_create.py names the definition in CREATE_DEFINITION and compares.

#include "data/observed_output.h"
#include "data/observed_processing.h"
#include "data/topography.h"
#include "definition/definition_file.h"
#include "fakes/recorded_host.h"
#include "mesh/mesh_design.h"
#include "model/mesh_file.h"
#include "model/model_file.h"
#include "support/fault.h"
#include "support/paths.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>

namespace {

/// The work tables of one run.
struct Run {
    RecordedHost quiet;
    InversionDefinition definition;
    Padding padding;
    UbcMesh mesh;
    TopoSurface topo;
    ObservedReadings readings;
    std::string folder; ///< with a "\" at its end
};

void require(Status status, const char * part)
{
    if (status != Status::good) throw Fault(std::string(part) + " failed");
}

void read_definition(const std::string & path, Run & run)
{
    require(read_inversion_parameter_file(path, Selection::all, run.definition, run.quiet.dialogs), "the definition");
    run.definition.obs_data_type_count = 1; // the check counts them; a read counts the places
    change_to_path(path);
    require(determine_inversion_mesh(run.definition, run.padding, run.mesh), "the mesh");
}

void make_ground(Run & run)
{
    ObservedData points;
    LocationStatistics statistics;
    require(read_locations_file(location_source(run.definition, 1), ReadMode::store, points, statistics, run.quiet.host),
            "the ground's file");
    require(interpolate_topo_points(points, run.definition, run.mesh, run.topo, run.quiet.host), "the ground");
}

void write_mesh_and_model(Run & run)
{
    const auto [lowest, highest] = std::ranges::minmax(run.topo.cell_topo.items());
    const MeshExtension extension{ .format = 5,
                                   .drape_top = lowest,
                                   .drape_bottom = lowest - static_cast<float>(run.mesh.mesh_z_top - run.mesh.mesh_z_bottom),
                                   .topo_nodes = &run.topo.node_topo };
    write_mesh_file(run.folder + "mesh", run.mesh, whole_mesh(run.mesh), false, extension);
    const std::int64_t cells = std::int64_t{ run.mesh.cells_x() } * run.mesh.cells_y() * run.mesh.cells_z();
    write_model_file(run.folder + "model.sus", run.mesh, whole_mesh(run.mesh), List<float>(cells), {}, run.quiet.progress);
}

void write_readings(Run & run)
{
    require(process_inversion_data(run.definition, run.mesh, run.topo, run.readings, run.quiet.host), "the readings");
    List<float> cell_model(std::int64_t{ run.mesh.cells_x() } * run.mesh.cells_y() * run.mesh.cells_z());
    require(process_inversion_topo(run.definition, run.mesh, run.topo, run.readings.selected, cell_model, run.quiet.host),
            "the lift");
    const OutputWindow window{ 1, run.mesh.cells_x() + 1, 1, run.mesh.cells_y() + 1 };
    write_inversion_data(run.definition, run.mesh, run.readings, false, run.folder + "mag.obs", window, run.quiet.host);
    write_topo_file(run.folder + "topo.dat", run.definition, run.mesh, run.topo, whole_topography(run.mesh), run.quiet.host);
}

void parts_chained(benchmark::State & state)
{
    const char * definition = std::getenv("CREATE_DEFINITION");
    if (definition == nullptr) return state.SkipWithError("CREATE_DEFINITION names no definition");
    const std::filesystem::path path = std::filesystem::absolute(definition);
    const std::filesystem::path folder = path.parent_path() / "parts";
    std::filesystem::create_directories(folder);
    for (auto _ : state) {
        Run run;
        run.folder = with_backslash(definition_path(folder));
        read_definition(definition_path(path), run);
        make_ground(run);
        write_mesh_and_model(run);
        write_readings(run);
        benchmark::DoNotOptimize(run.readings.selected.selected_count);
    }
}

BENCHMARK(parts_chained)->Unit(benchmark::kMillisecond)->UseRealTime();

}
