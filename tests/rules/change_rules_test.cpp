#include "rules/change_rules.h"
#include "started_setup.h"
#include "support/fault.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

constexpr int own_position = 6;

struct VisibilityCase {
    const char * states;   // by position in the list of methods: V shown, H hidden, - as it was
    const char * controls; // each with its index when that is not 0
};

const VisibilityCase visibility_cases[] = {
    { "VVVHHHV", "Frame_field" }, // at the end of the change to a magnetic own inversion
    { "VVVHVVV", "Frame_magsen3d Frame_magsen3d(1) Label_inversion_mode Label_inversion_mode(1) Combo_inversion_mode" },
    { "VVVHVVV", "Text_inversion_par Check_generate_inversion_variation" },
    { "HHHVHHH", "Frame_gravity_parameters" },
    { "HVVHVVV", "Frame_parameter_bounds" },
    { "VVVHVVH", "Label_inversion_mode(2) Text_inversion_tolc" },
    { "HHHHHHV", "Label_inversion_iter Text_max_iter Label_data_type Combo_data_type Frame_background_removal_method" },
    { "HHHHHHV", "Label_qvinv3d_positivity Combo_qvinv3d_positivity Check_topo_shift Check_use_cluster_controller" },
    { "HHHHHHH", "Combo_data_type(1) Combo_data_type(2) Label_data_type(1) Check_update_data_files" },
    { "HHHHHH-", "Combo_optional_data_type" },
    { "-HV-HVH", "Text_depth_weighting_file(1) Command_depth_weighting_file(1) Label_smoothness_method Combo_smoothness_method" },
    { "-HV-HVH", "Label_NumThreads Text_NumThreads Check_OutputDebugInformation" },
    { "VVVVVVH", "Check_do_expanded" },
    { "VVVVVVV", "Check_create_weighting_file Text_weight_multipliers" },
};

Control & named(StartedSetup & started, const std::string & name)
{
    const auto bracket = name.find('(');
    return started.setup.form(name.substr(0, bracket), bracket == std::string::npos ? 0 : name[bracket + 1] - '0');
}

bool visible_after(StartedSetup & started, int method, const std::string & control, bool before)
{
    named(started, control).visible = before;
    started.pick("Combo_inversion_method", method);
    return named(started, control).visible;
}

TEST(methods, given_each_when_chosen_then_the_controls_it_needs_are_shown)
{
    StartedSetup started;
    for (const VisibilityCase & row : visibility_cases) {
        std::istringstream controls(row.controls);
        for (std::string control; controls >> control;) {
            std::string states;
            for (int method = 0; method < 7; ++method) {
                const bool from_shown = visible_after(started, method, control, true);
                const bool from_hidden = visible_after(started, method, control, false);
                states += from_shown != from_hidden ? '-' : from_shown ? 'V' : 'H';
            }
            EXPECT_EQ(states, row.states) << control;
        }
    }
}

TEST(methods, given_each_when_chosen_then_captions_alpha_and_lists_follow)
{
    struct {
        std::int32_t code, alpha;
        bool alpha_enabled;
        const char *bounds, *weight, *mode, *depth;
    } const cases[] = {
        { 0, 0, false, "Model Bounds", "Model Bounds File", "1: Tradeoff from line search", "Depth" }, // captions as they were
        { 3, 0, true, "Model Susceptability Bounds", "Susc Bounds File", "1: Tradeoff from line search", "Depth" },
        { 6, 1, true, "Model Bounds", "Model Bounds File", "1: Tradeoff from line search", "Depth" },
        { 1, 0, false, "Model Bounds", "Depth Weighting", "1: Tradeoff from line search", "Depth" },
        { 2, 1, true, "Model Density Bounds", "Density Bounds File", "1: Tradeoff from line search", "Depth" },
        { 5, 1, true, "Model Density Bounds", "Density Bounds File", "1: Tradeoff from line search", "Depth" },
        { 4, 0, false, "Model Bounds", "Model Bounds File", "Normal 3D", "Simple" },
    };
    StartedSetup started;
    Form & form = started.setup.form;
    for (int position = 0; position < 7; ++position) {
        const auto & row = cases[position];
        started.pick("Combo_inversion_method", position);
        EXPECT_EQ(started.setup.definition.inversion_method, row.code);
        EXPECT_EQ(started.setup.definition.alpha_method, row.alpha) << row.code;
        EXPECT_EQ(form["Text_alpha_s"].visible, row.alpha == 0) << row.code;
        EXPECT_EQ(form["Combo_alpha_method"].enabled, row.alpha_enabled) << row.code;
        EXPECT_EQ(form["Frame_parameter_bounds"].caption, row.bounds) << row.code;
        EXPECT_EQ(form["Label_weight"].caption, row.weight) << row.code;
        EXPECT_EQ(chosen_text(form["Combo_inversion_mode"]), row.mode) << row.code;
        EXPECT_EQ(form["Combo_depth_weighting_type"].items[0].text, row.depth) << row.code;
    }
}

TEST(methods, given_a_mode_that_the_new_family_lacks_then_none_is_chosen_and_it_stays)
{
    StartedSetup started;
    started.pick("Combo_inversion_mode", 4);
    started.pick("Combo_inversion_method", 0);
    EXPECT_EQ(started.setup.form["Combo_inversion_mode"].position, -1);
    EXPECT_EQ(started.setup.definition.inversion_mode, 4);

    started.setup.definition.inversion_method = 4;
    show_solver(started.setup);
    EXPECT_EQ(chosen_code(started.setup.form["Combo_inversion_mode"], -1), 4);
    EXPECT_FALSE(started.setup.form["Frame_field"].visible); // the first list's second place hides it until its type is shown
}

