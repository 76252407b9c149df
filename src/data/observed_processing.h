#pragma once

#include "data/location_reader.h"
#include "data/observed_data.h"
#include "data/topography.h"
#include "definition/definition.h"
#include "host/host.h"
#include "mesh/ubc_mesh.h"
#include "support/status.h"

/// The reading columns of the definition's observed data (slot 0) or topography (slot 1) as the reader takes them.
LocationSource location_source(const InversionDefinition & definition, int slot);

/// The readings of one run.
struct ObservedReadings {
    std::int32_t read_count = 0; ///< points in the file, used or not; 0 for grids
    SelectedData selected;
    AllPoints all;
};

/// Goes through points as read and keeps, per surface cell, the one nearest its centre with its sensor elevation. A tie keeps the
/// earlier one. `readings` comes out sized to the mesh.
void select_point_readings(const ObservedData & points, const InversionDefinition & definition, const UbcMesh & mesh,
                           const TopoSurface & topo, ObservedReadings & readings, Host & host);

/// Reads the observed data, points or grids, and keeps per surface cell one reading with its sensor elevation: of points the one
/// nearest the cell's centre, of grids the value there.
///
/// Bad when a reader failed (it has shown why). Fewer than 10 readings kept is a warning only.
Status process_inversion_data(const InversionDefinition & definition, const UbcMesh & mesh, const TopoSurface & topo,
                              ObservedReadings & readings, Host & host);
