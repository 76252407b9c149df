#pragma once

#include "definition/enumerations.h"
#include "definition/validated_definition.h"
#include "mesh/ubc_mesh.h"

/// What a creation run produces.
enum class CreateMode { all = 0, parameters = 1, variation = 2, variation_with_data = 3 };

/// What the writers of one run share.
struct Creation {
    const ValidatedDefinition & definition;
    const UbcMesh & mesh;
    std::string folder; ///< with a "\" at its end
    CreateMode mode = CreateMode::all;
    std::string path_prefix;   ///< "..\" in a variation, whose shared files lie in the parent folder
    std::string thread_suffix; ///< a blank and the thread count, set by the weight-program input; otherwise empty

    bool is_variation() const { return mode == CreateMode::variation || mode == CreateMode::variation_with_data; }
};

/// True when a model field names a file: not empty, not "NULL" in any case and not a number.
bool is_model_file(const std::string & field);
/// True when "w.dat" belongs to the inversion.
bool has_weighting_file(const InversionDefinition & definition);
