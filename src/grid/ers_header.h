#pragma once

#include "grid/grid_access.h"

#include <optional>
#include <string>

/// What an ERMapper header (.ers) says of the place and shape of its raster. Positions are outer cell edges.
struct ErsHeader {
    std::int32_t columns = 0, rows = 0;
    double cell_size_x = 0, cell_size_y = 0;
    std::optional<GridLimits> limits; ///< none without a registration coordinate
    double rotation = 0;              ///< degrees
    std::string data_file;            ///< a definition path: that of the header without its ending unless it names another
};

/// Reads an ERMapper header, whichever names it gives its coordinate: Eastings and Northings, Longitude and Latitude (degrees,
/// or degrees:minutes:seconds), or MetersX and MetersY. The coordinate is that of the upper left corner of its registration
/// cell, which is the upper left one unless the header names another. Fails with a `FileFault` when the file cannot be read.
ErsHeader read_ers_header(const std::string & path);
