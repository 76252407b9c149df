#include "rules/apply_definition.h"
#include "started_setup.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

struct AxisCase {
    const char * name;
    std::size_t axis;
    double low, high, size;
    std::int32_t cells;
    double repaired_size;
    std::int32_t repaired_cells;
    double repaired_high;
};

const AxisCase axis_cases[] = {
    { "half_to_even_down", 0, 1000, 2050, 100, 7, 100, 10, 2000 },
    { "half_to_even_up", 1, 1000, 2150, 100, 7, 100, 12, 2200 },
    { "negative_size_from_count", 1, 0, 600, -5, 3, 200, 3, 600 },
    { "no_size_no_count", 0, 0, 600, 0, 0, 100, 6, 600 },
    { "one_cell_y", 1, 0, 1000, 1000, 1, 100, 10, 1000 },
    { "one_cell_z", 2, -500, 0, 500, 1, 50, 10, 0 },
    { "no_range", 0, 5, 5, 0, 3, 100, 0, 5 },
    { "turned_z", 2, 300, 200, 100, 5, 100, 10, 200 }, // the bottom goes 1000 below the top
};

TEST(mesh_repair, given_an_axis_then_size_count_and_maximum_agree)
{
    for (const AxisCase & row : axis_cases) {
        InversionDefinition record;
        record.mesh_min[row.axis] = row.low, record.mesh_max[row.axis] = row.high;
        record.mesh_cell_size[row.axis] = row.size, record.mesh_cells[row.axis] = row.cells;
        StartedSetup started;
        started.load(record, Selection::mesh);
        const InversionDefinition & mesh = started.setup.definition;
        EXPECT_EQ(mesh.mesh_cell_size[row.axis], row.repaired_size) << row.name;
        EXPECT_EQ(mesh.mesh_cells[row.axis], row.repaired_cells) << row.name;
        EXPECT_EQ(mesh.mesh_max[row.axis], row.repaired_high) << row.name;
    }
}

TEST(mesh_repair, given_a_lower_part_then_its_bottom_is_the_sum_of_its_cells)
{
    const std::tuple<double, std::int32_t, double, const char *> cases[] = {
        { 1.5, 3, 1.5, "-147.5" }, // 10 + 15 + 22.5
        { 1, 3, 1, "-103.0" },     // cells of the multiplier's size
        { 7, 0, 1, "-100.0" },
        { 0, -2, 1, "-100.0" },
    };
    for (const auto & [multiplier, cells, repaired, bottom] : cases) {
        InversionDefinition record;
        record.mesh_min[2] = -100, record.mesh_cell_size[2] = record.mesh_cells[2] = 10;
        record.mesh_cell_size[3] = multiplier, record.mesh_cells[3] = cells;
        StartedSetup started;
        started.load(record);
        EXPECT_EQ(started.setup.definition.mesh_cell_size[3], repaired);
        EXPECT_EQ(started.text("Text_min_val", 3), bottom);
    }
}

TEST(start, given_a_fresh_form_then_the_defaults_are_shown)
{
    StartedSetup started;
    const Form & form = started.setup.form;
    const std::tuple<const char *, int, const char *> boxes[] = {
        { "Text_max_iter", 0, "" },
        { "Text_wavelet_itol", 0, "1" },
        { "Text_chi_factor", 0, "1.000" },
        { "Text_inversion_background_topo", 0, "0.0" },
        { "Text_error_floor", 0, "1" },
        { "Text_UBC_locations_magpos", 1, "" },
        { "Text_min_val", 2, "-1000" },
        { "Text_num_cells", 2, "20" },
        { "Text_UBC_locations_nhead", 1, "2" },
    };
    for (const auto & [box, index, text] : boxes) EXPECT_EQ(form(box, index).text, text) << box << index;
    EXPECT_EQ(chosen_text(form["Combo_inversion_method"]), "7: BrindleApp QVinv3D");
    EXPECT_EQ(chosen_text(form("Combo_data_type", 0)), "1:  Magnetic");
    EXPECT_EQ(chosen_text(form["Combo_wavelet_type"]), "daub4");
    EXPECT_EQ(form["Combo_UBC_elevation_offset"].position, -1);
    EXPECT_TRUE(form["Frame_field"].visible);
    EXPECT_TRUE(form("menu_define_inversion_mode", 1).visible && !form("menu_define_inversion_mode", 0).visible);
    EXPECT_TRUE(!started.setup.loading && started.dialogs.messages.empty());
}

