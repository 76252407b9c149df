#pragma once

#include "mesh/ubc_mesh.h"
#include "support/file_writer.h"

#include <optional>
#include <string>

/// A window of the mesh in node numbers: a range has last - first cells.
struct NodeWindow {
    std::int32_t x_first = 1, x_last = 1;
    std::int32_t y_first = 1, y_last = 1;
    std::int32_t z_first = 1, z_last = 1;
};

/// All nodes of a mesh.
NodeWindow whole_mesh(const UbcMesh & mesh);

/// What stands behind the widths in a mesh file that carries more than widths.
struct MeshExtension {
    std::int32_t format = 0;
    float drape_top = 0, drape_bottom = 0; ///< written for format 5 when top is above bottom
    std::int32_t air_cells = 0, sea_cells = 0;
    const List<float> * topo_nodes = nullptr;       ///< an elevation per node of the mesh, x fastest
    const List<double> * trapezoid_nodes = nullptr; ///< a pair of positions per node of the mesh, x fastest, the pair together
};

/// Writes a UBC mesh file. skip_xy: the form of a tile, without the counts, positions and widths in x and y.
/// Fails with a `FileFault`.
void write_mesh_file(const std::string & path, const UbcMesh & mesh, const NodeWindow & window, bool skip_xy,
                     const std::optional<MeshExtension> & extension);

/// The blocks of a mesh file that go by surface nodes: elevations, and pairs of positions, at the nodes of the window.
void write_topography(FileWriter & file, const UbcMesh & mesh, const NodeWindow & window, const List<float> & topo);
void write_trapezoids(FileWriter & file, const UbcMesh & mesh, const NodeWindow & window, const List<double> & pairs);
