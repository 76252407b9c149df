#include "definition/enumerations.h"
#include "rules/box_groups.h"
#include "rules/validation_steps.h"
#include "support/numbers.h"

#include <algorithm>

namespace {

using Definition = InversionDefinition;

constexpr std::int32_t gravity_v2 = 1, gravity_v3 = 2, own_solver = 4;
constexpr std::int32_t specified_background = 2;

template <std::int32_t method>
bool has_method(const Setup & setup)
{
    return setup.definition.inversion_method == method;
}

bool both_error_terms_zero(const Setup & setup)
{
    return box_number(setup, "Text_percent_error") == 0 && box_number(setup, "Text_error_floor") == 0;
}

constexpr BoxCheck correction_boxes[] = {
    { "Text_UBC_regional_field", 0, "The regional field base level is not numeric", Limit::none, "",
      &Definition::obs_base_value },
    { "Text_UBC_regional_scale", 0, "The field scale value is not numeric", Limit::not_zero, "The field scale value cannot be 0",
      &Definition::obs_scale_value },
};

constexpr CheckGroup corrections = { correction_boxes };

constexpr BoxCheck error_boxes[] = {
    { "Text_percent_error", 0, "The percent error field is not numeric", Limit::not_negative,
      "The percent error field must be positive" },
    { "Text_error_floor", 0, "The error floor field is not numeric", Limit::not_negative,
      "The error floor field must be non-negative" },
};

constexpr CheckGroup error_terms = { error_boxes, nullptr, [](const Setup & setup) -> std::string {
                                        return both_error_terms_zero(setup)
                                                   ? "The percent error and error floor fields cannot both be zero"
                                                   : "";
                                    } };

// The same boxes once more, in the other order: this time they are stored.
constexpr BoxCheck stored_error_boxes[] = {
    { "Text_error_floor", 0, "The error floor is not valid", Limit::not_negative, "The error floor cannot be negative",
      &Definition::error_floor },
    { "Text_percent_error", 0, "The error percent is not valid", Limit::not_negative, "The error percent cannot be negative",
      &Definition::error_percent },
};

constexpr CheckGroup stored_error_terms = { stored_error_boxes, nullptr, [](const Setup & setup) -> std::string {
                                               return both_error_terms_zero(setup)
                                                          ? "The error percent and floor vallues cannot both be zero"
                                                          : "";
                                           } };

bool needs_magnetic_field(const Setup & setup)
{
    const Definition & definition = setup.definition;
    if (definition.inversion_method != own_solver)
        return inversion_method_of(definition.inversion_method).family == MethodFamily::magnetic;
    return class_of_data_type(definition.obs_data_types[0]) == DataClass::magnetic;
}

constexpr BoxCheck magnetic_boxes[] = {
    { "Text_mag_inclination", 0, "The mag inclination is not numeric", Limit::none, "", &Definition::mag_inclination },
    { "Text_mag_declination", 0, "The mag declination is not numeric", Limit::none, "", &Definition::mag_declination },
    { "Text_mag_intensity", 0, "The mag intensity is not numeric", Limit::positive, "The mag intensity must be positive",
      &Definition::mag_intensity },
};

constexpr CheckGroup magnetic_field = { magnetic_boxes, &needs_magnetic_field };

bool needs_azimuth(const Setup & setup)
{
    const std::int32_t type = setup.definition.obs_data_types[0];
    return type == 3 || type == 4;
}

bool needs_background(const Setup & setup) { return setup.definition.background_method == specified_background; }

constexpr BoxCheck type_boxes[] = {
    { "Text_line_azimuth", 0, "The line azimuth is not numeric", Limit::none, "", &Definition::line_azimuth, nullptr,
      &needs_azimuth },
    { "Text_inversion_background_value", 0, "The model background value is not numeric", Limit::none, "",
      &Definition::background_value, nullptr, &needs_background },
};

constexpr CheckGroup type_parameters = { type_boxes, &has_method<own_solver> };

constexpr BoxCheck gravity_v2_boxes[] = {
    { "Text_iterations", 0, "The number of iterations is not numeric", Limit::positive,
      "The number of iterations must be positive", &Definition::grav_iterations },
    { "Text_chi_factor", 0, "The Chi factor is not numeric", Limit::positive, "The Chi factor must be positive",
      &Definition::grav_chi_factor },
    { "Text_subspace", 0, "The Subspace size is not numeric", Limit::not_negative, "The Subspace size cannot be negative",
      &Definition::grav_subspace },
};

constexpr CheckGroup gravity_v2_parameters = { gravity_v2_boxes, &has_method<gravity_v2> };

bool not_gravity_v2(const Setup & setup) { return !has_method<gravity_v2>(setup); }
bool has_depth_weighting(const Setup & setup) { return setup.form("Option_depth_weighting_parameters", 1).on; }
bool has_wavelet(const Setup & setup) { return setup.form("Option_wavelet_parameters", 1).on; }
bool has_tolerance(const Setup & setup) { return setup.form["Text_inversion_tolc"].visible; }

std::string itol_fault(const Setup & setup, int)
{
    const std::string & text = setup.form["Text_wavelet_itol"].text;
    return text == "1" || text == "2" ? "" : "The itol parameter must be either 1 or 2";
}

// A negative znot is good: only beta has a limit.
constexpr BoxCheck solver_boxes[] = {
    { "Text_weighting_beta", 0, "The beta value is not numeric", Limit::positive, "The beta value must be positive",
      &Definition::weighting_beta, nullptr, &has_depth_weighting },
    { "Text_weighting_znot", 0, "The znot value is not numeric", Limit::none, "", &Definition::weighting_znot, nullptr,
      &has_depth_weighting },
    { "Text_wavelet_itol", 0, "", Limit::none, "", &Definition::wavelet_itol, &itol_fault, &has_wavelet },
    { "Text_wavelet_eps", 0, "The wavelet compression tolerance value is not numeric", Limit::positive,
      "The wavelet compression tolerance value must be positive", &Definition::wavelet_eps, nullptr, &has_wavelet },
    { "Text_inversion_par", 0, "The misfit/smoothness trade-off parameter is not numeric", Limit::positive,
      "The misfit/smoothness trade-off parameter must be positive", &Definition::trade_off },
    { "Text_inversion_tolc", 0, "The misfit tolerance value is not numeric", Limit::positive,
      "The misfit tolerance value must be positive", &Definition::misfit_tolerance, nullptr, &has_tolerance },
};

constexpr CheckGroup solver_parameters = { solver_boxes, &not_gravity_v2 };

bool reads_smallest_weight(const Setup & setup) { return !has_method<gravity_v3>(setup); }

// Zero passes in spite of the words.
constexpr BoxCheck alpha_boxes[] = {
    { "Text_alpha_s", 0, "The alpha s value is not numeric", Limit::not_negative, "The alpha s value must be positive",
      &Definition::alpha_s, nullptr, &reads_smallest_weight },
    { "Text_alpha_e", 0, "The alpha E value is not numeric", Limit::not_negative, "The alpha E value must be positive",
      &Definition::alpha_e },
    { "Text_alpha_n", 0, "The alpha N value is not numeric", Limit::not_negative, "The alpha N value must be positive",
      &Definition::alpha_n },
    { "Text_alpha_v", 0, "The alpha V value is not numeric", Limit::not_negative, "The alpha V value must be positive",
      &Definition::alpha_v },
};

bool has_alphas(const Setup & setup) { return setup.form("Option_alphas", 1).on; }

/// The box of the smallest weight counts here even for the solver that does not read it.
std::string alphas_fault(const Setup & setup)
{
    const bool all_zero =
        std::ranges::all_of(alpha_boxes, [&](const BoxCheck & check) { return box_number(setup, check.control) == 0; });
    return all_zero ? "The alpha values cannot all be zero" : "";
}

constexpr CheckGroup alphas = { alpha_boxes, &has_alphas, &alphas_fault };

/// A text that is no number leaves the limit to the solver.
std::string iteration_limit_fault(const Setup & setup, int)
{
    const std::string & text = setup.form["Text_max_iter"].text;
    return is_numeric(text) && leading_number(text) < 0 ? "The number of iterations is not valid" : "";
}

constexpr BoxCheck iteration_boxes[] = { { "Text_max_iter", 0, "", Limit::none, "", {}, &iteration_limit_fault } };
constexpr CheckGroup iteration_limit = { iteration_boxes, &has_method<own_solver> };

constexpr CheckGroup groups[] = { corrections,       error_terms,        magnetic_field, type_parameters, gravity_v2_parameters,
                                  solver_parameters, stored_error_terms, alphas,         iteration_limit };

}

