#include "creation/inversion_input.h"

#include "support/numbers.h"
#include "support/paths.h"
#include "support/pattern.h"
#include "support/text.h"

#include <cmath>

namespace {

// -- weights of the model norm

std::string joined(float a, float b, float c) { return general_text(a) + " " + general_text(b) + " " + general_text(c); }

/// The first solver drops the vertical weight where all others drop the smallest.
std::string alphas_of_first_solver(const InversionDefinition & definition)
{
    if (definition.alpha_mode == 1 && definition.alpha_method > 0)
        return joined(definition.alpha_s, definition.alpha_e, definition.alpha_n);
    return alpha_line(definition);
}

// -- the own solver's positivity

/// -1 negative, 0 unconstrained, 1 positive, 2 logarithmic. The blank is the place of the sign, so that -1 stands glued to
/// the number before it.
std::string positivity(const InversionDefinition & definition)
{
    if (definition.positivity >= 1) return format_number(definition.positivity - 2, " 0");
    const std::int32_t type = definition.obs_data_types[0];
    return type == 100 || type == 1 || type == 30 ? " 1" : " 0";
}

// -- model fields: files, values or "null"

/// A file of the shared folder is one that is named without a folder.
std::string shared_file(const Creation & creation, const std::string & field)
{
    return field.find('\\') == std::string::npos ? creation.path_prefix() + field : field;
}

/// A field that is no file. null_value: what a solver that wants marked values gets for "null".
std::string value_of(const Creation & creation, const std::string & field, const char * null_value)
{
    if (creation.solver().form != InputForm::marked) return field;
    return std::string("VALUE ") + (same_text(field, "NULL") ? null_value : field);
}

std::string initial_model(const Creation & creation)
{
    const std::string & field = creation.definition.initial_model;
    if (is_model_file(field)) return creation.path_prefix() + file_name_of_path(field);
    return value_of(creation, field, "0.0");
}

std::string reference_model(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    if (!creation.in_use.reference) return creation.solver().form == InputForm::marked ? "VALUE 0.0" : "null";
    if (creation.in_use.rock_properties && definition.rock_property_application != 2)
        return creation.path_prefix() + creation.solver().rock_reference;
    if (is_model_file(definition.reference_model)) return shared_file(creation, definition.reference_model);
    return value_of(creation, definition.reference_model, "0.0");
}

/// The one bounds line, or none at all.
Lines bounds(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    if (!creation.solver().has_bounds) return {};
    if (!creation.in_use.bounds) return { "null" };
    if (creation.in_use.rock_properties && definition.rock_property_application != 1)
        return { creation.path_prefix() + creation.files().rock_bounds };
    const std::string & field = definition.model_bounds[0];
    // Only the own solver is sent to the parent folder for its bounds.
    if (creation.solver().form == InputForm::own && is_model_file(field)) return { shared_file(creation, field) };
    return { field };
}

/// A lower or upper bound of the solvers that always want both, in use or not.
std::string marked_bound(const Creation & creation, const std::string & field, const char * null_value)
{
    return is_model_file(field) ? shared_file(creation, field) : value_of(creation, field, null_value);
}

// -- iterations and the field's direction

constexpr double radians_per_degree = 0.017453292; // to these digits, as the transform has it

/// Unit vector of the earth's field, x east, y north, z down, and the norm to use.
std::string field_direction(const InversionDefinition & definition)
{
    const double inclination = definition.mag_inclination * radians_per_degree;
    const double declination = definition.mag_declination * radians_per_degree;
    return "3 1,1," + format_number(std::cos(inclination) * std::sin(declination), "0.0000") + " 2,1," +
           format_number(std::cos(inclination) * std::cos(declination), "0.0000") + " 3,1," +
           format_number(std::sin(inclination), "0.0000") + " RMS";
}

/// The end of the input. Three-component data always state a count of iterations, if need be the solver's own 300.
Lines iterations(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    const std::string count = general_text(definition.max_iterations);
    if (definition.obs_data_types[0] == 100)
        return { definition.max_iterations >= 1 ? count : "300", field_direction(definition) };
    if (creation.solver().form == InputForm::own && definition.max_iterations >= 1) return { count };
    return {};
}

// -- the own solver's lines

std::string own_first_line(const InversionDefinition & definition, SolverStart start)
{
    if (definition.obs_data_types[0] == 100) return start_flag(start) + " 3 1 1";
    return start_flag(start) + " " + general_text(definition.obs_data_type_count);
}

/// A variation with new data has them in its own folder.
std::string own_observed(const Creation & creation)
{
    return (creation.mode == CreateMode::variation_with_data ? "" : creation.path_prefix()) + creation.files().observed;
}

/// Those of three-component data are one text, which never points to the parent folder.
std::string own_matrices(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    if (definition.obs_data_types[0] == 100) return definition.matrix_files[0];
    return own_matrix_list(definition, creation.path_prefix());
}

// -- the whole inputs

Lines own_lines(const Creation & creation, SolverStart start)
{
    const InversionDefinition & definition = creation.definition;
    Lines lines = {
        own_first_line(definition, start),
        background_line(definition),
        own_trade_off_line(definition),
        own_observed(creation),
        own_matrices(creation),
        initial_model(creation),
        reference_model(creation),
    };
    append(lines, bounds(creation));
    append(lines, { alpha_line(definition), weighting_line(definition), "0" });
    append(lines, iterations(creation));
    return lines;
}

Lines classic_lines(const Creation & creation, SolverStart start)
{
    const InversionDefinition & definition = creation.definition;
    const std::string prefix = creation.path_prefix();
    Lines lines = {
        start_flag(start),
        inversion_mode_line(definition),
        trade_off_line(definition),
        prefix + creation.files().observed,
        prefix + creation.solver().inversion + ".mtx",
        initial_model(creation),
        reference_model(creation),
    };
    append(lines, bounds(creation));
    append(lines, { alpha_line(definition), weighting_line(definition), "0" });
    append(lines, iterations(creation));
    return lines;
}

Lines marked_lines(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    const std::string prefix = creation.path_prefix();
    Lines lines = {
        inversion_mode_line(definition),
        trade_off_line(definition),
        prefix + creation.files().observed,
        prefix + creation.solver().inversion + ".mtx",
        initial_model(creation),
        reference_model(creation),
        "null",
        marked_bound(creation, definition.model_bounds[0], "-2.0"),
        marked_bound(creation, definition.model_bounds[1], "2.0"),
        alpha_line(definition),
        definition.smoothness_method == 1 ? "SMOOTH_MOD_DIF" : "SMOOTH_MOD",
        weighting_line(definition),
    };
    append(lines, iterations(creation));
    return lines;
}

}

