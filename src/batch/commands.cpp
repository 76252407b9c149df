#include "batch/commands.h"

#include "app/create_command.h"
#include "app/file_commands.h"
#include "app/form_progress.h"
#include "app/start_command.h"
#include "batch/terminal_host.h"
#include "rules/change_rules.h"
#include "rules/limits_from_data.h"
#include "rules/refinement.h"
#include "rules/tile_choice.h"
#include "rules/validation.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"
#include "utilities/transform_file.h"

#include <cstdio>
#include <iostream>

namespace {

/// A session whose form follows the progress that the terminal shows.
struct BatchSession {
    explicit BatchSession(Host & display)
        : progress(session.setup.form, display), host{ display.dialogs, progress, display.settings, display.launcher,
                                                       display.debug }
    {
        start_session(session, host);
    }

    Session session;
    FormProgress progress;
    Host host;
};

/// The output folder as the three boxes of the form hold it: its parent and its bare name.
void set_output_folder(Setup & setup, std::string folder)
{
    while (folder.size() > 1 && folder.ends_with('\\')) folder.pop_back();
    const std::string name = file_name_of_path(folder);
    const std::string parent = folder.substr(0, folder.size() - name.size());
    const std::string drive = drive_of_path(parent);
    setup.form["Drive1"].text = drive.empty() ? "\\" : drive; // where no drives exist all folders are on the one root
    setup.form["Dir1"].text = parent;
    setup.form["Text_directory_name"].text = name;
}

Status enter_refinement(Setup & setup, const BaseFiles & base, Host & host)
{
    if (start_refinement(setup, base.mesh, host) != Status::good) return Status::bad;
    return finish_refinement(setup, base.model.empty() ? std::nullopt : std::optional(base.model), host);
}

/// Enters refined mode when there is a base mesh, then reads the definition. One of a tiled inversion without its base mesh would
/// silently become a simple one and is refused.
Status read_for_inversion(BatchSession & batch, const std::string & definition, const BaseFiles & base)
{
    Setup & setup = batch.session.setup;
    if (!base.mesh.empty() && enter_refinement(setup, base, batch.host) != Status::good) return Status::bad;
    if (read_definition(batch.session, definition, Selection::all, batch.host) != Status::good) return Status::bad;
    if (setup.definition.refinement_mode != 1 || setup.refinement_mode == 1) return Status::good;
    batch.host.dialogs.message(
        "The definition is of a refined (tiled) inversion: name the mesh that it refines with --base-mesh: " + definition);
    return Status::bad;
}

/// What a user would do with the tiles before going on.
Status choose_tiles(Setup & setup, const CreateOptions & options, Host & host)
{
    for (const Tile tile : options.skipped_tiles) {
        if (!setup.tiles.has(tile)) {
            host.dialogs.message("There is no tile " + tile_number(tile) + " to skip: the tiles run from 0101 to " +
                                 tile_number({ setup.tiles.number_x_tiles, setup.tiles.number_y_tiles }));
            return Status::bad;
        }
        select_tile(setup, tile);
        setup.form["Check_do_tile"].on = true;
        form_changed(setup, "Check_do_tile", 0, host);
    }
    for (int i = 0; options.tile_order && i < 3; ++i) {
        choose_position(setup.form("Combo_tile_order", i), options.tile_order->at(static_cast<std::size_t>(i)));
        form_changed(setup, "Combo_tile_order", i, host);
    }
    return Status::good;
}

int create_button(const std::string & mode)
{
    if (mode == "all") return 0;
    return mode == "parameters" ? 1 : 2;
}

/// A point as read from a line: two numbers, or three.
struct Point {
    double x = 0, y = 0, z = 0;
    bool has_z = false;
};

bool take_point(std::string_view line, Point & point)
{
    double * const places[] = { &point.x, &point.y, &point.z };
    int count = 0;
    while (!trim(line).empty()) {
        const std::string_view token = next_token(line);
        if (count == 3 || !is_numeric(token)) return false;
        *places[count++] = leading_number(token);
    }
    point.has_z = count == 3;
    return count >= 2;
}

Status read_transform(const TransformOptions & options, PointTransform & transform, Host & display)
{
    if (!options.transform_file.empty()) return read_transform_file(options.transform_file, transform, display.dialogs);
    InversionDefinition record;
    if (read_inversion_parameter_file(options.definition, Selection::parameters, record, display.dialogs) != Status::good)
        return Status::bad;
    transform = record.coordinate_transform;
    normalise_point_transform(transform);
    return Status::good;
}

}

