#pragma once

#include "host/dialogs.h"
#include "mesh/ubc_mesh.h"
#include "support/status.h"

/// Nodes, centres, padding cells and core sizes of a mesh that has its counts, widths, origin and format.
///
/// A padding cell is at least 1.2 times as wide as its inner neighbour; they are looked for from the ends inwards, at most four
/// an end, on axes of seven cells or more. Where the format is neither 0 nor 5 the air cells are the padding at the top.
/// Bad, after a message, when a width is not above 0; the count of that axis is then 0. Fails with an `OverflowFault` when a
/// node lies beyond a double.
Status complete_mesh(UbcMesh & mesh, Dialogs & dialogs);
