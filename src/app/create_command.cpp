#include "app/create_command.h"

#include "app/output_folder.h"
#include "creation/pipeline.h"
#include "definition/enumerations.h"
#include "rules/layout_rules.h"
#include "rules/validation.h"
#include "support/fault.h"
#include "support/paths.h"
#include "support/text.h"

#include <array>

namespace {

/// The names of a family's own output files, which the folder must not have.
std::array<const char *, 2> output_stems(MethodFamily family)
{
    switch (family) {
    case MethodFamily::magnetic:
        return { "MAGINV3D", "MAGSEN3D" };
    case MethodFamily::gravity:
        return { "GZINV3D", "GZSEN3D" };
    case MethodFamily::own:
        break;
    }
    return { "QVINV3D", "QVSEN3D" };
}

Status take_new_folder(const Setup & setup, OutputFolder & folder, Host & host)
{
    if (take_output_folder(setup.form, FolderName::needed, folder, host) != Status::good) return Status::bad;
    for (const char * stem : output_stems(inversion_method_of(setup.definition.inversion_method).family)) {
        if (upper_case(folder.name) != stem) continue;
        host.dialogs.message("The output directory name conflicts with the output file names");
        return Status::bad;
    }
    return Status::good;
}

/// Two inversions written into one folder at the same time would mix.
FileLock lock_folder(const std::string & folder)
{
    std::optional<FileLock> lock = lock_path(folder);
    if (!lock)
        throw Fault("another program is writing an inversion into the folder " + folder +
                    ". Let it finish, or use another folder");
    return std::move(*lock);
}

/// The definition goes into the folder twice: under the name that the programs know and under the folder's own.
void save_into_folder(Session & session, const ValidatedDefinition & definition, const OutputFolder & folder, Host & host)
{
    save_inversion_parameters(folder.path + "inversion.inp", definition);
    std::string bare = folder.name;
    while (bare.ends_with('\\')) bare.pop_back();
    const std::string named = folder.path + bare + ".inp";
    save_inversion_parameters(named, definition);
    add_file_to_MRU(session, named, host);
}

CreateMode mode_of(const Setup & setup, int index)
{
    if (index == 0) return CreateMode::all;
    if (index == 1) return CreateMode::parameters;
    return setup.form["Check_update_data_files"].on ? CreateMode::variation_with_data : CreateMode::variation;
}

bool is_tiled(const Setup & setup) { return setup.refinement_mode == 1; }

/// What a tiled inversion must be before it is checked: its scripts reach the original mesh and model by relative paths without
/// quotes.
Status check_original_files(const Setup & setup, const OutputFolder & folder, Host & host)
{
    const BaseModel & base = setup.base;
    if (base.mesh_file.empty() || !is_tiled(setup) || setup.definition.tile_use_reference != 1) return Status::good;
    const char * fault = nullptr;
    if (upper_case(folder_of_path(base.mesh_file)) == upper_case(folder_of_path(folder.path)))
        fault = "The refinement directory must be different from the original inversion directory";
    else if (base.mesh_file.find(' ') != std::string::npos)
        fault = "The original mesh path/file name cannot contain blank characters";
    else if (base.model_file.find(' ') != std::string::npos)
        fault = "The original model path/file name cannot contain blank characters";
    if (fault == nullptr) return Status::good;
    host.dialogs.message(fault);
    return Status::bad;
}

/// The own solver always runs the coarse forward model when there is one to run, and knows no expanded meshes.
void adapt_tiles_to_own_solver(Setup & setup)
{
    InversionDefinition & definition = setup.definition;
    if (!is_tiled(setup) || inversion_method_of(definition.inversion_method).family != MethodFamily::own) return;
    if (definition.tile_coarse_model == 0) definition.tile_coarse_model = 1;
    definition.use_expanded_mesh = 0;
    // Only these two controls: what else has been typed is still to be checked.
    choose_position(setup.form["Combo_forward_model"], definition.tile_coarse_model);
    setup.form["Check_do_expanded"].on = false;
}

Status check_folder_and_tiles(Setup & setup, int index, const OutputFolder & folder, Host & host)
{
    if (check_original_files(setup, folder, host) != Status::good) return Status::bad;
    if (is_tiled(setup) && index == 2) { // a tile folder shares nothing with a parent that a variation could use
        host.dialogs.message("The inversion variation option is not available for refined inversions");
        return Status::bad;
    }
    adapt_tiles_to_own_solver(setup);
    if (is_tiled(setup) && setup.definition.tile_coarse_model == 1 && setup.base.model_file.empty())
        host.dialogs.message(
            "The tiles will run a coarse forward model, but the base mesh has no model: the tile scripts cannot work "
            "without one");
    return Status::good;
}

void pause_for_tiles(Session & session, ValidatedDefinition definition, const std::string & folder, CreateMode mode,
                     FileLock lock, Host & host)
{
    Setup & setup = session.setup;
    session.paused = PausedCreation{ std::move(definition), setup.design_mesh, setup.tiles, folder, mode, std::move(lock) };
    pause_in_tiling_layout(setup, host);
}

Status check_and_create(Session & session, int index, const OutputFolder & folder, Host & host, bool & handled)
{
    Setup & setup = session.setup;
    if (check_folder_and_tiles(setup, index, folder, host) != Status::good) return Status::bad;
    host.progress.line("Checking inversion definitions");
    std::optional<ValidatedDefinition> definition;
    if (check_inversion_definitions(setup, definition, host) != Status::good) return Status::bad;
    if (index == 2 && definition->in_use().rock_properties && (*definition)->rock_property_application != 1) {
        host.dialogs.message("The inversion variation option is not available for Rock Property inversions");
        return Status::bad;
    }
    if (!folder_exists(folder.path)) {
        make_folder_path(folder.path);
        host.progress.line("Creating inversion directory");
    }
    FileLock lock = lock_folder(folder.path);
    host.progress.line("Saving the inversion definitions");
    save_into_folder(session, *definition, folder, host);
    if (is_tiled(setup)) {
        pause_for_tiles(session, std::move(*definition), folder.path, mode_of(setup, index), std::move(lock), host);
        return Status::good;
    }
    handled = true; // from here on the pipeline shows its own failures
    return create_inversion(*definition, setup.design_mesh, folder.path, mode_of(setup, index), host);
}

}

