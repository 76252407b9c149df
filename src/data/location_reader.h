#pragma once

#include "data/observed_data.h"
#include "host/host.h"
#include "support/status.h"
#include "utilities/point_transform.h"

#include <string>

/// Where points come from and which column of the file holds what. Columns count from 1; 0 or less is not read.
struct LocationSource {
    std::string file_name;            ///< a definition path
    std::int32_t file_type = 0;       ///< 0 text file, 2 database
    std::int32_t first_data_line = 1; ///< from 1
    std::int32_t read_increment = 1;  ///< take every n-th data line
    std::int32_t z_is_depth = 0;      ///< 1: z is negated on reading
    std::int32_t line_column = -1;
    float interpolation_interval = 0; ///< metres; points are filled in along a line when above 0
    float elevation_offset = 0;       ///< metres, added to each z read
    std::int32_t x_column = 0, y_column = 0, z_column = 0;
    std::array<std::int32_t, 3> value_column = {};
    std::int32_t category_column = -1, text_column = -2;
    std::array<bool, 2> value_window = {}; ///< value 1, 2: drop records outside the limits given in the statistics
    PointTransform transform;              ///< applied to each record when in use
};

/// What a read is for.
enum class ReadMode {
    statistics, ///< counts points and gathers statistics; stores nothing
    store       ///< also stores every point, line and category
};

/// How a text is shared among threads. Neither has an effect on what is read, but that the blocks decide in which order the means
/// are summed.
struct ReadShares {
    std::size_t block_size = std::size_t{ 1 } << 20; ///< bytes; a block runs on to the end of its line
    unsigned threads = 0;                            ///< 0: as many as the machine has to offer
};

/// Turns a point data source into points.
///
/// Records whose x or y is missing are skipped silently; no point at all is no failure. Bad, after one message, when the file
/// cannot be opened or read, for a column above 512, or for one that a database does not have. Text files in any of the field's
/// habits: blanks, tabs or commas between fields, CR, LF or CR LF, quoted texts, a UTF-8 mark.
Status read_locations_file(const LocationSource & source, ReadMode mode, ObservedData & data, LocationStatistics & statistics,
                           Host & host, const ReadShares & shares = {});
