#include "rules/change_rules.h"

#include "rules/bound_controls.h"
#include "rules/data_columns.h"
#include "rules/layout_rules.h"
#include "rules/mesh_boxes.h"
#include "rules/solver_rules.h"
#include "rules/tile_choice.h"
#include "support/paths.h"
#include "support/text.h"

#include <algorithm>

namespace {

/// Two options of which one is on, that stand for a mode of the record: 0 for the first, 1 for the second.
struct OptionPair {
    const char * control;
    std::int32_t InversionDefinition::*mode;
    const char * frame; // shown in mode 1; null when there is none
};

constexpr OptionPair option_pairs[] = {
    { "Option_alphas", &InversionDefinition::alpha_mode, nullptr },
    { "Option_depth_weighting_parameters", &InversionDefinition::depth_weighting_mode, "Frame_specify_weighting" },
    { "Option_wavelet_parameters", &InversionDefinition::wavelet_mode, "Frame_specify_wavelet" },
};

void show_option(Setup & setup, const OptionPair & pair)
{
    const bool first = setup.definition.*pair.mode == 0;
    setup.form(pair.control, 0).on = first;
    setup.form(pair.control, 1).on = !first;
    if (pair.frame) setup.form[pair.frame].visible = !first;
}

template <std::size_t row>
void change_option(Setup & setup, int index, Host &)
{
    const OptionPair & pair = option_pairs[row];
    const bool first = setup.form(pair.control, index).on == (index == 0);
    setup.definition.*pair.mode = first ? 0 : 1;
    show_option(setup, pair);
}

void change_topo_type(Setup & setup, int index, Host &)
{
    if (setup.loading) return;
    const bool from_file = setup.form("Check_topo_type", index).on == (index == 0);
    setup.definition.topo_type = from_file ? 0 : 1;
    show_topo_type(setup);
}

/// Another drive: the location is all of it.
void change_drive(Setup & setup, int, Host &)
{
    const std::string drive(trim(setup.form["Drive1"].text));
    setup.form["Dir1"].text = drive.empty() ? "" : with_backslash(drive);
}

void change_inversion_mode(Setup & setup, int, Host &)
{
    std::int32_t & mode = setup.definition.inversion_mode;
    mode = chosen_code(setup.form["Combo_inversion_mode"], mode);
}

void change_optional_data_type(Setup & setup, int index, Host &)
{
    const Control & list = setup.form("Combo_optional_data_type", index);
    const bool chosen = list.position >= 1; // the first place is "NA"
    setup.definition.calc_data_types[0] = chosen ? chosen_code(list, -1) : -1;
    setup.definition.calc_data_type_count = chosen ? std::max(setup.definition.calc_data_type_count, 1) : 0;
}

/// What the boxes hold is checked and shown; a fault has shown its message, and the boxes stay as they are.
void leave_tile_box(Setup & setup, int, Host & host) { static_cast<void>(unload_mesh_from_form(setup, -1, false, host)); }

void mark_tile(Setup & setup, int, Host & host)
{
    if (take_skipped_tile(setup)) static_cast<void>(display_tiling_layout(setup, true, host));
}

struct Rule {
    const char * control;
    void (*apply)(Setup & setup, int index, Host & host);
};

/// The controls that do more than put their value into a field.
constexpr Rule rules[] = {
    { "Combo_inversion_method", [](Setup & setup, int, Host &) { change_method(setup); } },
    { "Combo_inversion_mode", &change_inversion_mode },
    { "Combo_data_type", [](Setup & setup, int index, Host &) { change_data_type(setup, index); } },
    { "Combo_optional_data_type", &change_optional_data_type },
    { "Check_topo_type", &change_topo_type },
    { "Drive1", &change_drive },
    { "Option_alphas", &change_option<0> },
    { "Option_depth_weighting_parameters", &change_option<1> },
    { "Option_wavelet_parameters", &change_option<2> },
    { "Check_generate_inversion_variation", [](Setup & setup, int, Host &) { show_variation(setup); } },
    { "Text_x_tile_size", &leave_tile_box },
    { "Text_y_tile_size", &leave_tile_box },
    { "Text_number_x_tiles", &leave_tile_box },
    { "Text_number_y_tiles", &leave_tile_box },
    { "Text_tile_overlap", &leave_tile_box },
    { "Combo_tile_order", [](Setup & setup, int index, Host &) { take_tile_order(setup, index); } },
    { "Check_do_tile", &mark_tile },
    { "Tab_inversion", [](Setup & setup, int, Host &) { show_data_captions(setup); } },
};

}

void form_changed(Setup & setup, std::string_view control, int index, Host & host)
{
    const auto rule = std::ranges::find(rules, control, [](const Rule & row) { return std::string_view(row.control); });
    if (rule != std::end(rules)) {
        rule->apply(setup, index, host);
        return;
    }
    if (change_data_columns(setup, control, index, host)) return;
    store_bound_control(setup, control, index);
}

void show_options(Setup & setup)
{
    for (const OptionPair & pair : option_pairs) show_option(setup, pair);
}

void show_topo_type(Setup & setup)
{
    setup.form("Check_topo_type", 0).on = setup.definition.topo_type == 0;
    setup.form("Check_topo_type", 1).on = setup.definition.topo_type != 0;
}
