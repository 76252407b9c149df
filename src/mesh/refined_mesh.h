#pragma once

#include "definition/definition.h"
#include "host/dialogs.h"
#include "mesh/tile_layout.h"
#include "mesh/ubc_mesh.h"
#include "support/status.h"

/// Builds the design mesh of a refined inversion: the limits, cell sizes and counts of the definition describe a volume inside
/// the core of `base`, outside which the cells of `base` stay as they are. The limits move to nodes of `base`, and the tiles are
/// laid out anew. Tile sizes that no overlap fits into are an `OverflowFault`.
///
/// Bad, after a message, when the volume does not lie in the core, has no cell on an axis or has tiles without a cell;
/// definition, mesh and layout are then as they were, but for depths below a zero top in inversion mode 4.
Status determine_refined_mesh(InversionDefinition & definition, const UbcMesh & base, UbcMesh & mesh, TileLayout & layout,
                              Dialogs & dialogs);
