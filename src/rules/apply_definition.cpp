#include "rules/apply_definition.h"

#include "definition/enumerations.h"
#include "rules/change_rules.h"
#include "rules/data_columns.h"
#include "rules/layout_rules.h"
#include "rules/mesh_boxes.h"
#include "rules/record_blocks.h"
#include "rules/refined_boxes.h"
#include "rules/solver_rules.h"
#include "support/numbers.h"
#include "support/pattern.h"

#include <functional>

namespace {

/// Sets the flag for as long as it lives, so that a fault on the way leaves it cleared.
class Loading {
public:
    explicit Loading(bool & flag) : flag_(flag) { flag_ = true; }
    ~Loading() { flag_ = false; }
    Loading(const Loading &) = delete;
    Loading & operator=(const Loading &) = delete;

private:
    bool & flag_;
};

constexpr std::int32_t red = 255;

void show_parameters(Setup & setup)
{
    const InversionDefinition & definition = setup.definition;
    choose_code(setup.form["Combo_inversion_method"], definition.inversion_method);
    // A type that the lists do not have leaves them open; the record keeps it.
    for (int i = 0; i < 3; ++i)
        choose_code(setup.form("Combo_data_type", i), definition.obs_data_types[static_cast<std::size_t>(i)]);
    choose_code(setup.form["Combo_optional_data_type"], definition.calc_data_types[0]);
    show_solver(setup);
    show_data_types(setup);
    show_data_captions(setup);
    show_bound_controls(setup, Block::parameters);
    show_options(setup);
    show_transform(setup);
}

void show_columns(Setup & setup, int slot, Host & host)
{
    setup.column_name_count[static_cast<std::size_t>(slot)] = 0;
    display_data_lines(setup, slot);
    display_location_column_definitions(setup, slot, host);
}

void show_file(Setup & setup, int slot)
{
    setup.form("Text_data_locations", slot).text = setup.definition.data_file[static_cast<std::size_t>(slot)];
    display_data_file(setup, slot);
}

void show_observed_data(Setup & setup, Host & host)
{
    for (int slot : { 0, 2, 3, 4, 5 }) show_file(setup, slot);
    show_bound_controls(setup, Block::observed_data);
    show_columns(setup, 0, host);
}

void show_topography(Setup & setup, Host & host)
{
    show_file(setup, 1);
    show_bound_controls(setup, Block::topography);
    show_topo_type(setup);
    setup.form("Text_UBC_elevation_offset", 1).text = general_text(setup.definition.topo_offset());
    show_columns(setup, 1, host);
}

void show_refined_cluster(Setup & setup)
{
    setup.definition.use_cluster_controller =
        inversion_method_of(setup.definition.inversion_method).family == MethodFamily::own ? 1 : 0;
    setup.form["Check_use_cluster_controller"].on = setup.definition.use_cluster_controller == 1;
}

void take_block(Setup & setup, const InversionDefinition & record, Block block, void (*repair)(InversionDefinition &),
                const std::function<void(Setup &)> & show)
{
    copy_block(record, block, setup.definition);
    if (repair) repair(setup.definition);
    show(setup);
}

void fill_lists(Form & form)
{
    form["Combo_inversion_method"].items = inversion_method_items();
    for (int i = 0; i < 3; ++i) form("Combo_data_type", i).items = data_type_items(i);
    form["Combo_optional_data_type"].items = optional_data_type_items();
    form["Combo_qvinv3d_positivity"].items = positivity_items(true);
    form["Combo_positivity"].items = positivity_items(false);
    form["Combo_rock_property_file"].items = rock_property_items();
    form["Combo_smoothness_method"].items = smoothness_items();
    form["Combo_alpha_method"].items = alpha_method_items();
    form["Combo_wavelet_type"].items = wavelet_items();
    form["Combo_inversion_background_method"].items = background_items();
    form["Combo_observed_data_file_type"].items = data_file_type_items();
    form["Combo_UBC_elevation_offset"].items = sensor_height_items();
    form["Combo_forward_model"].items = forward_model_items();
    for (int i = 0; i < 3; ++i) form("Combo_tile_order", i).items = tile_order_items(i);
    form["Combo_view_limits"].items = { { "Total Region", 0 }, { "Core Region", 1 }, { "Refined Region", 2 } };
    choose_position(form["Combo_view_limits"], 0);
    for (int slot : { 0, 1 }) {
        form("Combo_names", slot).items = { { "N/A", 0 } };
        form("Combo_names", slot).position = 0;
        form("Combo_names", slot).visible = false;
    }
}

}

