#include "creation/tile_phases.h"

#include "creation/tile_scripts.h"
#include "creation/tile_solver.h"
#include "creation/top_scripts.h"
#include "creation/weighting_file.h"
#include "data/observed_output.h"
#include "definition/enumerations.h"
#include "model/model_interpolation.h"
#include "support/file_writer.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"

#include <future>
#include <map>

namespace {

/// ".den" for gravity, ".sus" for magnetics.
std::string model_ending(const Run & run) { return tile_class(run.creation).model; }

/// Calls `body` for each tile, columns outermost, with the rings around it laid.
template <class Body>
void for_each_tile(Run & run, Body body)
{
    for (const Tile tile : all_tiles(run.creation.tiles())) {
        if (run.definition.use_expanded_mesh == 1) set_expanded_mesh_limits(run.mesh, run.creation.tiles(), tile, run.expanded);
        body(tile);
    }
}

/// The cells of a tile with its overlap, from the top down to the last that the tile solves for.
NodeWindow window_of(const Run & run, Tile tile)
{
    const TileBounds & x = run.creation.tiles().x_of(tile);
    const TileBounds & y = run.creation.tiles().y_of(tile);
    return { x.first, x.end, y.first, y.end, 1, run.creation.tile_cells_z() + 1 };
}

/// The model file that the solver itself writes: "maginv3d.sus", "qvinv3d.den".
std::string solver_model(const Run & run) { return std::string(run.creation.solver().inversion) + model_ending(run); }

/// A tile's starting model. The own solver's has a name of its own, as its result must not stand there before it has run.
std::string tile_model(const Run & run)
{
    if (!run.is_own_solver()) return solver_model(run);
    return tile_class(run.creation).data + ("_tile" + model_ending(run));
}

bool is_first_solver(const Run & run) { return run.creation.solver().form == InputForm::first; }

/// Gravity solvers of the public kind have no data in their tile folders: their file names grow in the inversion folder instead,
/// and the tile scripts bring the data. The own solver, and the magnetic ones, do.
bool has_data_in_tiles(const Run & run)
{
    return run.is_own_solver() || inversion_method_of(run.definition.inversion_method).family == MethodFamily::magnetic;
}

/// Where the observed data of a tile go; `last` is where those of the tile before went.
std::string tile_data_path(const Run & run, Tile tile, const std::string & last)
{
    const bool residual_later = run.definition.tile_use_reference == 1 && !run.is_own_solver();
    const std::string ending = residual_later ? ".dat" : ".obs";
    if (!has_data_in_tiles(run)) return last + ending;
    return run.tile_file(tile, tile_class(run.creation).data + ending);
}

/// Writes a tile's data and gives their number. A name that no disk would take is not written: nothing reads such a file.
std::int32_t write_data_of_tile(const Run & run, Tile tile, const std::string & path)
{
    constexpr std::size_t longest_name = 255;
    const TileBounds & x = run.creation.tiles().x_of(tile);
    const TileBounds & y = run.creation.tiles().y_of(tile);
    const OutputWindow window = { x.first, x.end, y.first, y.end };
    if (file_name_of_path(path).size() > longest_name) return count_inversion_data(run.definition, run.readings, window);
    return write_inversion_data(run.definition, run.mesh, run.readings, false, path, window, run.host);
}

void copy_model_files(const Run & run)
{
    const InversionDefinition & definition = run.definition;
    std::vector<std::string> files = { definition.initial_model, definition.reference_model };
    if (run.creation.solver().has_bounds && !is_first_solver(run)) files.push_back(definition.model_bounds[0]);
    if (run.creation.solver().form == InputForm::marked) files.push_back(definition.model_bounds[1]);
    files.push_back(definition.rock_property_file);
    std::map<std::string, std::string> sources;
    for (const std::string & file : files) {
        if (!is_model_file(file)) continue;
        // A bare name may stand for a file that lies in the inversion folder already.
        const std::string target = run.file(file_name_of_path(file));
        const auto [taken, is_new] = sources.emplace(upper_case(target), absolute_path(file));
        if (!is_new && taken->second != absolute_path(file))
            throw Fault("the inversion folder can hold only one file of the name " + file_name_of_path(file) + ": " +
                        taken->second + " or " + file + ". Rename one of them");
        if (!find_file(file).empty() || find_file(target).empty()) copy_file(file, target);
    }
}

void write_models_of_tiles(Run & run)
{
    for_each_tile(run, [&](Tile tile) {
        run.host.progress.line("Writing model file for " + tile_name(tile));
        const std::string path = run.tile_file(tile, tile_model(run));
        if (run.definition.use_expanded_mesh == 1)
            write_lines(path, {}); // the extraction tool fills it
        else
            copy_model_window(run.file(refined_model(run)), run.refined, run.mesh.cells_x(), path, window_of(run, tile),
                              run.host.progress);
    });
}

}

