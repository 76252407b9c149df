#pragma once

#include "creation/creation.h"
#include "definition/enumerations.h"
#include "fakes/definition_values.h"

#include <algorithm>

/// A run whose every field differs from its neighbours in the files, so that an exchange shows. `run` and `changes` are what
/// the tables of cases say.
struct GivenCreation {
    InversionDefinition definition;
    InUse in_use;
    UbcMesh mesh;
    CreateMode mode = CreateMode::all;

    GivenCreation(const std::string & method, const std::string & type, const std::string & run = "",
                  const std::string & changes = "")
    {
        take_lines(
            "Inversion method: " + method + "; Obs data types: " + type +
                "; Inversion mode: 2; Trade-off parameter: 0.5; Maximum iterations: 25; Initial model: C:\\models\\start.sus;"
                "Reference model: ref.sus; Weighting model: weights.wt; Model Bounds: low.bnd; Model Upper Bounds: up.bnd;"
                "Rock Property Model: rock.csv; Alpha values: 0.0001 2 3 4.5; Depth weighting: 1 0 3 12.5 1;"
                "Wavelet definitions: 1 3 2 0.005; Number of Threads: 8; Output Debug Information: 1",
            definition);
        take_lines(changes, definition);
        for (std::size_t i = 0; i < definition.matrix_files.size(); ++i)
            if (const std::int32_t code = definition.obs_data_types[i]; code >= 0)
                definition.matrix_files[i] = data_type_of(code).matrix_file;
        const auto has = [&](const char * word) { return std::ranges::count(parts_of(run, ' '), word) > 0; };
        in_use = { .rock_properties = has("rock"),
                   .reference = !has("no-reference"),
                   .bounds = !has("no-bounds"),
                   .model_file = has("no-fast-form") };
        if (has("parameters")) mode = CreateMode::parameters;
        if (has("variation")) mode = CreateMode::variation;
        if (has("variation-data")) mode = CreateMode::variation_with_data;
        mesh.total_cells = { 10, 20, 30 };
    }

    Creation creation(const std::string & folder = "") const { return { definition, in_use, mesh, folder, mode }; }
};
