#include "rules/solver_rules.h"

#include "definition/enumerations.h"
#include "rules/bound_controls.h"
#include "rules/change_rules.h"

#include <algorithm>

namespace {

// All columns stand in the order of the list of methods: magnetic V3, V4, V5, gravity V2, V3, V5, the own solver.
constexpr std::size_t method_count = 7;

struct VisibilityRow {
    const char * control;
    int index;
    const char * states; // V shown, H hidden, - as it was
};

constexpr VisibilityRow visibility_rows[] = {
    { "Frame_field", 0, "VVVHHHV" },
    { "Frame_tensor", 0, "HHHHHH-" },    // by the first data type
    { "Frame_incl_decl", 0, "VVV----" }, // which may have hidden it where it is needed
    { "Frame_magsen3d", 0, "VVVHVVV" },
    { "Frame_magsen3d", 1, "VVVHVVV" },
    { "Frame_gravity_parameters", 0, "HHHVHHH" },
    { "Frame_parameter_bounds", 0, "HVVHVVV" },
    { "Label_inversion_mode", 0, "VVVHVVV" },
    { "Label_inversion_mode", 1, "VVVHVVV" },
    { "Combo_inversion_mode", 0, "VVVHVVV" },
    { "Text_inversion_par", 0, "VVVHVVV" },
    { "Label_inversion_mode", 2, "VVVHVVH" },
    { "Text_inversion_tolc", 0, "VVVHVVH" },
    { "Label_inversion_iter", 0, "HHHHHHV" },
    { "Text_max_iter", 0, "HHHHHHV" },
    { "Label_data_type", 0, "HHHHHHV" },
    { "Combo_data_type", 0, "HHHHHHV" },
    { "Label_data_type", 1, "HHHHHH-" }, // by the first data type, as the two lists behind it
    { "Combo_data_type", 1, "HHHHHH-" },
    { "Combo_data_type", 2, "HHHHHH-" },
    { "Combo_optional_data_type", 0, "HHHHHH-" },
    { "Label_weight", 0, "HVVVVVV" }, // outside the frame: gravity V2 has weights in the same box; magnetic V3 reads neither
    { "Text_depth_weighting_file", 0, "HVVVVVV" },
    { "Command_depth_weighting_file", 0, "HVVVVVV" },
    { "Text_depth_weighting_file", 1, "-HV-HVH" },
    { "Command_depth_weighting_file", 1, "-HV-HVH" },
    { "Label_smoothness_method", 0, "-HV-HVH" },
    { "Combo_smoothness_method", 0, "-HV-HVH" },
    { "Label_NumThreads", 0, "-HV-HVH" },
    { "Text_NumThreads", 0, "-HV-HVH" },
    { "Check_OutputDebugInformation", 0, "-HV-HVH" },
    { "Check_generate_inversion_variation", 0, "VVVHVVV" },
    { "Check_update_data_files", 0, "HHHHHHH" },
    { "Check_do_expanded", 0, "VVVVVVH" },
    { "Frame_background_removal_method", 0, "HHHHHHV" },
    { "Label_qvinv3d_positivity", 0, "HHHHHHV" },
    { "Combo_qvinv3d_positivity", 0, "HHHHHHV" },
    { "Check_topo_shift", 0, "HHHHHHV" },
    { "Check_use_cluster_controller", 0, "HHHHHHV" },
    { "Check_create_weighting_file", 0, "VVVVVVV" },
    { "Text_weight_multipliers", 0, "VVVVVVV" },
};

struct CaptionRow {
    const char * control;
    const char * captions[method_count]; // null: as it was
};

constexpr CaptionRow caption_rows[] = {
    { "Frame_parameter_bounds",
      { nullptr, "Model Susceptability Bounds", "Model Bounds", nullptr, "Model Density Bounds", "Model Density Bounds",
        "Model Bounds" } },
    { "Label_weight",
      { nullptr, "Susc Bounds File", "Model Bounds File", "Depth Weighting", "Density Bounds File", "Density Bounds File",
        "Model Bounds File" } },
};

struct AlphaRow {
    int position;
    bool enabled;
};

constexpr AlphaRow alpha_rows[method_count] = {
    { 0, false }, { 0, true }, { 1, true }, { 0, false }, { 1, true }, { 1, true }, { 0, false },
};

constexpr std::int32_t gravity_v2 = 1;

std::size_t column_of(const Setup & setup)
{
    const auto methods = inversion_methods();
    const auto code = inversion_method_of(setup.definition.inversion_method).code;
    return static_cast<std::size_t>(std::ranges::find(methods, code, &InversionMethod::code) - methods.begin());
}

void show_visibility(Setup & setup, std::size_t column)
{
    for (const VisibilityRow & row : visibility_rows) {
        if (row.states[column] != '-') setup.form(row.control, row.index).visible = row.states[column] == 'V';
    }
    for (const CaptionRow & row : caption_rows) {
        if (row.captions[column]) setup.form[row.control].caption = row.captions[column];
    }
}

/// A sign constraint that the solver's own list does not have would be written all the same, and shown nowhere.
void drop_unlisted_positivity(Setup & setup)
{
    Control & list = setup.form["Combo_positivity"];
    if (setup.definition.positivity < static_cast<std::int32_t>(list.items.size())) return;
    choose_position(list, 0);
    store_bound_control(setup, "Combo_positivity", 0);
}

void drop_variation(Setup & setup)
{
    setup.form["Check_update_data_files"].on = false;
    setup.form["Check_generate_inversion_variation"].on = false;
    show_variation(setup);
}

struct MarkedControl {
    const char * control;
    int first = 0, last = 0;
};

constexpr MarkedControl variation_marks[] = {
    { "Label_inversion_mode", 1, 1 },  { "Label_inversion_iter" }, { "Label_ubc_res_alpha_method" },
    { "Option_alphas", 0, 1 },         { "Label_alpha", 0, 3 },    { "Label_model", 0, 4 },
    { "Label_qvinv3d_positivity" },    { "Label_weight" },         { "Label_inversion_mode", 3, 4 },
    { "Check_create_weighting_file" }, { "Label_weights" },
};

constexpr std::int32_t green = 65280;

}

