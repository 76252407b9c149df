#pragma once

#include "host/host.h"
#include "model/base_model.h"
#include "support/status.h"

/// Reads the mesh of `base.mesh_file`, in any of the layouts that a mesh file may have, and completes it; what was loaded before
/// is dropped first.
///
/// Sets `mesh_loaded` on success. Bad, after one message, when the file is no mesh or a faulty one. Foreign voxet and grid files
/// are left alone without a word: good, and nothing loaded; so is an empty file name. Nothing that the file says makes it take
/// memory which the size of the file does not justify.
Status read_mesh_file(BaseModel & base, Host & host);
