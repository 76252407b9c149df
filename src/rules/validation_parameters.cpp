#include "definition/enumerations.h"
#include "rules/box_checks.h"
#include "rules/validation_steps.h"
#include "support/numbers.h"

#include <algorithm>

namespace {

using Definition = InversionDefinition;

constexpr std::int32_t gravity_v2 = 1, gravity_v3 = 2, own_solver = 4;
constexpr std::int32_t specified_background = 2;

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

constexpr BoxCheck error_boxes[] = {
    { "Text_percent_error", 0, "The percent error field is not numeric", Limit::not_negative,
      "The percent error field must be positive" },
    { "Text_error_floor", 0, "The error floor field is not numeric", Limit::not_negative,
      "The error floor field must be non-negative" },
};

// The same boxes once more, in the other order: this time they are stored.
constexpr BoxCheck stored_error_boxes[] = {
    { "Text_error_floor", 0, "The error floor is not valid", Limit::not_negative, "The error floor cannot be negative",
      &Definition::error_floor },
    { "Text_percent_error", 0, "The error percent is not valid", Limit::not_negative, "The error percent cannot be negative",
      &Definition::error_percent },
};

constexpr BoxCheck magnetic_boxes[] = {
    { "Text_mag_inclination", 0, "The mag inclination is not numeric", Limit::none, "", &Definition::mag_inclination },
    { "Text_mag_declination", 0, "The mag declination is not numeric", Limit::none, "", &Definition::mag_declination },
    { "Text_mag_intensity", 0, "The mag intensity is not numeric", Limit::positive, "The mag intensity must be positive",
      &Definition::mag_intensity },
};

constexpr BoxCheck azimuth_box = { "Text_line_azimuth", 0,  "The line azimuth is not numeric",
                                   Limit::none,         "", &Definition::line_azimuth };
constexpr BoxCheck background_box = {
    "Text_inversion_background_value", 0, "The model background value is not numeric", Limit::none, "",
    &Definition::background_value
};

constexpr BoxCheck gravity_v2_boxes[] = {
    { "Text_iterations", 0, "The number of iterations is not numeric", Limit::positive,
      "The number of iterations must be positive", &Definition::grav_iterations },
    { "Text_chi_factor", 0, "The Chi factor is not numeric", Limit::positive, "The Chi factor must be positive",
      &Definition::grav_chi_factor },
    { "Text_subspace", 0, "The Subspace size is not numeric", Limit::not_negative, "The Subspace size cannot be negative",
      &Definition::grav_subspace },
};

// A negative znot is good: only beta has a limit.
constexpr BoxCheck depth_weighting_boxes[] = {
    { "Text_weighting_beta", 0, "The beta value is not numeric", Limit::positive, "The beta value must be positive",
      &Definition::weighting_beta },
    { "Text_weighting_znot", 0, "The znot value is not numeric", Limit::none, "", &Definition::weighting_znot },
};

constexpr BoxCheck wavelet_box = { "Text_wavelet_eps",
                                   0,
                                   "The wavelet compression tolerance value is not numeric",
                                   Limit::positive,
                                   "The wavelet compression tolerance value must be positive",
                                   &Definition::wavelet_eps };
constexpr BoxCheck trade_off_box = { "Text_inversion_par",
                                     0,
                                     "The misfit/smoothness trade-off parameter is not numeric",
                                     Limit::positive,
                                     "The misfit/smoothness trade-off parameter must be positive",
                                     &Definition::trade_off };
constexpr BoxCheck tolerance_box = { "Text_inversion_tolc",
                                     0,
                                     "The misfit tolerance value is not numeric",
                                     Limit::positive,
                                     "The misfit tolerance value must be positive",
                                     &Definition::misfit_tolerance };

// Zero passes in spite of the words. The first row does not exist for the solver that takes no smallest weight.
constexpr BoxCheck alpha_boxes[] = {
    { "Text_alpha_s", 0, "The alpha s value is not numeric", Limit::not_negative, "The alpha s value must be positive",
      &Definition::alpha_s },
    { "Text_alpha_e", 0, "The alpha E value is not numeric", Limit::not_negative, "The alpha E value must be positive",
      &Definition::alpha_e },
    { "Text_alpha_n", 0, "The alpha N value is not numeric", Limit::not_negative, "The alpha N value must be positive",
      &Definition::alpha_n },
    { "Text_alpha_v", 0, "The alpha V value is not numeric", Limit::not_negative, "The alpha V value must be positive",
      &Definition::alpha_v },
};

Status check_wavelet(Setup & setup, Host & host)
{
    const std::string & itol = setup.form["Text_wavelet_itol"].text;
    if (itol != "1" && itol != "2") return refuse("The itol parameter must be either 1 or 2", host);
    setup.definition.wavelet_itol = itol == "1" ? 1.0F : 2.0F;
    return check_box(setup, wavelet_box, host);
}

bool needs_magnetic_field(const Definition & definition)
{
    if (definition.inversion_method != own_solver)
        return inversion_method_of(definition.inversion_method).family == MethodFamily::magnetic;
    return class_of_data_type(definition.obs_data_types[0]) == DataClass::magnetic;
}

}

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