std::span<const CheckGroup> parameter_groups() { return groups; }

Status check_mesh_limits(Setup & setup, Host & host)
{
    const Definition & definition = setup.definition;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const std::string letter(1, "xyz"[axis]);
        if (!(definition.mesh_min[axis] < definition.mesh_max[axis]))
            return refuse("Min " + letter + " mesh must be less than max", host);
        if (!(definition.mesh_cell_size[axis] > 0)) return refuse("Mesh " + letter + " cell size must be positive", host);
        if (definition.mesh_cells[axis] < 1) // one cell is enough, whatever the words say
            return refuse("Mesh " + letter + " must have more than one cell", host);
    }
    return Status::good;
}

Status take_padding_texts(Setup & setup, Host &)
{
    setup.definition.padding_multipliers = { setup.form("Text_padding_multipliers", 0).text,
                                             setup.form("Text_padding_multipliers", 1).text };
    return Status::good;
}

Status check_corrections(Setup & setup, Host & host) { return check_group(setup, corrections, host); }
Status check_error_boxes(Setup & setup, Host & host) { return check_group(setup, error_terms, host); }

Status derive_data_types(Setup & setup, Host & host)
{
    Definition & definition = setup.definition;
    if (definition.obs_data_type_count < 1) return refuse("No data types have been selected", host);
    definition.obs_data_type_count = 1;
    if (definition.inversion_method != own_solver) return Status::good;
    const auto first = definition.obs_data_types.begin(), end = first + 6;
    definition.obs_data_type_count =
        static_cast<std::int32_t>(std::find_if(first, end, [](std::int32_t code) { return code < 0; }) - first);
    for (std::size_t i = 0; i < static_cast<std::size_t>(definition.obs_data_type_count); ++i) {
        const DataType & type = data_type_of(definition.obs_data_types[i]);
        definition.data_type_names[i] = type.short_name;
        definition.matrix_files[i] = type.matrix_file;
    }
    return Status::good;
}

Status check_magnetic_field(Setup & setup, Host & host) { return check_group(setup, magnetic_field, host); }
Status check_type_parameters(Setup & setup, Host & host) { return check_group(setup, type_parameters, host); }

Status check_solver_parameters(Setup & setup, Host & host)
{
    if (check_group(setup, gravity_v2_parameters, host) != Status::good) return Status::bad;
    return check_group(setup, solver_parameters, host);
}

Status take_error_terms(Setup & setup, Host & host) { return check_group(setup, stored_error_terms, host); }
Status check_alphas(Setup & setup, Host & host) { return check_group(setup, alphas, host); }

Status check_iteration_limit(Setup & setup, Host & host)
{
    if (check_group(setup, iteration_limit, host) != Status::good) return Status::bad;
    if (!counts(setup, iteration_limit)) return Status::good;
    const std::string & text = setup.form["Text_max_iter"].text;
    if (text.find_first_not_of(' ') == std::string::npos) setup.definition.max_iterations = 0; // the solver's own limit
    if (is_numeric(text)) setup.definition.max_iterations = leading_count(text);
    return Status::good;
}
