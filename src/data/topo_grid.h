#pragma once

#include "data/topography.h"

/// Makes the surface from the definition's topography grid: its values at the centres of the mesh's cells and at the mesh's
/// edges, or at every node and centre for the own solver, with the topography offset added, and a frame as around points. A
/// transform turns positions only: elevations stay as the grid gives them.
///
/// Every column has one air cell, except under the one method that counts them by the ground.
///
/// Bad, after a message, when the grid cannot be used, with fewer than 5 values or all on one line, or on a run-time fault;
/// `topo` is then as it was.
Status load_topo_grid(const InversionDefinition & definition, const UbcMesh & mesh, TopoSurface & topo, Host & host);
