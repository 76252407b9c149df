#pragma once

#include "grid/grid_access.h"

#include <optional>
#include <string>

/// Where a netCDF variable lies by the values of its coordinates, which are centres of cells.
struct NetcdfPosition {
    GridLimits limits;
    bool rows_run_south = false; ///< in the file
    bool has_range = false;      ///< a coordinate has an attribute `actual_range`
};

/// GDAL needs this twice over. It goes by `actual_range` where there is one, and a grid cut from a larger one often keeps that of
/// the whole. And it takes coordinates for a position only when an attribute says that they are longitudes or a projection's,
/// which grids in metres often leave out; it then also takes their rows to run north.
///
/// Nothing when the variable has no coordinates. Fails with a `Fault` when they do not run in equal steps, or from east to west.
std::optional<NetcdfPosition> netcdf_position(const std::string & gdal_path, const std::string & variable);
