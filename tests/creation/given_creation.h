#pragma once

#include "creation/creation.h"
#include "fakes/temporary_folder.h"

/// A run whose every field differs from its neighbours in the files, so that an exchange shows.
struct GivenCreation {
    InversionDefinition definition;
    InUse in_use = { .reference = true, .bounds = true };
    UbcMesh mesh;
    CreateMode mode = CreateMode::all;

    GivenCreation(std::int32_t method, std::int32_t data_type)
    {
        definition.inversion_method = method;
        definition.obs_data_types[0] = data_type;
        definition.inversion_mode = 2;
        definition.trade_off = 0.5F;
        definition.max_iterations = 25;
        definition.initial_model = R"(C:\models\start.sus)";
        definition.reference_model = "ref.sus";
        definition.weighting_model = "weights.wt";
        definition.model_bounds = { "low.bnd", "up.bnd" };
        definition.rock_property_file = "rock.csv";
        definition.smoothness_method = 1;
        definition.alpha_e = 2;
        definition.alpha_n = 3;
        definition.alpha_v = 4.5F;
        definition.depth_weighting_mode = 1;
        definition.weighting_znot = 12.5F;
        definition.wavelet_itol = 2;
        definition.wavelet_eps = 0.005F;
        definition.num_threads = 8;
        definition.output_debug = 1;
        mesh.total_cells = { 10, 20, 30 };
    }

    Creation creation(const std::string & folder = "") const { return { definition, in_use, mesh, folder, mode }; }
};

/// The lines with "/" between them: no line of these files holds one.
inline std::string joined(const Lines & lines)
{
    std::string text;
    for (const std::string & line : lines) text += (text.empty() ? "" : "/") + line;
    return text;
}
