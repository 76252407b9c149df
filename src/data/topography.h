#pragma once

#include "data/observed_data.h"
#include "data/triangulation.h"
#include "definition/definition.h"
#include "host/host.h"
#include "mesh/ubc_mesh.h"
#include "support/list.h"
#include "support/status.h"

/// The ground: a triangulated surface, and what it means for each surface column of the mesh. x varies fastest in the lists.
struct TopoSurface {
    std::int32_t point_count = 0; ///< data and frame points; 0 while there is no surface
    std::int32_t frame_count = 0;
    Triangulation triangulation;
    List<float> cell_topo;        ///< elevation at each cell centre
    List<std::int32_t> air_cells; ///< cells of each column above the ground
    List<float> node_topo;        ///< elevation at each mesh node; for the own solver only
};

/// Makes the surface from the points in the mesh and up to one edge cell around it, and from a ring of points at their mean
/// elevation around the mesh; dummy elevations do not count.
///
/// Bad, after a message, with fewer than 5 points or all on one line, or on a run-time fault; `topo` is then as it was.
Status interpolate_topo_points(const ObservedData & points, const InversionDefinition & definition, const UbcMesh & mesh,
                               TopoSurface & topo, Host & host);

/// Marks air cells in the cell model (cells numbered x fastest, then y, then z from the top; -1.0 is air) and lifts readings that
/// would lie less than 0.1 m above the ground's cells. Without a surface the mesh top is the ground. The own solver's readings
/// stay.
Status process_inversion_topo(const InversionDefinition & definition, const UbcMesh & mesh, const TopoSurface & topo,
                              SelectedData & selected, List<float> & cell_model, Host & host);

/// Which columns of the mesh go into a topography file: node numbers, so the last are past the last cell.
struct TopoWindow {
    std::int32_t first_column = 1, end_column = 1;
    std::int32_t first_row = 1, end_row = 1;
    bool edges_on_nodes = false; ///< outermost columns and rows stand at the window's edges instead of their cells' centres
};

/// All columns of a mesh.
TopoWindow whole_topography(const UbcMesh & mesh);

/// Writes "topo.dat" for a window of the mesh. Fails with a `FileFault`.
void write_topo_file(const std::string & path, const InversionDefinition & definition, const UbcMesh & mesh,
                     const TopoSurface & topo, const TopoWindow & window, Host & host);
