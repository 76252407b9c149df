#include "rules/change_rules.h"
#include "started_setup.h"
#include "support/fault.h"

#include <gtest/gtest.h>

namespace {

constexpr int own_position = 6;

TEST(methods, given_each_when_chosen_then_the_controls_it_needs_are_shown)
{
    struct {
        const char * states; // by position in the list of methods: V shown, H hidden, - as it was
        const char * control;
        int index = 0;
    } const cases[] = {
        { "VVVHHHV", "Frame_field" }, // at the end of the change to a magnetic own inversion
        { "VVVHVVV", "Text_inversion_par" },
        { "HHHVHHH", "Frame_gravity_parameters" },
        { "HVVHVVV", "Frame_parameter_bounds" },
        { "VVVHVVH", "Text_inversion_tolc" },
        { "HHHHHHH", "Combo_data_type", 1 },
        { "-HV-HVH", "Text_depth_weighting_file", 1 },
    };
    StartedSetup started;
    for (const auto & row : cases) {
        bool & visible = started.setup.form(row.control, row.index).visible;
        for (int method = 0; method < 7; ++method) {
            for (const bool before : { true, false }) {
                visible = before;
                started.pick("Combo_inversion_method", method);
                EXPECT_EQ(visible, row.states[method] == '-' ? before : row.states[method] == 'V') << row.control << method;
            }
        }
    }
}

TEST(methods, given_each_when_chosen_then_captions_alpha_and_lists_follow)
{
    const char * const expected[] = {
        "0 alpha 0 off, Model Bounds, Model Bounds File, Depth", // captions as they were
        "3 alpha 0 on, Model Susceptability Bounds, Susc Bounds File, Depth",
        "6 alpha 1 on, Model Bounds, Model Bounds File, Depth",
        "1 alpha 0 off, Model Bounds, Depth Weighting, Depth",
        "2 alpha 1 on, Model Density Bounds, Density Bounds File, Depth",
        "5 alpha 1 on, Model Density Bounds, Density Bounds File, Depth",
        "4 alpha 0 off, Model Bounds, Model Bounds File, Simple",
    };
    StartedSetup started;
    Form & form = started.setup.form;
    const InversionDefinition & record = started.setup.definition;
    for (int position = 0; position < 7; ++position) {
        started.pick("Combo_inversion_method", position);
        EXPECT_EQ(std::to_string(record.inversion_method) + " alpha " + std::to_string(record.alpha_method) +
                      (form["Combo_alpha_method"].enabled ? " on, " : " off, ") + form["Frame_parameter_bounds"].caption + ", " +
                      form["Label_weight"].caption + ", " + form["Combo_depth_weighting_type"].items[0].text,
                  expected[position]);
        EXPECT_EQ(form["Text_alpha_s"].visible, record.alpha_method == 0);
    }
}

TEST(data_types, given_a_change_then_only_untouched_defaults_follow)
{
    struct {
        int from, to;                        // positions in the first list: 0 gravity, 1 magnetic, 2 VRMI, 3 Gzz
        const char *typed_trade_off, *boxes; // trade-off, floor, eps and beta after it
    } const cases[] = {
        { 1, 0, "1.0", "0.01 0.01 0.001 1.8" },                                        // the default in other digits is no change
        { 1, 0, "x", "0.01 0.01 0.001 1.8" },   { 1, 0, "2.5", "2.5 0.01 0.001 1.8" }, // the user's own stays
        { 0, 3, "0.01", "0.1 0.1 0.001 3" },    { 3, 2, "0.1", "1 1 0.001 3" },
    };
    for (const auto & row : cases) {
        StartedSetup started;
        started.pick("Combo_data_type", row.from);
        started.type("Text_percent_error", "5");
        started.type("Text_inversion_par", row.typed_trade_off);
        started.pick("Combo_data_type", row.to);
        EXPECT_EQ(started.text("Text_inversion_par") + " " + started.text("Text_error_floor") + " " +
                      started.text("Text_wavelet_eps") + " " + started.text("Text_weighting_beta"),
                  row.boxes);
        EXPECT_EQ(started.setup.definition.error_percent, 0);
        EXPECT_EQ(started.setup.definition.weighting_beta, row.to == 0 ? 1.8F : 3);
    }
}

TEST(data_types, given_each_first_type_then_its_lists_and_frames_are_shown)
{
    const std::pair<std::int32_t, const char *> cases[] = { { 1, "field direction " },
                                                            { 0, "direction " },
                                                            { 3, "tensor direction " },
                                                            { 5, "second direction " },
                                                            { 20, "second third field direction " },
                                                            { 30, "field " },
                                                            { 100, "field direction " } };
    for (const auto & [type, expected] : cases) {
        StartedSetup started;
        started.setup.definition.obs_data_types[0] = type;
        show_data_types(started.setup);
        const Form & form = started.setup.form;
        std::string shown;
        if (form("Combo_data_type", 1).visible) shown += "second ";
        if (form("Combo_data_type", 2).visible) shown += "third ";
        if (form["Frame_field"].visible) shown += "field ";
        if (form["Frame_tensor"].visible) shown += "tensor ";
        if (form["Frame_incl_decl"].visible) shown += "direction ";
        EXPECT_EQ(shown, expected) << type;
    }
}

TEST(data_types, given_a_second_type_then_the_code_of_its_position_is_stored_and_its_column_shown)
{
    StartedSetup started;
    started.pick("Combo_data_type", 2, 1);
    EXPECT_EQ(chosen_text(started.setup.form("Combo_data_type", 1)), "1:  Magnetic");
    EXPECT_EQ(started.setup.definition.obs_data_types[1], 30); // the code of the next text
    EXPECT_TRUE(started.setup.form("Text_UBC_locations_magpos", 1).visible);
    started.load(InversionDefinition(started.setup.definition));
    EXPECT_EQ(started.setup.form("Combo_data_type", 1).position, 2);
    started.pick("Combo_data_type", 0, 1);
    EXPECT_FALSE(started.setup.form("Text_UBC_locations_magpos", 1).visible);

    started.pick("Combo_optional_data_type", 5); // "5:  Gne"
    EXPECT_EQ(started.setup.definition.calc_data_types[0], 5);
    started.pick("Combo_optional_data_type", 0);
    EXPECT_EQ(started.setup.definition.calc_data_types[0], -1);
}

TEST(boxes, given_a_number_then_its_field_takes_it_and_any_other_text_leaves_it)
{
    StartedSetup started;
    InversionDefinition & record = started.setup.definition;
    started.type("Text_UBC_elevation_offset", "-2.5", 2);
    started.type("Text_max_iter", "12.5"); // halves go to the even neighbour
    started.type("Text_z_blend", "7");
    started.type("Text_tile_overlap", "33"); // waits for the check
    started.type("Text_chi_factor", "0.5");
    EXPECT_EQ(record.elevation_offset, (std::array<float, 3>{ 0, 0, -2.5F }));
    EXPECT_EQ(record.max_iterations, 12);
    EXPECT_EQ(record.tile_z_blend, 7);
    EXPECT_EQ(record.tile_overlap, 20);
    EXPECT_EQ(started.text("Text_chi_factor"), "0.500");

    for (const char * text : { "", "3 m", "none" }) started.type("Text_UBC_elevation_offset", text, 2);
    EXPECT_EQ(record.elevation_offset[2], -2.5F);
    EXPECT_THROW(started.type("Text_alpha_e", "1e39"), OverflowFault);
    EXPECT_EQ(record.alpha_e, 1);
}

TEST(choices, given_a_change_then_field_and_dependants_follow)
{
    StartedSetup started;
    InversionDefinition & record = started.setup.definition;
    Form & form = started.setup.form;
    started.turn("Check_topo_shift", false);
    started.turn("Check_topo_type", true, 1);
    started.turn("Option_depth_weighting_parameters", true, 1);
    started.pick("Combo_tile_order", 1, 2);
    started.pick("Combo_qvinv3d_positivity", 3);
    started.pick("Combo_UBC_elevation_offset", 1);
    EXPECT_EQ(record.topo_shift_option, 0);
    EXPECT_EQ(record.topo_type, 1);
    EXPECT_FALSE(form("Check_topo_type", 0).on);
    EXPECT_EQ(record.depth_weighting_mode, 1);
    EXPECT_TRUE(form["Frame_specify_weighting"].visible);
    EXPECT_EQ(record.tile_order, (std::array<std::int32_t, 3>{ 0, 0, 1 }));
    EXPECT_EQ(record.positivity, 3);
    EXPECT_EQ(form["Combo_positivity"].position, 3);
    EXPECT_EQ(form["Label_sensor"].caption, "Sensor elevation");
    started.pick("Combo_inversion_mode", 4); // the new family lacks it: none is chosen, and it stays
    started.pick("Combo_inversion_method", 0);
    EXPECT_EQ(form["Combo_inversion_mode"].position, -1);
    EXPECT_EQ(record.inversion_mode, 4);
}

TEST(variation, given_it_is_on_then_what_may_differ_is_green_until_gravity_v2_drops_it)
{
    StartedSetup started;
    Form & form = started.setup.form;
    for (const bool on : { true, false }) {
        if (on) started.turn("Check_generate_inversion_variation", true);
        if (!on) started.pick("Combo_inversion_method", 3);
        EXPECT_EQ(form["Check_generate_inversion_variation"].on, on);
        EXPECT_EQ(form("Command_create_inversion", 2).visible, on);
        EXPECT_EQ(form["Check_update_data_files"].visible, on);
        EXPECT_EQ(form("Label_alpha", 3).back_colour, on ? 65280 : Control::window_colour);
    }
    for (const auto & [method, caption] : { std::pair(3, "Grav data"), { own_position, "Mag data" } }) {
        started.pick("Combo_inversion_method", method);
        form_changed(started.setup, "Tab_inversion", 0, started.host);
        EXPECT_EQ(form("Label_obs_data", 0).caption, caption);
    }
}

}
