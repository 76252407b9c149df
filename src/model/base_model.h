#pragma once

#include "mesh/ubc_mesh.h"
#include "model/ubc_model.h"

#include <optional>
#include <string>

/// What a refined inversion starts from: a mesh read from a file, and the model on it when there is one.
struct BaseModel {
    std::string mesh_file, model_file; ///< definition paths
    bool mesh_loaded = false;
    UbcMesh mesh;
    UbcModel model;
    std::optional<float> ground_bottom; ///< lowest elevation of the ground, of the mesh's topography or of the model's top
};

/// Drops mesh and model, as `reset_model` does; the names of the files stay.
void reset_mesh(BaseModel & base);