Status check_corrections(Setup & setup, Host & host) { return check_boxes(setup, correction_boxes, host); }

Status check_error_boxes(Setup & setup, Host & host)
{
    if (check_boxes(setup, error_boxes, host) != Status::good) return Status::bad;
    if (both_error_terms_zero(setup)) return refuse("The percent error and error floor fields cannot both be zero", host);
    return Status::good;
}

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

Status check_magnetic_field(Setup & setup, Host & host)
{
    return needs_magnetic_field(setup.definition) ? check_boxes(setup, magnetic_boxes, host) : Status::good;
}

Status check_type_parameters(Setup & setup, Host & host)
{
    const Definition & definition = setup.definition;
    if (definition.inversion_method != own_solver) return Status::good;
    const std::int32_t type = definition.obs_data_types[0];
    if ((type == 3 || type == 4) && check_box(setup, azimuth_box, host) != Status::good) return Status::bad;
    if (definition.background_method != specified_background) return Status::good;
    return check_box(setup, background_box, host);
}

Status check_solver_parameters(Setup & setup, Host & host)
{
    if (setup.definition.inversion_method == gravity_v2) return check_boxes(setup, gravity_v2_boxes, host);
    if (setup.form("Option_depth_weighting_parameters", 1).on && check_boxes(setup, depth_weighting_boxes, host) != Status::good)
        return Status::bad;
    if (setup.form("Option_wavelet_parameters", 1).on && check_wavelet(setup, host) != Status::good) return Status::bad;
    if (check_box(setup, trade_off_box, host) != Status::good) return Status::bad;
    return setup.form["Text_inversion_tolc"].visible ? check_box(setup, tolerance_box, host) : Status::good;
}

Status take_error_terms(Setup & setup, Host & host)
{
    if (check_boxes(setup, stored_error_boxes, host) != Status::good) return Status::bad;
    if (both_error_terms_zero(setup)) return refuse("The error percent and floor vallues cannot both be zero", host);
    return Status::good;
}

Status check_alphas(Setup & setup, Host & host)
{
    if (!setup.form("Option_alphas", 1).on) return Status::good;
    const std::span<const BoxCheck> all = alpha_boxes;
    const bool without_smallest = setup.definition.inversion_method == gravity_v3;
    if (check_boxes(setup, without_smallest ? all.subspan(1) : all, host) != Status::good) return Status::bad;
    // The box of the smallest weight counts here even for the solver that does not read it.
    const bool all_zero = std::ranges::all_of(all, [&](const BoxCheck & check) { return box_number(setup, check.control) == 0; });
    return all_zero ? refuse("The alpha values cannot all be zero", host) : Status::good;
}

Status check_iteration_limit(Setup & setup, Host & host)
{
    if (setup.definition.inversion_method != own_solver) return Status::good;
    const std::string & text = setup.form["Text_max_iter"].text;
    if (text.find_first_not_of(' ') == std::string::npos) setup.definition.max_iterations = 0; // the solver's own limit
    if (!is_numeric(text)) return Status::good;
    if (leading_number(text) < 0) return refuse("The number of iterations is not valid", host);
    setup.definition.max_iterations = leading_count(text);
    return Status::good;
}