Status create_command(const CreateOptions & options, Host & display)
{
    BatchSession batch(display);
    Setup & setup = batch.session.setup;
    if (read_for_inversion(batch, options.definition, options.base) != Status::good) return Status::bad;
    set_output_folder(setup, options.output);
    if (options.mode == "variation-data") {
        setup.form["Check_update_data_files"].on = true;
        form_changed(setup, "Check_update_data_files", 0, batch.host);
    }
    const Status status = press_create_inversion(batch.session, create_button(options.mode), batch.host);
    if (status != Status::good || !batch.session.paused) return status;
    if (choose_tiles(setup, options, batch.host) != Status::good) return Status::bad;
    return press_continue_tile(batch.session, batch.host);
}

Status check_command(const std::string & definition, const BaseFiles & base, Host & display)
{
    BatchSession batch(display);
    if (read_for_inversion(batch, definition, base) != Status::good) return Status::bad;
    std::optional<ValidatedDefinition> validated;
    const Status status = check_inversion_definitions(batch.session.setup, validated, batch.host);
    if (status == Status::good) std::puts("valid");
    return status;
}

Status save_command(const SaveOptions & options, Host & display)
{
    BatchSession batch(display);
    if (!options.into.empty() && read_definition(batch.session, options.into, Selection::all, batch.host) != Status::good)
        return Status::bad;
    if (read_definition(batch.session, options.definition, options.selection, batch.host) != Status::good) return Status::bad;
    return save_definition(batch.session, options.output, batch.host);
}

Status limits_command(const LimitsOptions & options, Host & display)
{
    BatchSession batch(display);
    if (read_definition(batch.session, options.definition, Selection::all, batch.host) != Status::good) return Status::bad;
    if (set_limits_from_file(batch.session.setup, options.from == "topo" ? 1 : 0, batch.host) != Status::good) return Status::bad;
    return save_definition(batch.session, options.output, batch.host);
}

Status start_command(const StartOptions & options, Host & display)
{
    BatchSession batch(display);
    Setup & setup = batch.session.setup;
    const std::string definition =
        options.definition.empty() ? with_backslash(options.folder) + "inversion.inp" : options.definition;
    if (read_definition(batch.session, definition, Selection::all, batch.host) != Status::good) return Status::bad;
    // The mesh that a refined inversion refines is not needed to run it.
    setup.refinement_mode = setup.definition.refinement_mode;
    set_output_folder(setup, options.folder);
    setup.form["Check_generate_inversion_variation"].on = options.variation;
    form_changed(setup, "Check_generate_inversion_variation", 0, batch.host);
    return press_start_inversion(batch.session, batch.host);
}

Status transform_command(const TransformOptions & options, Host & display)
{
    PointTransform transform;
    if (read_transform(options, transform, display) != Status::good) return Status::bad;
    const TransformDirection direction = options.inverse ? TransformDirection::inverse : TransformDirection::forward;
    std::string line;
    for (std::int32_t number = 1; std::getline(std::cin, line); ++number) {
        stop_if_interrupted();
        if (line.ends_with('\r')) line.pop_back();
        if (trim(line).empty()) continue;
        Point point;
        if (!take_point(line, point)) {
            display.dialogs.message("line " + general_text(number) +
                                    " of the input is not a point of two or three numbers: " + line);
            return Status::bad;
        }
        if (transform.in_use) apply_point_transform(transform, direction, point.x, point.y, point.z);
        std::string text = general_text(point.x) + " " + general_text(point.y);
        if (point.has_z) text += " " + general_text(point.z);
        std::puts(text.c_str());
    }
    stop_if_interrupted();
    return Status::good;
}
