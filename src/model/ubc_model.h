#pragma once

#include "support/list.h"

#include <cstdint>
#include <string>

/// A model: one value per cell of a mesh that stands beside it.
struct UbcModel {
    List<float> model_values;    ///< internal units; cells x fastest, then y, then z from the top; -1e32 is null
    std::int32_t model_type = 1; ///< kind of model; 2 and 3 have their own scales, 6 and 8 are inverted in files
    float model_scale = 1000000; ///< internal units per file unit
    float model_null = -1;       ///< null threshold of the file
    std::string model_units = "SIx10^-6";
    std::int32_t model_file_order = 1; ///< order of the values in a text file
    float model_min = 1e32F, model_max = -1e32F;
    std::int32_t model_sign = 1; ///< 1 mixed, 2 all positive, 3 all negative
    std::string model_format_pattern;
    bool model_loaded = false;
};

/// Drops the values and restores the defaults; scale and units follow the type, which stays. Deletes a leftover "~model.tmp" in
/// the current folder.
void reset_model(UbcModel & model);
