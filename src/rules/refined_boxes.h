#pragma once

#include "rules/setup.h"
#include "support/status.h"

// The part of the mesh boxes that only a refined inversion has.

/// Takes tile sizes, overlap and blends from their boxes into the record.
void take_tile_boxes(Setup & setup);

/// Moves both limits of x (0) or y (1) in the record to nodes of the design mesh.
void snap_to_nodes(Setup & setup, int axis);

/// Builds the refined design mesh and its tiles from the record, and shows the numbers of tiles. Skipped tiles, their order and
/// the selection are taken back. Bad, after a message, when there is no base mesh or the volume does not lie in its core.
Status build_refined_mesh(Setup & setup, Host & host);

/// Shows how many tiles the overlap in its box would make. The tiles themselves stay as they were built.
void recount_tiles(Setup & setup);

/// Shows the numbers of tiles.
void show_tile_counts(Setup & setup, const TileLayout & layout);

/// Bad, after a message, when the refined volume of a record ends above the lowest ground that is known. The own solver has no
/// such limit.
Status check_refined_bottom(Setup & setup, Host & host);