TEST(data_types, given_a_change_then_only_untouched_defaults_follow)
{
    struct {
        int from, to; // positions in the first list: 0 gravity, 1 magnetic, 2 VRMI, 3 Gzz
        const char * typed_trade_off;
        float trade_off, floor, eps, beta;
    } const cases[] = {
        { 1, 0, "", 0.01F, 0.01F, 0.001F, 1.8F },    { 1, 0, "2.5", 2.5F, 0.01F, 0.001F, 1.8F }, // the user's own stays
        { 1, 0, "1.0", 0.01F, 0.01F, 0.001F, 1.8F }, // the default in other digits is no change
        { 1, 0, "x", 0.01F, 0.01F, 0.001F, 1.8F },   { 0, 3, "", 0.1F, 0.1F, 0.001F, 3 },        { 3, 2, "", 1, 1, 0.001F, 3 },
    };
    for (const auto & row : cases) {
        StartedSetup started;
        const InversionDefinition & record = started.setup.definition;
        started.pick("Combo_data_type", row.from);
        started.type("Text_percent_error", "5");
        if (*row.typed_trade_off) started.type("Text_inversion_par", row.typed_trade_off);
        started.pick("Combo_data_type", row.to);
        EXPECT_EQ(record.trade_off, row.trade_off) << row.to << row.typed_trade_off;
        EXPECT_EQ(record.error_floor, row.floor) << row.to;
        EXPECT_EQ(record.wavelet_eps, row.eps) << row.to;
        EXPECT_EQ(record.weighting_beta, row.beta) << row.to;
        EXPECT_EQ(started.text("Text_percent_error"), "0");
        EXPECT_EQ(record.error_percent, 0);
    }
}

TEST(data_types, given_each_first_type_then_its_lists_and_frames_are_shown)
{
    struct {
        std::int32_t type;
        bool second, third, field, tensor, direction;
    } const cases[] = {
        { 1, false, false, true, false, true },   { 0, false, false, false, false, true },
        { 3, false, false, false, true, true },   { 5, true, false, false, false, true },
        { 20, true, true, true, false, true },    { 22, true, true, true, false, true },
        { 30, false, false, true, false, false }, { 100, false, false, true, false, true },
    };
    for (const auto & row : cases) {
        StartedSetup started;
        started.setup.definition.obs_data_types[0] = row.type;
        show_data_types(started.setup);
        const Form & form = started.setup.form;
        EXPECT_EQ(form("Combo_data_type", 1).visible, row.second) << row.type;
        EXPECT_EQ(form("Combo_data_type", 2).visible, row.third) << row.type;
        EXPECT_EQ(form["Frame_field"].visible, row.field) << row.type;
        EXPECT_EQ(form["Frame_tensor"].visible, row.tensor) << row.type;
        EXPECT_EQ(form["Frame_incl_decl"].visible, row.direction) << row.type;
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
    EXPECT_EQ(started.setup.definition.calc_data_type_count, 1);
    started.pick("Combo_optional_data_type", 0);
    EXPECT_EQ(started.setup.definition.calc_data_types[0], -1);
    EXPECT_EQ(started.setup.definition.calc_data_type_count, 0);
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

    started.turn("Check_sLog", true);
    started.turn("Check_topo_shift", false);
    started.pick("Combo_tile_order", 1, 2);
    started.pick("Combo_qvinv3d_positivity", 3);
    EXPECT_EQ(record.slog_scaling, 1);
    EXPECT_EQ(record.topo_shift_option, 0);
    EXPECT_EQ(record.tile_order, (std::array<std::int32_t, 3>{ 0, 0, 1 }));
    EXPECT_EQ(record.positivity, 3);
    EXPECT_EQ(form["Combo_positivity"].position, 3);

    started.pick("Combo_UBC_elevation_offset", 1);
    EXPECT_EQ(form["Label_sensor"].caption, "Sensor elevation");
    started.pick("Combo_observed_data_file_type", 1);
    EXPECT_TRUE(form["Tab_images"].visible);

    started.turn("Check_topo_type", true, 1);
    EXPECT_EQ(record.topo_type, 1);
    EXPECT_FALSE(form("Check_topo_type", 0).on);
    started.turn("Option_depth_weighting_parameters", true, 1);
    EXPECT_EQ(record.depth_weighting_mode, 1);
    EXPECT_TRUE(form["Frame_specify_weighting"].visible);
    started.turn("Option_wavelet_parameters", true, 0);
    EXPECT_EQ(record.wavelet_mode, 0);
    EXPECT_FALSE(form["Frame_specify_wavelet"].visible);
}

TEST(variation, given_it_is_on_then_what_may_differ_is_green_until_gravity_v2_drops_it)
{
    StartedSetup started;
    Form & form = started.setup.form;
    const auto expect = [&](bool on) {
        EXPECT_EQ(form("Command_create_inversion", 1).visible, !on);
        EXPECT_EQ(form("Command_create_inversion", 2).visible, on);
        EXPECT_EQ(form["Check_update_data_files"].visible, on);
        for (const char * mark : { "Label_alpha(3)", "Label_model(4)", "Label_inversion_mode(4)", "Option_alphas(1)" })
            EXPECT_EQ(named(started, mark).back_colour, on ? 65280 : Control::window_colour) << mark;
        EXPECT_EQ(form("Label_inversion_mode", 2).back_colour, Control::window_colour);
    };
    expect(false);
    started.turn("Check_generate_inversion_variation", true);
    expect(true);
    started.pick("Combo_inversion_method", 3);
    EXPECT_FALSE(form["Check_generate_inversion_variation"].on);
    expect(false);
    started.pick("Combo_inversion_method", own_position);
    form_changed(started.setup, "Tab_inversion", 0, started.host);
    EXPECT_EQ(form("Label_obs_data", 0).caption, "Mag data");
}

}
