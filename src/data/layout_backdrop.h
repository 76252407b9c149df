#pragma once

#include "data/location_reader.h"
#include "definition/definition.h"
#include "grid/grid_access.h"
#include "grid/picture.h"
#include "host/host.h"

#include <optional>
#include <string>
#include <vector>

/// The files that lie under the mesh in the layout view; a name is empty where there is none. All are in coordinates of the map.
struct BackdropSources {
    LocationSource readings;      ///< of the observed data points
    LocationSource ground_points; ///< of the topography
    std::string ground_grid;
    float ground_offset = 0; ///< metres, added to the elevations of the grid
    std::string image;       ///< a picture with its position, or a grid
};

/// The sources of a definition that has been checked.
BackdropSources backdrop_sources(const InversionDefinition & definition, const std::string & image);

/// True when both would read the same.
bool same_backdrop(const BackdropSources & one, const BackdropSources & other);

/// Values of the map in cells, row by row from the north west; -1e32 where there is none.
struct BackdropRaster {
    GridLimits limits;
    std::int32_t columns = 0, rows = 0;
    std::vector<float> values;
    float low = 0, high = 0; ///< the range that nearly all values lie in, for the colours
};

/// What lies under the mesh, cut down to what a screen can show.
struct LayoutBackdrop {
    std::vector<double> reading_x, reading_y;
    BackdropRaster ground, grid; ///< without columns where there is none
    std::optional<Picture> picture;
    GridLimits picture_limits;
};

/// Reads the sources. A file that cannot be used is one message, and the rest is read all the same. Fails with `Stopped`.
void read_backdrop(const BackdropSources & sources, LayoutBackdrop & backdrop, Host & host);

/// The means of points in cells that are small enough to show them apart; cells between them take the mean of their neighbours.
BackdropRaster raster_of_points(const List<double> & x, const List<double> & y, const List<double> & z);
