#include "rules/refinement.h"

#include "model/mesh_reader.h"
#include "model/model_reader.h"
#include "rules/apply_definition.h"
#include "rules/box_checks.h"
#include "support/paths.h"
#include "support/text.h"

namespace {

/// The volume to refine is at first the whole core of the base mesh; the counts are those of the whole mesh.
void take_base_core(const UbcMesh & base, InversionDefinition & definition)
{
    definition.mesh_min[0] = base.nodes_x[base.padding_x_start + 1];
    definition.mesh_max[0] = base.nodes_x[base.cells_x() + 1 - base.padding_x_end];
    definition.mesh_min[1] = base.nodes_y[base.padding_y_start + 1];
    definition.mesh_max[1] = base.nodes_y[base.cells_y() + 1 - base.padding_y_end];
    definition.mesh_min[2] = base.nodes_z[base.cells_z() + 1 - base.padding_z_bottom];
    definition.mesh_max[2] = base.nodes_z[base.padding_z_top + 1];
    definition.mesh_min[3] = definition.mesh_min[2];
    definition.mesh_cell_size = { base.core_size_x, base.core_size_y, base.core_size_z, 1 };
    definition.mesh_cells = { base.cells_x(), base.cells_y(), base.cells_z(), 0 };
}

/// A design mesh belongs to the mode and the base that it was built for.
void drop_design(Setup & setup)
{
    setup.design_mesh = {};
    setup.tiles = {};
    setup.selected_tile = {};
}

void enter_refined_mode(Setup & setup, Host & host)
{
    drop_design(setup);
    setup.refinement_mode = 1;
    initialise_inversion_form(setup, host);
    take_base_core(setup.base.mesh, setup.definition);
    show_mesh(setup);
}

void leave_refined_mode(Setup & setup, Host & host)
{
    drop_design(setup);
    setup.refinement_mode = 0;
    reset_mesh(setup.base); // with its leftover file
    setup.base = {};
    initialise_inversion_form(setup, host);
}

Status check_base_mesh(const BaseModel & base, Host & host)
{
    if (base.mesh_file.empty()) return refuse("No mesh file has been specified", host);
    if (find_file(base.mesh_file).empty()) return refuse("The specified mesh file does not exist", host);
    if (!base.mesh_loaded) return refuse("No mesh file has been specified", host);
    return Status::good;
}

std::optional<std::string> ask_for_mesh(const BaseModel & base, Host & host)
{
    return host.dialogs.open_file(
        { "Select the mesh definition file",
          "UBC mesh Files|*.mesh;*.msh;*.dat;mesh|RES3DINV Inversion Files|*.inv|GoCad voxet files|*.vo|"
          "VTK grid files|*.vtk|All files (*.*)|*.*",
          base.model_file.empty() ? base.mesh_file : base.model_file,
          {} });
}

std::optional<std::string> ask_for_model(const std::string & start, Host & host)
{
    return host.dialogs.open_file({ "Select the (optional) QVinv3D model file",
                                    "UBC model Files|*.sus;*.mod;*.kap;*.den;*.rho;*.con;*.res;*.chg;*.eta;*.sns|"
                                    "All files (*.*)|*.*",
                                    start,
                                    {} });
}

Status start_with_model(Setup & setup, Host & host)
{
    const std::optional<std::string> mesh_file = ask_for_mesh(setup.base, host);
    if (!mesh_file) return Status::stopped;
    if (start_refinement(setup, *mesh_file, host) != Status::good) return Status::bad;
    if (check_base_mesh(setup.base, host) != Status::good) return Status::bad;
    return finish_refinement(setup, ask_for_model(*mesh_file, host), host);
}

Status take_base_model(Setup & setup, const std::string & model_file, Host & host)
{
    setup.base.model_file = model_file;
    const bool topo_file = setup.definition.topo_type == 0 && !trim(setup.definition.data_file[1]).empty();
    const Status status = read_model_file(setup.base, topo_file, host);
    if (status != Status::good) setup.base.model_file.clear();
    return status;
}

}

Status start_refinement(Setup & setup, const std::string & mesh_file, Host & host)
{
    setup.base = {};
    setup.base.mesh_file = mesh_file;
    const Status status = read_mesh_file(setup.base, host);
    if (status != Status::good) return status;
    // The reader leaves files of foreign kinds alone without a word.
    if (!setup.base.mesh_loaded) return refuse("The file holds no mesh that can be refined: " + mesh_file, host);
    enter_refined_mode(setup, host);
    return Status::good;
}

Status finish_refinement(Setup & setup, const std::optional<std::string> & model_file, Host & host)
{
    if (check_base_mesh(setup.base, host) != Status::good) return Status::bad;
    if (model_file && take_base_model(setup, *model_file, host) != Status::good) return Status::bad;
    host.dialogs.message("The mesh/model files have been loaded and refinement mode is enabled");
    return Status::good;
}

Status press_define_inversion_mode(Setup & setup, int index, Host & host)
{
    if (index == 1) return start_with_model(setup, host);
    leave_refined_mode(setup, host);
    return Status::good;
}