void initialise_inversion_form(Setup & setup, Host & host)
{
    init_form_inversion_parameters(setup.definition);
    fill_lists(setup.form);
    const bool refined = setup.refinement_mode == 1;
    setup.form("menu_define_inversion_mode", 0).visible = refined;
    setup.form("menu_define_inversion_mode", 1).visible = !refined;
    press_done_tiling_layout(setup);
    setup.active_column_box = 0;
    show_bound_controls(setup, Block::tiles);
    show_variation(setup);
    load_mag3d_form(setup, InversionDefinition(), Selection::all, host);
}

void show_mesh(Setup & setup)
{
    Form & form = setup.form;
    const InversionDefinition & mesh = setup.definition;
    clear_mesh_totals(setup);
    for (int axis = 0; axis < 3; ++axis) {
        const auto at = static_cast<std::size_t>(axis);
        form("Text_min_val", axis).text = general_text(mesh.mesh_min[at]);
        form("Text_max_val", axis).text = general_text(mesh.mesh_max[at]);
        form("Text_max_val", axis + 3).text = general_text(mesh.mesh_max[at] - mesh.mesh_min[at]);
        form("Text_cell_size", axis).text = general_text(mesh.mesh_cell_size[at]);
        form("Text_num_cells", axis).text = general_text(mesh.mesh_cells[at]);
    }
    form("Text_min_val", 3).text = format_number(mesh.mesh_min[3], "0.0");
    form("Text_cell_size", 3).text = general_text(mesh.mesh_cell_size[3]);
    form("Text_num_cells", 3).text = general_text(mesh.mesh_cells[3]);
    form("Text_num_cells", 4).text = general_text(add_counts(mesh.mesh_cells[2], mesh.mesh_cells[3]));
    show_bound_controls(setup, Block::mesh);
}

void show_transform(Setup & setup)
{
    setup.form["Command_define_coordinate_transform"].back_colour =
        setup.definition.coordinate_transform.in_use ? red : Control::window_colour;
}

void load_mag3d_form(Setup & setup, const InversionDefinition & given, Selection selection, Host & host)
{
    const InversionDefinition record = given; // may be the setup's own
    const auto wanted = [&](Selection block) { return selection == Selection::all || selection == block; };
    const Loading loading(setup.loading);
    if (selection == Selection::all) {
        InversionDefinition taken = record;
        copy_block(setup.definition, Block::tiles, taken); // tiles take effect below, in refined mode only
        setup.definition = taken;
    }
    if (wanted(Selection::parameters)) take_block(setup, record, Block::parameters, &repair_parameters, &show_parameters);
    if (wanted(Selection::observed_data))
        take_block(setup, record, Block::observed_data, &repair_observed_data,
                   [&host](Setup & shown) { show_observed_data(shown, host); });
    if (wanted(Selection::topography))
        take_block(setup, record, Block::topography, &repair_topography,
                   [&host](Setup & shown) { show_topography(shown, host); });
    if (wanted(Selection::mesh)) {
        take_block(setup, record, Block::mesh, &repair_mesh, &show_mesh);
        if (record.refinement_mode == 1 && setup.refinement_mode == 1)
            take_block(setup, record, Block::tiles, &repair_tiles,
                       [](Setup & shown) { show_bound_controls(shown, Block::tiles); });
        if (setup.refinement_mode == 1) {
            show_tile_counts(setup, setup.tiles);
            show_refined_cluster(setup);
        }
    }
    if (selection == Selection::all)
        take_block(setup, record, Block::description, nullptr,
                   [](Setup & shown) { show_bound_controls(shown, Block::description); });
}
