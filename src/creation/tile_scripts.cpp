#include "creation/tile_scripts.h"

#include "creation/coarse_section.h"
#include "creation/script_words.h"
#include "creation/tile_files.h"
#include "creation/tile_solver.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/pattern.h"

namespace {

bool is_own(const Creation & creation) { return creation.solver().form == InputForm::own; }

/// "first last first last 1 bottom": cells, of which the end nodes are no longer part.
std::string cell_range(std::int32_t x_first, std::int32_t x_end, std::int32_t y_first, std::int32_t y_end, std::int32_t cells_z)
{
    return general_text(x_first) + " " + general_text(x_end - 1) + " " + general_text(y_first) + " " + general_text(y_end - 1) +
           " 1 " + general_text(cells_z);
}

// -- the sections of a script, in their order; a line of one blank stands between them

Lines header_lines(const Creation & creation, Tile tile)
{
    const TileBounds & x = creation.tiles().x_of(tile);
    const TileBounds & y = creation.tiles().y_of(tile);
    return {
        "rem Coord Boundaries: " + own_limits(creation, tile),
        "rem Cell Boundaries: " + general_text(x.own_first) + " " + general_text(x.own_end) + " " + general_text(y.own_first) +
            " " + general_text(y.own_end),
        " ",
        "cd " + tile_name(tile),
        " ",
    };
}

Lines extraction(const char * title, const std::string & line) { return { " ", title, " ", line, " " }; }

Lines initial_model_lines(const Creation & creation, Tile tile)
{
    const std::string & field = creation.definition.initial_model;
    if (!is_model_file(field)) return {};
    const std::string name = file_name_of_path(field);
    return extraction("rem extract initial model", extract_line(creation, tile, name, script_word(name)));
}

/// The extraction tool makes values of a model of rock numbers, under a name of its own.
std::string rock_line(const Creation & creation, Tile tile, const std::string & model, const char * tile_model,
                      const char * option)
{
    return extract_line(creation, tile, model, tile_model) + option + " " +
           script_word(R"(..\)" + file_name_of_path(creation.definition.rock_property_file));
}

Lines reference_lines(const Creation & creation, Tile tile)
{
    const InversionDefinition & definition = creation.definition;
    const std::string name = file_name_of_path(definition.reference_model);
    if (!is_model_file(definition.reference_model) || name == file_name_of_path(definition.initial_model)) return {};
    return extraction("rem extract reference model",
                      uses_rock_table_in_tiles(creation)
                          ? rock_line(creation, tile, name, tile_solver_of(creation).extracted_ref, " -Ref")
                          : extract_line(creation, tile, name, script_word(name)));
}

/// Of two bounds only the lower ones are cut.
Lines bounds_lines(const Creation & creation, Tile tile)
{
    const TileSolver & solver = tile_solver_of(creation);
    if (!*solver.extracted_bounds || !creation.in_use.bounds) return {};
    const std::string name = file_name_of_path(creation.definition.model_bounds[0]);
    return extraction("rem extract bounds file", uses_rock_table_in_tiles(creation)
                                                     ? rock_line(creation, tile, name, solver.extracted_bounds, " -Bounds")
                                                     : extract_line(creation, tile, name, script_word(name)) + " -Bounds");
}

/// Goes on to `skipsen` when all matrices are there.
Lines matrix_test_lines(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    if (!is_own(creation) || definition.obs_data_type_count < 2)
        return { std::string("@if exist ") + creation.solver().inversion + ".mtx goto skipsen:" };
    Lines lines;
    for (std::int32_t i = 0; i < definition.obs_data_type_count; ++i)
        lines.push_back("@if not exist " + script_word(definition.matrix_files[static_cast<std::size_t>(i)]) + " goto doMTX:");
    append(lines, { "goto skipsen:", " ", ":doMTX" });
    return lines;
}

/// Unlike in the scripts of an untiled inversion only the weight program is told the number of threads.
Lines sensitivity_program_lines(const Creation & creation, Tile tile)
{
    const Solver & solver = creation.solver();
    if (solver.form == InputForm::first) return { first_solver_sensitivity_line(creation.definition) };
    if (solver.form == InputForm::own && creation.definition.use_cluster_controller == 1)
        return { start_worker_line, R"(qvsen3d_cluster_controller "%~dp0)" + tile_name(tile) + "\"" };
    Lines lines = weight_lines(creation);
    lines.push_back(std::string(solver.sensitivity) + " " + solver.sensitivity + ".inp");
    return lines;
}

