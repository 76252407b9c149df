#pragma once

#include "host/dialogs.h"
#include "mesh/ubc_mesh.h"
#include "model/mesh_text.h"

#include <array>

/// A mesh file being read into a mesh. The procedures that read its parts give bad after they have shown one message.
struct MeshReading {
    MeshText & text;
    UbcMesh & mesh;
    Dialogs & dialogs;
    bool drape_read = false; ///< the file says where the drape lies

    /// Shows why the file cannot be used.
    Status refuse(const std::string & why);
    /// Bad when an axis cannot have that many cells: none at all, or more than the file could ever describe.
    Status check_cells(std::int32_t count);
    /// Sets the three counts and makes room for widths, all 0. Fails with an `OverflowFault` when their product is beyond 32
    /// bits.
    Status set_cells(const std::array<std::int32_t, 3> & cells);
    /// Surface nodes of the mesh. Fails when a table of `values` numbers at each is more than the file could ever fill.
    std::int32_t surface_nodes(std::int32_t values) const;
};

/// The mesh of three counts, an origin and widths, with what may stand behind them. nodes: positions stand for the widths, and
/// no origin. The current line is the one of the counts.
Status read_ubc_mesh(MeshReading & reading, bool nodes);
/// The mesh of two sections, x and z, that the file describes by segments of equal cells, from its start. y gets three cells.
Status read_section_mesh(MeshReading & reading);
/// The mesh of earth, sea and air layers over a grid of surface nodes. The line of the counts is the next one.
Status read_layered_mesh(MeshReading & reading);
/// The header of an inversion file, of which no more than the counts is known. The current line is the first of the counts.
Status read_inversion_header(MeshReading & reading);

/// The widths of the three axes, from tokens.
Status read_widths(MeshReading & reading);
/// The same, and the origin, from the positions of nodes. z: only the first width is true where there are more.
Status read_node_positions(MeshReading & reading);
/// What stands behind the widths: the format, drape, air and sea cells, topography and trapezoid nodes.
Status read_mesh_trailer(MeshReading & reading);