bool write_tile_run_files(Run & run)
{
    run.host.progress.step("Write inversion run files");
    CoarseMatrix matrix;
    for (const Tile tile : all_tiles(run.creation.tiles())) {
        run.host.progress.line("Creating inversion input and batch files for " + tile_name(tile));
        if (!write_tile_run_files(run.creation, tile, matrix, run.host)) return false;
    }
    return true;
}

void write_tile_meshes(Run & run)
{
    const std::optional<MeshExtension> extension = mesh_extension(run);
    for_each_tile(run, [&](Tile tile) {
        write_mesh_file(run.tile_file(tile, "mesh"), run.mesh, window_of(run, tile), run.definition.use_expanded_mesh == 1,
                        extension);
    });
    if (!has_weighting_file(run.definition)) return;
    for (const Tile tile : all_tiles(run.creation.tiles())) {
        const NodeWindow window = window_of(run, tile);
        require(write_weighting_file(run.definition.weight_multipliers, run.tile_file(tile, "w.dat"),
                                     window.x_last - window.x_first, window.y_last - window.y_first,
                                     window.z_last - window.z_first, run.host.dialogs));
    }
}

void interpolate_current_model(Run & run)
{
    run.host.progress.line("Interpolating current inversion model");
    run.host.progress.step("Interpolate current model file");
    BaseModel & base = run.creation.refined->base;
    if (!base.model.model_loaded) {
        const std::int32_t columns = multiply_counts(base.mesh.cells_x(), base.mesh.cells_y());
        base.model.model_values.assign(multiply_counts(columns, base.mesh.cells_z()), 0.0F);
    }
    Interpolation how;
    how.fill_above = true;
    if (run.has_topo_file() && !run.is_own_solver()) how.mask_surface = &run.topo.cell_topo;
    interpolate_ubc_model(base.mesh, base.model.model_values, run.mesh, run.cell_model, how, run.host.progress);
    if (!base.model.model_loaded) base.model.model_values.clear();
}

std::string refined_model(const Run & run) { return "refined" + model_ending(run); }

ModelText model_text(const Run & run)
{
    ModelText form;
    if (run.is_tiled() && run.creation.refined->base.model.model_scale != 0)
        form.scale = run.creation.refined->base.model.model_scale;
    return form;
}

void write_tile_models(Run & run)
{
    // The system copies while the tiles are cut from the same file.
    std::future<void> copied = std::async([&run] { copy_file(run.file(refined_model(run)), run.file(solver_model(run))); });
    write_models_of_tiles(run);
    copied.get();
    copy_model_files(run); // the last: one of them may have the refined model's name
}

void write_tile_data(Run & run)
{
    const Creation & creation = run.creation;
    TopScripts scripts = start_top_scripts(creation);
    std::string path = run.file("iter_all.bat");
    for (const std::vector<Tile> & group : tiles_in_run_order(creation.tiles())) {
        for (const Tile tile : group) {
            run.host.progress.line("Processing tile " + tile_number(tile));
            path = tile_data_path(run, tile, path);
            add_tile(scripts, creation, tile, write_data_of_tile(run, tile, path));
        }
        end_tile_group(scripts);
    }
    write_top_scripts(scripts, creation);
}

void write_tile_topography(Run & run)
{
    for_each_tile(run, [&](Tile tile) {
        const TileBounds & x = run.creation.tiles().x_of(tile);
        const TileBounds & y = run.creation.tiles().y_of(tile);
        run.host.progress.line("Processing tile " + tile_number(tile));
        write_topo_file(run.tile_file(tile, "topo.dat"), run.definition, run.mesh, run.topo,
                        { x.first, x.end, y.first, y.end, true }, run.host);
    });
}
