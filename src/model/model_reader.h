#pragma once

#include "host/host.h"
#include "model/base_model.h"
#include "support/status.h"

/// Reads the values of a model file over a mesh as the file holds them. order: as `UbcModel::model_file_order`.
///
/// Text of one value per cell, text of several components per cell (the user is asked which), or the small binary form.
/// Bad after a message, and without one when the user is asked for a component and gives none; `values` is then as it was. The
/// file's size is looked at before memory for the cells is taken.
Status read_model_values(const std::string & path, std::int32_t order, float model_null, const UbcMesh & mesh,
                         List<float> & values, Host & host);

/// Reads the model of `base.model_file` over the loaded mesh: values in internal units, nulls at -1e32, range and sign.
/// topo_file: a topography file is defined, so that a mesh with a topography of its own keeps it as the ground.
///
/// Sets `model_loaded` on success. Bad, after one message, when it cannot be read; no model is loaded then.
Status read_model_file(BaseModel & base, bool topo_file, Host & host);
