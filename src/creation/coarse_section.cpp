#include "creation/coarse_section.h"

#include "creation/inversion_input.h"
#include "creation/script_words.h"
#include "creation/tile_files.h"
#include "creation/tile_solver.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/pattern.h"

namespace {

constexpr const char * outside_inversion = R"(..\..\)"; // from a tile folder

bool is_own(const Creation & creation) { return creation.solver().form == InputForm::own; }

std::string extension(const Creation & creation) { return tile_class(creation).model; }

// -- up to the forward program

/// All solvers but the own one have their data cut to the tile too.
std::string cut_data(const Creation & creation)
{
    if (is_own(creation)) return "";
    return R"( ..\)" + std::string(creation.files().observed) + (creation.definition.topo_type == 0 ? R"( ..\topo.dat)" : "");
}

/// The data that remain are there after the first pass. The own solver subtracts anew each time.
Lines skip_lines(const Creation & creation)
{
    if (is_own(creation)) return {};
    return { "@if exist " + std::string(creation.files().observed) + " goto skipForwardModel:" };
}

std::string mesh_from(const Creation & creation, Tile tile)
{
    return relative_path(tile_folder(creation, tile), creation.refined->base.mesh_file);
}

std::string model_from(const Creation & creation, Tile tile)
{
    return relative_path(tile_folder(creation, tile), creation.refined->base.model_file);
}

std::string null_model(const Creation & creation) { return "tilenull" + extension(creation); }

/// The extended tile: west, east, south, north, bottom, top.
std::string tile_volume(const Creation & creation, Tile tile)
{
    const UbcMesh & mesh = creation.mesh;
    const TileBounds & x = creation.tiles().x_of(tile);
    const TileBounds & y = creation.tiles().y_of(tile);
    std::string volume;
    for (const double limit : { mesh.nodes_x[x.first], mesh.nodes_x[x.end], mesh.nodes_y[y.first], mesh.nodes_y[y.end] })
        volume += format_number(limit, "0.00") + " ";
    const double bottom = mesh.nodes_z[add_counts(creation.tile_cells_z(), 1)];
    return volume + format_number(bottom, "0.000") + " " + format_number(mesh.nodes_z[1], "0.000");
}

std::string null_volume_line(const Creation & creation, Tile tile)
{
    return tile_tool(creation, "nullvol ") + script_word(mesh_from(creation, tile)) + " " +
           script_word(model_from(creation, tile)) + " " + null_model(creation) + " " + tile_volume(creation, tile);
}

// -- the coarse run's matrix

std::string first_matrix(const InversionDefinition & definition)
{
    return definition.obs_data_type_count < 2 ? "qvinv3d.mtx" : definition.matrix_files[0];
}

/// folder: as seen from the tile folder; one of another drive is whole.
bool matrix_exists(const Creation & creation, Tile tile, const std::string & folder)
{
    const bool whole = folder.starts_with('\\') || folder.find(':') == 1;
    return !find_file((whole ? "" : tile_folder(creation, tile)) + folder + first_matrix(creation.definition)).empty();
}

/// Where the matrix should be: beside the coarse model.
std::string expected_matrix_folder(const Creation & creation, Tile tile)
{
    const std::string model_folder = folder_of_path(creation.refined->base.model_file);
    return model_folder.empty() ? outside_inversion : relative_path(tile_folder(creation, tile), model_folder);
}

constexpr const char * missing_matrix_question = "Warning: The tiling may not work correctly if the MTX file does not exist when "
                                                 "the inversion is run. Continue setup?";

// -- the forward program

std::string own_forward_line(const Creation & creation, const std::string & folder)
{
    const std::string matrices = own_matrix_list(creation.definition, folder);
    const std::string data = tile_class(creation).data;
    return "qvpre3d " + script_word(matrices) + " " + null_model(creation) + " " + data + "_null.obs " + data + ".obs MASK=0";
}

/// The coarse run's topography lies beside its mesh.
std::string coarse_topography(const Creation & creation, Tile tile)
{
    if (creation.definition.topo_type != 0) return "";
    const std::string mesh = mesh_from(creation, tile);
    return " " + script_word(mesh.substr(0, mesh.find_last_of('\\') + 1) + "topo.dat");
}

std::string forward_line(const Creation & creation, Tile tile)
{
    return std::string(tile_solver_of(creation).forward) + " tilenull.msh " + tile_class(creation).data + ".dat " +
           null_model(creation) + coarse_topography(creation, tile);
}

/// Str's sign places make two blanks before each number.
std::string residual_line(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    const std::string data = tile_class(creation).data;
    return "DMXdelreg " + data + ".dat - " + tile_solver_of(creation).forward_result + " " + data + ".obs " +
           str_text(definition.obs_base_value) + " " + str_text(definition.obs_scale_value);
}

}

bool has_coarse_section(const Creation & creation) { return creation.definition.tile_coarse_model == coarse_forward_model; }

Lines coarse_volume_lines(const Creation & creation, Tile tile)
{
    if (!has_coarse_section(creation)) return {};
    Lines lines = { " ", "rem run coarse forward model and calculate residual", " " };
    append(lines, skip_lines(creation));
    // The model's name brings a blank of its own.
    const std::string cut = extract_line(creation, tile, "refined" + extension(creation), shared_model_in_tile(creation) + " ");
    append(lines, {
                      " ",
                      cut + cut_data(creation),
                      " ",
                      "copy " + script_word(mesh_from(creation, tile)) + " tilenull.msh",
                      null_volume_line(creation, tile),
                      " ",
                  });
    return lines;
}

bool settle_coarse_matrix(const Creation & creation, Tile tile, CoarseMatrix & matrix, Dialogs & dialogs)
{
    if (!has_coarse_section(creation) || !is_own(creation) || matrix.folder) return true;
    std::string folder = expected_matrix_folder(creation, tile);
    if (!matrix_exists(creation, tile, folder)) {
        const auto chosen = dialogs.open_file({ "Select the location of the coarse model MTX file",
                                                "MTX files|*.mtx|All files (*.*)|*.*", creation.refined->base.model_file, "" });
        if (!chosen && !dialogs.question(missing_matrix_question)) return false;
        folder = chosen ? relative_path(tile_folder(creation, tile), folder_of_path(*chosen)) : outside_inversion;
    }
    matrix.folder = folder;
    return true;
}

Lines coarse_forward_lines(const Creation & creation, Tile tile, const CoarseMatrix & matrix)
{
    if (!has_coarse_section(creation)) return {};
    if (is_own(creation)) return { own_forward_line(creation, matrix.folder.value()), " ", " " };
    return { forward_line(creation, tile), " ", residual_line(creation), " ", ":skipForwardModel", " " };
}
