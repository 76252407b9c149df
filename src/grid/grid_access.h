#pragma once

#include "host/dialogs.h"
#include "support/status.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// What a file is to this program.
enum class FileKind { points, grid, image };

/// Where the positions of a format's header stand: on the outer edges of the outermost cells, or on their centres (nodes).
enum class GridRegistration { cell, node };

/// One format that can be read: a row of the table of formats.
struct GridFormat {
    std::int32_t code; ///< 1 ERMapper, 15 raster image with a registration; others are this program's own
    const char * name;
    GridRegistration registration;
    const char * null_rule; ///< in words, as shown to the user
};

/// The limits of a grid or of the part of it that is wanted: outer cell edges, in the grid's own units. Unset: west above east.
struct GridLimits {
    double west = 1e6, east = -1e6, south = 1e6, north = -1e6;

    bool are_set() const { return west < east && south < north; }
};

/// What is known of one open grid. All positions are outer cell edges whatever the format's own registration.
struct GridHeader {
    const GridFormat * format = nullptr; ///< null while unknown
    std::string file_name;               ///< a definition path
    std::string work_name;               ///< the working copy; a name that begins with "~" is temporary
    std::int32_t columns = 0, rows = 0;
    GridLimits limits;
    double cell_size_x = 0, cell_size_y = 0;
    double minimum = -1e32, maximum = -1e32; ///< missing while not known
    std::vector<std::string> band_names;     ///< one at least once detected
    std::int32_t band = 1;
};

/// The statistics of a grid's values; missing values do not count. All missing when no value is left.
struct GridStatistics {
    double minimum = -1e32, maximum = -1e32, mean = -1e32, deviation = -1e32, median = -1e32;
    std::int64_t count = 0, null_count = 0;
};
