#include "creation/pipeline.h"

#include "creation/run_scripts.h"
#include "creation/solver_inputs.h"
#include "creation/tile_phases.h"
#include "creation/weighting_file.h"
#include "data/observed_output.h"
#include "data/topo_grid.h"
#include "data/topography.h"
#include "model/model_file.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/pattern.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::int32_t grid_file = 1; // a kind of data file

/// The user would rather look for a missing file than go on; all is well so far.
struct EndedByUser {};

void write_run_files(Run & run)
{
    if (run.is_tiled()) {
        if (!write_tile_run_files(run)) throw EndedByUser();
        return;
    }
    run.host.progress.line("Creating inversion batch file");
    run.host.progress.step("Write inversion run file");
    write_run_scripts(run.creation);
    if (has_weighting_file(run.definition))
        require(write_weighting_file(run.definition.weight_multipliers, run.file("w.dat"), run.mesh.cells_x(), run.mesh.cells_y(),
                                     run.mesh.cells_z(), run.host.dialogs));
}

void write_parameter_files(Run & run)
{
    Progress & progress = run.host.progress;
    progress.line("Creating inversion parameter files");
    if (!run.creation.is_variation() && run.definition.inversion_method != 1) {
        progress.step("Write sensitivity input file");
        write_sensitivity_inputs(run.creation);
    }
    progress.step("Write inversion input file");
    write_inversion_inputs(run.creation);
    write_run_files(run);
}

void make_topography(Run & run)
{
    run.host.progress.line("Gridding topo data ");
    run.host.progress.step("Generate topo data");
    if (run.definition.data_kind[1] == grid_file) {
        require(load_topo_grid(run.definition, run.mesh, run.topo, run.host));
        return;
    }
    ObservedData points;
    LocationStatistics statistics;
    require(read_locations_file(location_source(run.definition, 1), ReadMode::store, points, statistics, run.host));
    if (points.point_count == 0)
        throw Fault("no points were found in the topography file " + run.definition.data_file[1] +
                    ". Check its first data line and its x, y and z columns");
    run.host.progress.step("Grid topo data");
    require(interpolate_topo_points(points, run.definition, run.mesh, run.topo, run.host));
}

void write_meshes(Run & run)
{
    run.host.progress.line("Creating inversion mesh files");
    run.host.progress.step("Write mesh file");
    write_mesh_file(run.file("mesh"), run.mesh, whole_mesh(run.mesh), false, mesh_extension(run));
    if (run.is_tiled()) write_tile_meshes(run);
}

void write_models(Run & run)
{
    if (run.is_tiled()) interpolate_current_model(run);
    run.host.progress.line("Writing inversion model file");
    run.host.progress.step("Write model file");
    const std::string name = run.is_tiled() ? refined_model(run) : run.creation.files().starting_model;
    if (run.is_tiled()) run.refined.top_cells = run.creation.tile_cells_z();
    write_model_file(run.file(name), run.mesh, whole_mesh(run.mesh), run.cell_model, model_text(run), run.host.progress,
                     run.is_tiled() ? &run.refined : nullptr);
    if (!run.is_tiled()) return;
    write_tile_models(run);
}

void read_observed_data(Run & run)
{
    run.host.progress.line("Reading inversion data file");
    run.host.progress.step("Read observed data file");
    require(process_inversion_data(run.definition, run.mesh, run.topo, run.readings, run.host));
    const bool all_of_points = run.definition.data_file_type == 0 && run.definition.data_values_per_cell != 1;
    const std::int32_t count = all_of_points ? run.readings.read_count : run.readings.selected.selected_count;
    run.host.progress.line("Number of data read from file: " + format_number(count, "0"));

    if (!run.has_topo_file()) return;
    run.host.progress.line("Ensuring reading elevations are consistent with topo");
    run.host.progress.step("Process topo data");
    require(process_inversion_topo(run.definition, run.mesh, run.topo, run.readings.selected, run.cell_model, run.host));
}

/// The reference copy, which also names the line of each reading. For the own solver with an integration time it takes the place
/// of the observed data themselves.
const char * reference_file_name(const Run & run)
{
    const ClassFiles & files = run.creation.files();
    return run.is_own_solver() && run.definition.data_integration_time > 0 ? files.observed : files.reference;
}

std::string no_data_text(const Run & run)
{
    const auto & file = run.definition.data_file;
    if (run.definition.data_file_type != 0)
        return "the data grid " + file[2] + (file[5].empty() ? " has" : " and the sensor grid " + file[5] + " have") +
               " no value at the centre of any cell in the core of the mesh. Check the mesh limits and the nulls of the "
               "grid";
    return "none of the " + general_text(run.readings.read_count) + " readings of the observed data file " + file[0] +
           " can be used: none that has a value and a position lies over the core of the mesh. Check the columns and the mesh "
           "limits";
}

