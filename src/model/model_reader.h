#pragma once

#include "host/host.h"
#include "model/base_model.h"
#include "support/status.h"

/// Reads the model of `base.model_file` over the loaded mesh: values in internal units, nulls at -1e32, range and sign.
/// topo_file: a topography file is defined, so that a mesh with a topography of its own keeps it as the ground.
///
/// The text or binary file may have any of the forms that `read_model_values` knows. Without a topography of its own the mesh
/// takes the tops of the columns' first values for its ground. In a mesh of earth, sea and air the upper two become padding.
///
/// Sets `model_loaded` on success. Bad, after one message, when it cannot be read, or a value is beyond a float in internal
/// units; no model is loaded then.
Status read_model_file(BaseModel & base, bool topo_file, Host & host);