Lines sensitivity_lines(const Creation & creation, Tile tile)
{
    Lines lines = matrix_test_lines(creation);
    append(lines, sensitivity_program_lines(creation, tile));
    append(lines, { " ", ":skipsen", " " });
    return lines;
}

Lines inversion_lines(const Creation & creation, Tile tile)
{
    const std::string program = creation.solver().inversion;
    return {
        "@if exist " + program + tile_class(creation).iteration + " goto RestartInversion:",
        program + " " + program + ".inp" + no_fast_form_option(creation),
        "goto :FinishInversion",
        " ",
        ":RestartInversion",
        " ",
        program + " " + program + ".restart",
        " ",
        ":FinishInversion",
        " ",
        error_line(creation),
        insert_line(creation, tile),
        " ",
        " ",
        "cd ..",
    };
}

/// False when the coarse matrix is missing and the user does not want to go on.
bool write_tile_script(const Creation & creation, Tile tile, CoarseMatrix & matrix, Dialogs & dialogs)
{
    Lines script = header_lines(creation, tile);
    append(script, initial_model_lines(creation, tile));
    append(script, reference_lines(creation, tile));
    append(script, bounds_lines(creation, tile));
    append(script, coarse_volume_lines(creation, tile));
    const bool goes_on = settle_coarse_matrix(creation, tile, matrix, dialogs);
    if (goes_on) {
        append(script, coarse_forward_lines(creation, tile, matrix));
        append(script, sensitivity_lines(creation, tile));
        append(script, inversion_lines(creation, tile));
    }
    write_script(creation.folder + tile_name(tile) + ".bat", script);
    return goes_on;
}

}

std::string tile_tool(const Creation & creation, const char * job) { return std::string(tile_solver_of(creation).tools) + job; }

std::string extract_range(const Creation & creation, Tile tile)
{
    const TileBounds & x = creation.tiles().x_of(tile);
    const TileBounds & y = creation.tiles().y_of(tile);
    return cell_range(x.first, x.end, y.first, y.end, creation.tile_cells_z()) +
           (creation.definition.use_expanded_mesh == 1 ? " -Expand" : "");
}

std::string extract_line(const Creation & creation, Tile tile, const std::string & shared_model, const std::string & tile_model)
{
    return tile_tool(creation, R"(extract ..\mesh )") + script_word(R"(..\)" + shared_model) + " " + tile_model + " " +
           extract_range(creation, tile);
}

std::string insert_range(const Creation & creation, Tile tile)
{
    const InversionDefinition & definition = creation.definition;
    const TileBounds & x = creation.tiles().x_of(tile);
    const TileBounds & y = creation.tiles().y_of(tile);
    std::string range = cell_range(x.own_first, x.own_end, y.own_first, y.own_end, creation.blended_core_cells());
    if (definition.tile_blend <= 0) return range;
    range += " " + general_text(definition.tile_blend);
    return definition.tile_z_blend > 0 ? range + " " + general_text(definition.tile_z_blend) : range;
}

std::string insert_line(const Creation & creation, Tile tile)
{
    const std::string model = creation.solver().inversion + std::string(tile_class(creation).model);
    return tile_tool(creation, "insert mesh ") + model + R"( ..\mesh ..\)" + model + " " + insert_range(creation, tile);
}

std::string own_limits(const Creation & creation, Tile tile)
{
    const UbcMesh & mesh = creation.mesh;
    const TileBounds & x = creation.tiles().x_of(tile);
    const TileBounds & y = creation.tiles().y_of(tile);
    std::string limits;
    for (const double limit : { mesh.nodes_x[x.own_first], mesh.nodes_x[x.own_end], mesh.nodes_y[y.own_first] })
        limits += format_number(limit, "0.00000") + " ";
    return limits + format_number(mesh.nodes_y[y.own_end], "0.00000");
}

bool write_tile_run_files(const Creation & creation, Tile tile, CoarseMatrix & matrix, Host & host)
{
    prepare_tile_folder(creation, tile);
    if (!write_tile_script(creation, tile, matrix, host.dialogs)) return false;
    write_tile_inputs(creation, tile);
    return true;
}