Status press_create_inversion(Session & session, int index, Host & host)
{
    session.setup.form["Text_progress"].text.clear();
    session.paused.reset();
    OutputFolder folder;
    if (take_new_folder(session.setup, folder, host) != Status::good) return Status::bad;

    bool handled = false;
    std::string fault_text;
    try {
        const Status status = check_and_create(session, index, folder, host, handled);
        if (status != Status::bad || handled) return status;
    } catch (const Stopped &) {
        return Status::stopped;
    } catch (const std::exception & fault) {
        fault_text = fault.what();
    }
    // A failed check has shown its own message and ends here too, with nothing to add.
    host.dialogs.message("An error occurred while creating the inversion: " + fault_text);
    return Status::bad;
}

Status press_continue_tile(Session & session, Host & host)
{
    if (!session.paused) {
        host.dialogs.message("There is no tiled inversion to go on with: create it first");
        return Status::bad;
    }
    const PausedCreation paused = std::move(*session.paused);
    press_cancel_tile(session);
    Setup & setup = session.setup;
    if (setup.tiles.tile_x_cells != paused.tiles.tile_x_cells || setup.tiles.tile_y_cells != paused.tiles.tile_y_cells) {
        host.dialogs.message("The tiles have been laid out anew since the inversion was checked: create it again");
        return Status::bad;
    }
    Refined refined = { setup.base, setup.tiles };
    refined.tiles.tile_order = setup.definition.tile_order;
    return create_inversion(paused.definition, paused.mesh, paused.folder, paused.mode, host, &refined);
}

void press_cancel_tile(Session & session)
{
    session.paused.reset();
    press_done_tiling_layout(session.setup);
}
