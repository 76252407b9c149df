#pragma once

#include "host/dialogs.h"
#include "mesh/ubc_mesh.h"
#include "support/status.h"

/// Nodes, centres, padding cells and core sizes of a mesh that has its counts, widths, origin and format.
/// Bad, after a message, when a width is not above 0; the count of that axis is then 0.
Status complete_mesh(UbcMesh & mesh, Dialogs & dialogs);
