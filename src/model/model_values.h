#pragma once

#include "host/host.h"
#include "mesh/ubc_mesh.h"
#include "support/list.h"
#include "support/status.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// How the text of a model is shared out. The result does not depend on it.
struct ValueShares {
    std::size_t part_size = std::size_t{ 1 } << 17; ///< bytes read at a time; a part stays in the nearer caches
    unsigned threads = 0;                           ///< 0: as many as are worth it
};

/// Reads the values of a model file over a mesh as the file holds them. order: as `UbcModel::model_file_order`.
///
/// Text of one value per cell, text of several components per cell (the user is asked which), or the small binary form, told by
/// its first bytes. Values are told apart in the same way with any line ends: by blanks, tabs, line ends, and single commas,
/// semicolons and apostrophes. What stands behind the last cell's value is not looked at.
///
/// Bad after one message, and without one when the user is asked for a component and gives none; `values` is then as it was. The
/// file's size is looked at before memory for the cells is taken.
Status read_model_values(const std::string & path, std::int32_t order, float model_null, const UbcMesh & mesh,
                         List<float> & values, Host & host, const ValueShares & shares = {});