void show_solver(Setup & setup)
{
    Form & form = setup.form;
    const InversionDefinition & definition = setup.definition;
    const std::size_t column = column_of(setup);
    const MethodFamily family = inversion_methods()[column].family;

    show_visibility(setup, column);
    // The list's second place; showing the data types brings the frame back when the type needs it.
    if (family == MethodFamily::own && form("Combo_data_type", 0).position == 1) form["Frame_field"].visible = false;
    if (inversion_methods()[column].code == gravity_v2) drop_variation(setup);
    form["Combo_alpha_method"].enabled = alpha_rows[column].enabled;

    form["Combo_inversion_mode"].enabled = true;
    form["Combo_inversion_mode"].items = inversion_mode_items(family);
    choose_code(form["Combo_inversion_mode"], definition.inversion_mode);
    form["Combo_depth_weighting_type"].items = depth_weighting_type_items(family);
}

void change_method(Setup & setup)
{
    InversionDefinition & definition = setup.definition;
    definition.inversion_method = chosen_code(setup.form["Combo_inversion_method"], definition.inversion_method);
    show_solver(setup);
    setup.form["Combo_alpha_method"].position = alpha_rows[column_of(setup)].position;
    store_bound_control(setup, "Combo_alpha_method", 0);
    if (definition.inversion_method == gravity_v2) drop_unlisted_positivity(setup);
    if (inversion_method_of(definition.inversion_method).family == MethodFamily::own && !setup.loading)
        change_data_type(setup, 0);
}

void show_variation(Setup & setup)
{
    Form & form = setup.form;
    const bool variation = form["Check_generate_inversion_variation"].on;
    form("Command_create_inversion", 1).visible = !variation;
    form("Command_create_inversion", 2).visible = variation;
    form["Check_update_data_files"].visible = variation;
    for (const MarkedControl & mark : variation_marks) {
        for (int index = mark.first; index <= mark.last; ++index)
            form(mark.control, index).back_colour = variation ? green : Control::window_colour;
    }
}
