#pragma once

#include "support/file_lock.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// What a file is to this program.
enum class FileKind { points, grid, image };

/// Where the positions of a format's header stand: on the outer edges of the outermost cells, or on their centres (nodes).
enum class GridRegistration { cell, node };

struct GridFormat;

/// The limits of a grid or of the part of it that is wanted: outer cell edges, in the grid's own units. Unset: west above east.
struct GridLimits {
    double west = 1e6, east = -1e6, south = 1e6, north = -1e6;

    bool are_set() const { return west < east && south < north; }
};

/// What is known of one open grid. All positions are outer cell edges whatever the format's own registration.
struct GridHeader {
    const GridFormat * format = nullptr; ///< a row of grid_formats.h; null while unknown
    std::string file_name;               ///< a definition path
    std::string work_name;               ///< the working copy; a name that begins with "~" is temporary
    std::shared_ptr<FileLock> work_lock; ///< on the working copy, so that no other program takes it for a stale one
    std::int32_t columns = 0, rows = 0;
    GridLimits limits;
    double cell_size_x = 0, cell_size_y = 0;
    double minimum = -1e32, maximum = -1e32; ///< missing while not known
    std::vector<std::string> band_names;     ///< one at least once detected
    std::int32_t band = 1;

    GridRegistration registration = GridRegistration::cell; ///< of the positions in the file
    std::optional<double> null_value;                       ///< the file's own mark of a missing value, where it has one
    std::string fault; ///< why a file that looks like a grid or an image cannot be used; empty when it can
};

/// A rectangle of cells, counted from 0: column 0 is the westernmost, row 0 the northernmost.
struct GridWindow {
    std::int32_t column = 0, row = 0, columns = 0, rows = 0;
};
