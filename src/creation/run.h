#pragma once

#include "creation/creation.h"
#include "data/observed_processing.h"
#include "data/topography.h"
#include "host/host.h"
#include "mesh/expanded_mesh.h"
#include "model/mesh_file.h"
#include "model/model_window.h"
#include "support/fault.h"

#include <optional>

/// What a phase has found to be wrong after its own message: ends the run with nothing to add.
struct PhaseFailed {};

/// Ends the phase unless what it called went well.
inline void require(Status status)
{
    if (status == Status::stopped) throw Stopped();
    if (status == Status::bad) throw PhaseFailed();
}

/// One run: what is written, and the work tables, which are sized once and go with it.
struct Run {
    Creation creation;
    const InversionDefinition & definition;
    const UbcMesh & mesh;
    Host & host;
    TopoSurface topo = {};
    List<float> cell_model = {}; ///< cells x fastest, then y, then z from the top
    ObservedReadings readings = {};
    ExpandedMesh expanded = {}; ///< of the tile that is being written
    ColumnPlaces refined = {};  ///< of the refined model's file

    std::string file(const std::string & name) const { return creation.folder + name; }
    std::string tile_file(Tile tile, const std::string & name) const { return creation.folder + tile_name(tile) + "\\" + name; }
    bool is_tiled() const { return creation.refined != nullptr; }
    bool has_topo_file() const { return definition.topo_type == 0; }
    bool is_own_solver() const { return definition.inversion_method == 4; }
};

/// What the own solver's mesh carries besides: the ground at its nodes and the limits between which it is draped.
std::optional<MeshExtension> mesh_extension(const Run & run);