TEST(loading, given_what_a_control_cannot_show_then_the_record_is_repaired_or_keeps_it)
{
    StartedSetup started;
    InversionDefinition record;
    record.inversion_method = 9, record.positivity = 5, record.max_iterations = -3;
    record.obs_scale_value = 0, record.background_topo = -1e30F;
    record.use_cluster_controller = record.slog_scaling = record.topo_shift_option = record.add_padding_cells = 2;
    record.alpha_mode = record.topo_type = 2;
    record.obs_data_types[0] = 100;
    record.coordinate_transform.elevation_shift = 5;
    record.tile_x_size = 64, record.refinement_mode = 1;
    started.load(record);
    const InversionDefinition & held = started.setup.definition;
    EXPECT_TRUE(held.inversion_method == 4 && held.positivity == 0 && held.max_iterations == 0 && held.obs_scale_value == 1);
    EXPECT_EQ(held.use_cluster_controller + held.slog_scaling + held.topo_shift_option + held.add_padding_cells, 0);
    EXPECT_TRUE(held.alpha_mode == 1 && held.topo_type == 1);
    EXPECT_EQ(started.text("Text_inversion_background_topo"), "");
    EXPECT_EQ(started.setup.form("Combo_data_type", 0).position, -1);
    EXPECT_EQ(held.obs_data_types[0], 100);
    EXPECT_EQ(started.setup.form["Command_define_coordinate_transform"].back_colour, 255);
    EXPECT_EQ(held.tile_x_size, 128); // no effect in simple mode
    EXPECT_EQ(started.text("Text_x_tile_size"), "128");
    EXPECT_TRUE(held.refinement_mode == 1 && started.setup.refinement_mode == 0);

    record.inversion_method = 3;
    record.positivity = 4; // only the own solver's list has it
    started.load(record);
    EXPECT_EQ(held.positivity, 0);
}

TEST(loading, given_a_refined_definition_in_refined_mode_then_its_tiles_are_shown)
{
    StartedSetup started;
    started.setup.refinement_mode = 1;
    InversionDefinition record;
    record.refinement_mode = 1;
    record.inversion_method = 6;
    record.tile_x_size = 64;
    record.tile_order = { 1, 0, 1 };
    started.load(record);
    EXPECT_EQ(started.text("Text_x_tile_size"), "64");
    EXPECT_EQ(chosen_text(started.setup.form("Combo_tile_order", 2)), "Right to Left");
    EXPECT_EQ(started.setup.definition.use_cluster_controller, 0); // by the method, whatever the record says

    started.load(InversionDefinition()); // a simple one: record and form keep the tiles
    EXPECT_EQ(started.text("Text_x_tile_size"), "64");
    EXPECT_EQ(started.setup.definition.tile_x_size, 64);
}

TEST(loading, given_no_errors_then_they_are_those_of_method_and_type)
{
    const std::tuple<std::int32_t, std::int32_t, float, float> cases[] = {
        { 4, -1, 0, 1 },   { 4, 1, 0, 1 },     { 4, 2, 0, 0.1F }, { 4, 0, 0, 0.01F },
        { 4, 5, 0, 0.1F }, { 4, 30, 0, 0.1F }, { 0, 1, 1, 1 },    { 2, 0, 1, 0.05F },
    };
    for (const auto & [method, type, percent, floor] : cases) {
        StartedSetup started;
        InversionDefinition record;
        record.inversion_method = method, record.obs_data_types[0] = type;
        started.load(record);
        EXPECT_EQ(started.setup.definition.error_percent, percent) << method << " " << type;
        EXPECT_EQ(started.setup.definition.error_floor, floor) << method << " " << type;
        EXPECT_EQ(started.text("Text_inversion_par"), "1") << "no default of the type while loading";
    }
}

TEST(loading, given_one_block_then_the_rest_of_the_record_stays)
{
    InversionDefinition record;
    record.trade_off = 7;
    record.obs_base_value = 50000;
    record.data_file = { "a.xyz", "t.xyz", "g.xyz", "", "", "s.xyz" };
    record.data_x_column = { 5, 6, 1, 1, 1, 1 };
    record.elevation_offset = { 11, 12, 13 };
    record.topo_shift_option = 0;
    record.weight_multipliers = "2,1";
    record.description = "other";
    using R = InversionDefinition;
    const std::pair<Selection, void (*)(R &)> cases[] = {
        { Selection::parameters, [](R & r) { r.trade_off = 7; } },
        { Selection::observed_data,
          [](R & r) {
              r.obs_base_value = 50000, r.data_x_column[0] = 5, r.elevation_offset = { 11, 0, 13 };
              r.data_file = { "a.xyz", "", "g.xyz", "", "", "s.xyz" };
          } },
        { Selection::topography,
          [](R & r) { r.data_file[1] = "t.xyz", r.data_x_column[1] = 6, r.elevation_offset[1] = 12, r.topo_shift_option = 0; } },
        { Selection::mesh, [](R & r) { r.weight_multipliers = "2,1"; } },
    };
    for (const auto & [selection, change] : cases) {
        StartedSetup started;
        R expected = started.setup.definition;
        change(expected);
        started.load(record, selection);
        EXPECT_TRUE(started.setup.definition == expected) << static_cast<int>(selection);
    }
}

}
