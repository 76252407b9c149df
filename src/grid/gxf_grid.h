#pragma once

#include "grid/grid_source.h"

/// True when a file begins as a GXF text grid does: lines of keywords ("#POINTS", ...) up to "#GRID".
bool is_gxf_grid(const std::string & path);

/// Opens a GXF grid, plain or packed, in any of its eight orders of storage.
///
/// It is read here and not through GDAL, which passes over a rotation, applies #TRANSFORM to packed values only and gives
/// whatever lies in memory for the values that a file cut short does not hold.
///
/// Fails with a `Fault` for a header that cannot be used. Values that are missing in the file are found when they are read.
std::unique_ptr<GridSource> open_gxf_grid(const std::string & path);
