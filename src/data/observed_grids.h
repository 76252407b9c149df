#pragma once

#include "data/observed_data.h"
#include "data/topography.h"
#include "definition/definition.h"
#include "host/host.h"
#include "mesh/ubc_mesh.h"
#include "support/status.h"

/// Takes the observed data from one to three grids: a reading at the centre of each surface cell where the first grid has a
/// value, the outermost four cells of a padded mesh aside. The other grids' values may be missing. A sensor grid, where one is
/// named, adds to the elevations, and cells where it has no value lose their reading; they stay in `selected_count`.
///
/// selected: empty and sized to the mesh. shifts: the readings that the least height above the ground lifted; it is held to with
/// a sensor grid only.
///
/// Bad after one message when a grid cannot be used. A working copy is gone in every case.
Status select_grid_readings(const InversionDefinition & definition, const UbcMesh & mesh, const TopoSurface & topo,
                            SelectedData & selected, Shifts & shifts, Host & host);
