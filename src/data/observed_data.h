#pragma once

#include "support/list.h"

#include <array>
#include <cstdint>
#include <string>

/// Points as read from a location file, in the order of the file and in mesh coordinates.
struct ObservedData {
    std::int32_t point_count = 0;
    List<std::int32_t> line_index;       ///< empty when no line column is read; 0 before the first line name
    std::array<List<double>, 3> xyz;     ///< metres; a missing z is -1e32
    std::array<List<float>, 3> value;    ///< empty where the column is not read; missing -1e32
    std::int32_t line_count = 0;         ///< changes of the line name seen
    List<std::string> line_name;         ///< in file order
    List<std::int32_t> line_first_point; ///< one more than lines: the last is past the end of the points
    std::int32_t category_count = 0;     ///< distinct names
    List<std::int32_t> category_index;   ///< empty where the column is not read
    List<std::string> category_name;     ///< sorted
    List<std::string> text;              ///< empty where the column is not read

    bool operator==(const ObservedData &) const = default;
};

/// Minimum, maximum and mean of a quantity over the points that hold it.
struct Range {
    float minimum = 1e32F, maximum = -1e32F, mean = 0;

    bool operator==(const Range &) const = default;
};

/// The statistics of one read.
struct LocationStatistics {
    double minimum_x = 1e32, maximum_x = -1e32;
    double minimum_y = 1e32, maximum_y = -1e32;
    Range z;
    std::array<Range, 3> value;

    bool operator==(const LocationStatistics &) const = default;
};

/// What is kept per surface cell: at most one reading, the one nearest the centre. x varies fastest in the lists.
struct SelectedData {
    std::int32_t cells_x = 0, cells_y = 0;
    std::int32_t selected_count = 0; ///< cells ever taken
    List<std::uint8_t> occupied;     ///< 1 when the cell holds a reading
    List<float> x, y, z;             ///< position and sensor elevation
    List<float> value_1;             ///< after base and scale; missing -1e32
    List<float> value_2;             ///< empty unless a second type is in use
    List<float> value_3;             ///< grids: third component; points: distance to the cell centre
    List<std::int32_t> line;         ///< number in `line_name`, 0 none; empty unless a line column is in use
    List<float> extra_value;         ///< empty unless an extra value column is in use
    List<std::string> line_name;

    /// The number of cell (ix, iy), both from 1.
    std::int64_t cell(std::int32_t ix, std::int32_t iy) const { return (iy - std::int64_t{ 1 }) * cells_x + ix; }
};

/// Every accepted reading, in file order; kept when more than one reading per cell may go out.
struct AllPoints {
    std::int32_t point_count = 0;
    struct Point {
        std::int32_t cell_x = 0, cell_y = 0;
        std::int32_t line = 0;      ///< number in SelectedData::line_name, 0 none
        double x = 0, y = 0, z = 0; ///< metres
        double value_1 = 0, value_2 = 0;
        double distance = 0; ///< to the centre of its cell
        double extra_value = 0;
    };
    List<Point> points;
};

/// How many readings had to be lifted to the least height above the ground, and by how much in all, in metres.
struct Shifts {
    std::int32_t count = 0;
    double sum = 0;

    void add(double shift)
    {
        ++count;
        sum += shift;
    }
};
