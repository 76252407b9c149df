#include "rules/bound_controls.h"

#include "support/missing.h"
#include "support/numbers.h"
#include "support/pattern.h"

#include <algorithm>
#include <type_traits>
#include <variant>

namespace {

using Record = InversionDefinition;
template <class T, int count>
using Each = std::array<T, count> Record::*;

/// A field, or an array of them whose places are the indices of the control.
using NumberField = std::variant<float Record::*, std::int32_t Record::*, Each<float, 3>>;
using CountField = std::variant<std::int32_t Record::*, Each<std::int32_t, 3>>;
using TextField = std::variant<std::string Record::*, Each<std::string, 2>>;

/// When a box goes into its field: as it is typed, on leaving it (and then the box shows what was understood), or in the check.
enum class Stored { at_once, when_left, by_check };

bool never(double) { return false; }
bool below_one(double value) { return value < 1; }
bool unset(double value) { return is_missing(static_cast<float>(value)); }

struct NumberBox {
    const char * control;
    NumberField field;
    Block block;
    Stored stored = Stored::at_once;
    const char * pattern = "";      // empty: plain text
    bool (*blank)(double) = &never; // values that show as a blank box
};

constexpr NumberBox number_boxes[] = {
    { "Text_inversion_par", &Record::trade_off, Block::parameters },
    { "Text_inversion_tolc", &Record::misfit_tolerance, Block::parameters },
    { "Text_max_iter", &Record::max_iterations, Block::parameters, Stored::at_once, "", &below_one },
    { "Text_alpha_s", &Record::alpha_s, Block::parameters },
    { "Text_alpha_e", &Record::alpha_e, Block::parameters },
    { "Text_alpha_n", &Record::alpha_n, Block::parameters },
    { "Text_alpha_v", &Record::alpha_v, Block::parameters },
    { "Text_mag_inclination", &Record::mag_inclination, Block::parameters },
    { "Text_mag_declination", &Record::mag_declination, Block::parameters },
    { "Text_mag_intensity", &Record::mag_intensity, Block::parameters },
    { "Text_line_azimuth", &Record::line_azimuth, Block::parameters },
    { "Text_weighting_beta", &Record::weighting_beta, Block::parameters },
    { "Text_weighting_znot", &Record::weighting_znot, Block::parameters },
    { "Text_NumThreads", &Record::num_threads, Block::parameters },
    { "Text_wavelet_itol", &Record::wavelet_itol, Block::parameters },
    { "Text_wavelet_eps", &Record::wavelet_eps, Block::parameters },
    { "Text_inversion_background_value", &Record::background_value, Block::parameters },
    { "Text_inversion_background_topo", &Record::background_topo, Block::parameters, Stored::at_once, "0.0", &unset },
    { "Text_iterations", &Record::grav_iterations, Block::parameters, Stored::when_left, "0" },
    { "Text_chi_factor", &Record::grav_chi_factor, Block::parameters, Stored::when_left, "0.000" },
    { "Text_subspace", &Record::grav_subspace, Block::parameters, Stored::when_left, "0" },
    { "Text_percent_error", &Record::error_percent, Block::observed_data },
    { "Text_error_floor", &Record::error_floor, Block::observed_data },
    { "Text_UBC_regional_field", &Record::obs_base_value, Block::observed_data },
    { "Text_UBC_regional_scale", &Record::obs_scale_value, Block::observed_data },
    { "Text_UBC_elevation_offset", &Record::elevation_offset, Block::observed_data },
    { "Text_UBC_locations_valcount", &Record::data_values_per_cell, Block::observed_data },
    { "Text_UBC_integration_interval", &Record::data_integration_time, Block::observed_data },
    { "Text_x_tile_size", &Record::tile_x_size, Block::tiles, Stored::by_check },
    { "Text_y_tile_size", &Record::tile_y_size, Block::tiles, Stored::by_check },
    { "Text_tile_overlap", &Record::tile_overlap, Block::tiles, Stored::by_check },
    { "Text_blend_overlap", &Record::tile_blend, Block::tiles, Stored::by_check },
    { "Text_z_blend", &Record::tile_z_blend, Block::tiles },
    { "Text_minimum_points", &Record::tile_min_points, Block::tiles, Stored::by_check },
};

struct TextBox {
    const char * control;
    TextField field;
    Block block;
    Stored stored = Stored::by_check;
};

constexpr TextBox text_boxes[] = {
    { "Text_initial_file", &Record::initial_model, Block::parameters },
    { "Text_reference_file", &Record::reference_model, Block::parameters },
    { "Text_weight_file", &Record::weighting_model, Block::parameters, Stored::at_once },
    { "Text_depth_weighting_file", &Record::model_bounds, Block::parameters },
    { "Text_rock_propery_file", &Record::rock_property_file, Block::parameters },
    { "Text_padding_multipliers", &Record::padding_multipliers, Block::mesh },
    { "Text_weight_multipliers", &Record::weight_multipliers, Block::mesh, Stored::at_once },
    { "Text_description", &Record::description, Block::description, Stored::at_once },
};

void show_alpha_s(Setup & setup)
{
    const bool shown = setup.definition.alpha_method != 1; // lengths have no smallest term
    setup.form("Label_alpha", 0).visible = shown;
    setup.form["Text_alpha_s"].visible = shown;
}

/// Grids and points take the same place.
void show_data_file_type(Setup & setup)
{
    const bool grids = setup.definition.data_file_type == 1;
    setup.form["Tab_images"].visible = grids;
    setup.form["Frame_point_data"].visible = !grids;
}

void show_sensor_caption(Setup & setup)
{
    if (setup.definition.sensor_height_type == 1) setup.form["Label_sensor"].caption = "Sensor elevation";
    if (setup.definition.sensor_height_type == 0) setup.form["Label_sensor"].caption = "Radar altimeter";
}

void nothing_more(Setup &) {}

/// A list that stands for its position.
struct PositionList {
    const char * control;
    CountField field;
    Block block;
    void (*follow)(Setup &) = &nothing_more; // what else shows the choice
};

constexpr PositionList position_lists[] = {
    { "Combo_alpha_method", &Record::alpha_method, Block::parameters, &show_alpha_s },
    { "Combo_depth_weighting_type", &Record::depth_weighting_type, Block::parameters },
    { "Combo_smoothness_method", &Record::smoothness_method, Block::parameters },
    { "Combo_wavelet_type", &Record::wavelet_type, Block::parameters },
    { "Combo_inversion_background_method", &Record::background_method, Block::parameters },
    { "Combo_qvinv3d_positivity", &Record::positivity, Block::parameters },
    { "Combo_positivity", &Record::positivity, Block::parameters },
    { "Combo_rock_property_file", &Record::rock_property_application, Block::parameters },
    { "Combo_observed_data_file_type", &Record::data_file_type, Block::observed_data, &show_data_file_type },
    { "Combo_UBC_elevation_offset", &Record::sensor_height_type, Block::observed_data, &show_sensor_caption },
    { "Combo_forward_model", &Record::tile_coarse_model, Block::tiles },
    { "Combo_tile_order", &Record::tile_order, Block::tiles },
};

struct TruthCheck {
    const char * control;
    std::int32_t Record::*field;
    Block block;
};

constexpr TruthCheck truth_checks[] = {
    { "Check_sLog", &Record::slog_scaling, Block::parameters },
    { "Check_OutputDebugInformation", &Record::output_debug, Block::parameters },
    { "Check_use_cluster_controller", &Record::use_cluster_controller, Block::parameters },
    { "Check_topo_shift", &Record::topo_shift_option, Block::topography },
    { "Check_add_padding_cells", &Record::add_padding_cells, Block::mesh },
    { "Check_create_weighting_file", &Record::create_weighting_file, Block::mesh },
    { "Check_do_expanded", &Record::use_expanded_mesh, Block::mesh },
    { "Check_do_refinement", &Record::tile_use_reference, Block::tiles },
    { "Check_include_regional_mesh", &Record::include_regional_mesh, Block::tiles },
};

/// Hands each value behind a field to `visit(index, value)`.
template <class Field, class Visit>
void visit_all(Record & record, const Field & field, Visit visit)
{
    std::visit(
        [&](auto member) {
            auto & values = record.*member;
            if constexpr (requires { values.fill(values[0]); }) {
                for (int i = 0; i < static_cast<int>(values.size()); ++i) visit(i, values[static_cast<std::size_t>(i)]);
            } else {
                visit(0, values);
            }
        },
        field);
}

/// Hands the one value that belongs to an index of the control to `visit(value)`.
template <class Field, class Visit>
void visit_one(Record & record, const Field & field, int wanted, Visit visit)
{
    visit_all(record, field, [&](int index, auto & value) {
        if (index == wanted) visit(value);
    });
}

template <class Rows>
auto row_of(const Rows & rows, std::string_view control)
{
    const auto found = std::ranges::find(rows, control, [](const auto & row) { return std::string_view(row.control); });
    return found == std::end(rows) ? nullptr : &*found;
}

template <class Number>
std::string shown_number(const NumberBox & box, Number value)
{
    if (box.blank(static_cast<double>(value))) return "";
    return *box.pattern == 0 ? general_text(value) : format_number(static_cast<double>(value), box.pattern);
}

void take_number(double number, float & field) { field = to_f32(number); }
void take_number(double number, std::int32_t & field) { field = round_to_count(number); }

void store_number(Setup & setup, const NumberBox & box, int index)
{
    std::string & text = setup.form(box.control, index).text;
    if (box.stored == Stored::by_check || !is_numeric(text)) return;
    visit_one(setup.definition, box.field, index, [&](auto & value) {
        take_number(leading_number(text), value);
        if (box.stored == Stored::when_left) text = shown_number(box, value);
    });
}

void store_position(Setup & setup, const PositionList & list, int index)
{
    const int position = setup.form(list.control, index).position;
    visit_one(setup.definition, list.field, index, [&](std::int32_t & value) { value = position; });
    for (const PositionList & other : position_lists) { // two lists may be views of one field
        if (&other != &list && other.field == list.field) choose_position(setup.form(other.control, index), position);
    }
    list.follow(setup);
}

void show_number_boxes(Setup & setup, Block block)
{
    for (const NumberBox & box : number_boxes) {
        if (box.block != block) continue;
        visit_all(setup.definition, box.field,
                  [&](int index, auto value) { setup.form(box.control, index).text = shown_number(box, value); });
    }
}

void show_text_boxes(Setup & setup, Block block)
{
    for (const TextBox & box : text_boxes) {
        if (box.block != block) continue;
        visit_all(setup.definition, box.field,
                  [&](int index, const std::string & text) { setup.form(box.control, index).text = text; });
    }
}

void show_position_lists(Setup & setup, Block block)
{
    for (const PositionList & list : position_lists) {
        if (list.block != block) continue;
        visit_all(setup.definition, list.field,
                  [&](int index, std::int32_t position) { choose_position(setup.form(list.control, index), position); });
        list.follow(setup);
    }
}

}

void show_bound_controls(Setup & setup, Block block)
{
    show_number_boxes(setup, block);
    show_text_boxes(setup, block);
    show_position_lists(setup, block);
    for (const TruthCheck & check : truth_checks) {
        if (check.block == block) setup.form[check.control].on = setup.definition.*check.field == 1;
    }
}

void store_bound_control(Setup & setup, std::string_view control, int index)
{
    if (const NumberBox * box = row_of(number_boxes, control)) store_number(setup, *box, index);
    if (const PositionList * list = row_of(position_lists, control)) store_position(setup, *list, index);
    if (const TruthCheck * check = row_of(truth_checks, control))
        setup.definition.*check->field = setup.form(control, index).on ? 1 : 0;
    if (const TextBox * box = row_of(text_boxes, control); box && box->stored == Stored::at_once)
        visit_one(setup.definition, box->field, index, [&](std::string & text) { text = setup.form(control, index).text; });
}

void set_box(Setup & setup, std::string_view control, int index, std::string_view text)
{
    setup.form(control, index).text = text;
    store_bound_control(setup, control, index);
}