void write_observed_data(Run & run)
{
    const OutputWindow whole = { 1, run.mesh.cells_x() + 1, 1, run.mesh.cells_y() + 1 };
    const auto write = [&](bool extended, const char * name) {
        return write_inversion_data(run.definition, run.mesh, run.readings, extended, run.file(name), whole, run.host);
    };
    run.host.progress.line("Writing observed data for use in the inversion");
    run.host.progress.step("Write observed data");
    if (write(false, run.creation.files().observed) == 0) throw Fault(no_data_text(run));
    if (run.creation.mode != CreateMode::all) return;
    if (run.definition.data_line_column > 0 || run.definition.data_extra_value_column > 0) write(true, reference_file_name(run));
}

void write_topography(Run & run)
{
    run.host.progress.line("Writing topo data for use in the inversion");
    run.host.progress.step("Write topo data file");
    write_topo_file(run.file("topo.dat"), run.definition, run.mesh, run.topo, whole_topography(run.mesh), run.host);
    if (run.is_tiled()) write_tile_topography(run);
}

void run_phases(Run & run)
{
    write_parameter_files(run);
    const CreateMode mode = run.creation.mode;
    if (mode == CreateMode::parameters || mode == CreateMode::variation) return;

    const std::int32_t columns = multiply_counts(run.mesh.cells_x(), run.mesh.cells_y());
    run.cell_model.assign(multiply_counts(columns, run.mesh.cells_z()), 0.0F);
    if (run.has_topo_file()) make_topography(run);
    if (mode == CreateMode::all) {
        write_meshes(run);
        write_models(run);
    }
    read_observed_data(run);
    write_observed_data(run);
    if (mode != CreateMode::all) return;
    if (run.is_tiled()) write_tile_data(run);
    if (run.has_topo_file()) write_topography(run);
}

/// Runs all phases; bad when one failed, after the one message of the run.
Status run_guarded(Run & run)
{
    std::string fault_text;
    try {
        run.host.progress.begin();
        try {
            run_phases(run);
        } catch (const EndedByUser &) {
        }
        run.host.progress.line("Inversion processing complete");
        return Status::good;
    } catch (const Stopped &) {
        return Status::stopped;
    } catch (const PhaseFailed &) {
    } catch (const std::exception & fault) {
        fault_text = fault.what();
    }
    run.host.dialogs.message("An error occurred while generating the inversion files: " + fault_text);
    return Status::bad;
}

}

namespace {

/// The limits between which the own solver's mesh is draped. All tiles hang from those of the one mesh, and a base mesh that is
/// draped itself has been read with its top at 0: its own limits tell where that is.
void set_drape(const Run & run, MeshExtension & extension)
{
    const UbcMesh * const base = run.is_tiled() ? &run.creation.refined->base.mesh : nullptr;
    if (base != nullptr && base->mesh_format == 5 && base->drape_top > base->drape_bottom) {
        extension.drape_top = base->drape_top;
        extension.drape_bottom = base->drape_bottom;
    } else if (base != nullptr) {
        extension.drape_top = to_f32(run.mesh.mesh_z_top);
        extension.drape_bottom = to_f32(run.mesh.mesh_z_bottom);
    } else {
        const auto ground = run.topo.cell_topo.items();
        extension.drape_top = *std::min_element(ground.begin(), ground.end());
        extension.drape_bottom = to_f32(extension.drape_top - (run.mesh.mesh_z_top - run.mesh.mesh_z_bottom));
    }
}

}

std::optional<MeshExtension> mesh_extension(const Run & run)
{
    if (!run.is_own_solver() || !run.has_topo_file()) return std::nullopt;
    MeshExtension extension;
    extension.format = 5;
    set_drape(run, extension);
    extension.topo_nodes = &run.topo.node_topo;
    return extension;
}

Status create_inversion(const ValidatedDefinition & definition, const UbcMesh & mesh, const std::string & folder, CreateMode mode,
                        Host & host, const Refined * refined)
{
    const std::string remembered_folder = current_folder();
    Run run = { start_creation(definition, mesh, folder, mode), *definition, mesh, host };
    run.creation.refined = refined;
    const Status status = run_guarded(run);
    if (status == Status::good) host.dialogs.message("Output complete");
    change_to_path(remembered_folder);
    host.progress.end();
    return status;
}