std::string start_flag(SolverStart start) { return start == SolverStart::restart ? "1" : "0"; }

std::string inversion_mode_line(const InversionDefinition & definition) { return general_text(definition.inversion_mode + 1); }

/// Each number brings its own sign place, so two blanks stand between positive ones.
std::string trade_off_line(const InversionDefinition & definition)
{
    return str_text(definition.trade_off) + " " + str_text(definition.misfit_tolerance);
}

/// Given as lengths there are only the last three.
std::string alpha_line(const InversionDefinition & definition)
{
    if (definition.alpha_mode != 1) return "null";
    const std::string directions = joined(definition.alpha_e, definition.alpha_n, definition.alpha_v);
    return definition.alpha_method > 0 ? directions : general_text(definition.alpha_s) + " " + directions;
}

std::string weighting_line(const InversionDefinition & definition)
{
    return has_weighting_file(definition) ? "w.dat" : definition.weighting_model;
}

std::string background_line(const InversionDefinition & definition)
{
    return "2 " + general_text(definition.background_method) + " " + format_number(definition.background_value, "0.0000");
}

std::string own_trade_off_line(const InversionDefinition & definition)
{
    std::string line = trade_off_line(definition) + positivity(definition);
    if (definition.data_integration_time > 0) line += " " + str_text(definition.data_integration_time);
    return line;
}

std::string own_matrix_list(const InversionDefinition & definition, const std::string & folder)
{
    if (definition.obs_data_type_count < 2) return folder + "qvinv3d.mtx";
    std::string matrices = folder + definition.matrix_files[0];
    for (std::int32_t i = 1; i < definition.obs_data_type_count; ++i)
        matrices += "|" + folder + definition.matrix_files[static_cast<std::size_t>(i)];
    return matrices;
}

/// The first solver's input names local files even in a variation, and its iterations are not `grav_iterations`.
Lines first_solver_lines(const Creation & creation, SolverStart start, const std::string & bounds)
{
    const InversionDefinition & definition = creation.definition;
    return {
        start_flag(start) + " " + general_text(definition.max_iterations),
        format_number(definition.grav_chi_factor, "0.000"),
        general_text(definition.positivity),
        general_text(definition.grav_subspace),
        "mesh",
        topography_name(definition),
        "gzinv3d.mtx",
        "grav.obs",
        file_name_of_path(definition.initial_model),
        file_name_of_path(definition.reference_model),
        alphas_of_first_solver(definition),
        definition.weighting_model,
        bounds,
        "0",
    };
}

Lines inversion_input_lines(const Creation & creation, SolverStart start)
{
    switch (creation.solver().form) {
    case InputForm::first:
        return first_solver_lines(creation, start, creation.definition.model_bounds[0]);
    case InputForm::classic:
        return classic_lines(creation, start);
    case InputForm::marked:
        return marked_lines(creation);
    default:
        return own_lines(creation, start);
    }
}
