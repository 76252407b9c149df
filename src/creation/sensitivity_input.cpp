#include "creation/solver_inputs.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/pattern.h"

namespace {

constexpr std::int32_t distance_weighting = 1; // of `depth_weighting_type`

/// The solvers count the weighting types from 1.
std::string weighting_type(const InversionDefinition & definition) { return general_text(definition.depth_weighting_type + 1); }

std::string weighting_parameters(const InversionDefinition & definition)
{
    if (definition.depth_weighting_mode != 1) return "null";
    return general_text(definition.weighting_znot) + " " + general_text(definition.weighting_beta);
}

/// The own solver's selector: the weighting type, how many components the matrices hold, the inversion mode.
std::string own_weighting_selector(const InversionDefinition & definition)
{
    const std::int32_t components =
        definition.obs_data_types[0] == 100 ? 3 : definition.obs_data_type_count + definition.calc_data_type_count;
    return weighting_type(definition) + " " + general_text(components) + " " + general_text(definition.inversion_mode);
}

std::string wavelet_name(const InversionDefinition & definition)
{
    const std::vector<ListItem> wavelets = wavelet_items();
    if (definition.wavelet_type < 0 || definition.wavelet_type >= static_cast<std::int32_t>(wavelets.size()))
        throw SubscriptFault("there is no wavelet type " + general_text(definition.wavelet_type));
    return wavelets[static_cast<std::size_t>(definition.wavelet_type)].text;
}

/// The name of the wavelet and its compression. Only the own solver knows a background topography.
Lines wavelet_lines(const InversionDefinition & definition, bool own_solver)
{
    const bool has_topo = own_solver && !is_missing(definition.background_topo);
    const std::string topo = has_topo ? " " + general_text(definition.background_topo) : "";
    if (definition.wavelet_mode == 1)
        return { wavelet_name(definition),
                 general_text(definition.wavelet_itol) + " " + general_text(definition.wavelet_eps) + topo };
    return { "daub2", has_topo ? "1 0.001" + topo : "null" };
}

std::string data_type_codes(const InversionDefinition & definition)
{
    if (definition.obs_data_types[0] == 100) return "20 21 22";
    std::string codes = general_text(definition.obs_data_types[0]);
    for (std::int32_t i = 1; i < definition.obs_data_type_count; ++i)
        codes += " " + general_text(definition.obs_data_types[static_cast<std::size_t>(i)]);
    for (std::int32_t i = 0; i < definition.calc_data_type_count; ++i)
        codes += " " + general_text(definition.calc_data_types[static_cast<std::size_t>(i)]);
    return codes;
}

/// Which way horizontal gradients are measured: degrees, only for the types that depend on it.
std::string gradient_direction(const InversionDefinition & definition)
{
    const std::int32_t type = definition.obs_data_types[0];
    if (type == 3 || type == 4) return " 0 " + format_number(definition.line_azimuth, "0.0");
    const PointTransform & transform = definition.coordinate_transform;
    if ((type == 5 || type == 6) && transform.in_use && transform.rotation != 0)
        return " 0 " + format_number(transform.rotation, "0.0");
    return "";
}

Lines own_sensitivity_lines(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    const Lines wavelet = wavelet_lines(definition, true);
    return {
        "mesh",
        creation.files().observed,
        topography_name(definition),
        own_weighting_selector(definition),
        weighting_parameters(definition),
        wavelet[0],
        wavelet[1],
        data_type_codes(definition) + gradient_direction(definition),
    };
}

Lines classic_sensitivity_lines(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    const Lines wavelet = wavelet_lines(definition, false);
    return {
        "mesh",
        creation.files().observed,
        topography_name(definition),
        weighting_type(definition),
        weighting_parameters(definition),
        wavelet[0],
        wavelet[1],
    };
}

/// Takes the weights that the weight program left behind.
Lines marked_sensitivity_lines(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    const Lines wavelet = wavelet_lines(definition, false);
    return {
        "mesh",
        creation.files().observed,
        topography_name(definition),
        definition.depth_weighting_type == distance_weighting ? "distance_weight.txt" : "depth_weight.txt",
        wavelet[0],
        wavelet[1],
        general_text(definition.output_debug),
    };
}

}

Lines weight_input_lines(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    return {
        creation.solver().weight_word, "mesh",
        creation.files().observed,     topography_name(definition),
        weighting_type(definition),    weighting_parameters(definition),
    };
}

Lines sensitivity_input_lines(const Creation & creation)
{
    switch (creation.solver().form) {
    case InputForm::own:
        return own_sensitivity_lines(creation);
    case InputForm::marked:
        return marked_sensitivity_lines(creation);
    default:
        return classic_sensitivity_lines(creation);
    }
}
