#pragma once

#include "host/dialogs.h"
#include "support/status.h"

#include <cstdint>
#include <string>

/// Writes a cell weighting file: `list` names, from the top cell down, the horizontal smoothness weights; all else is 1.
/// Bad, after a message, when the list is not one of numbers above 0. Fails with a `FileFault`.
Status write_weighting_file(const std::string & list, const std::string & path, std::int32_t cells_x, std::int32_t cells_y,
                            std::int32_t cells_z, Dialogs & dialogs);
