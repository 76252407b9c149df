#pragma once

#include "grid/grid_access.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// How many bytes the values of a format take in a file, so that a header cannot promise what the file does not hold.
enum class BodySize {
    packed, ///< nothing is known before it is read
    text,   ///< two characters a value at least
    raw     ///< the size of its type for each value
};

/// One format that can be read: a row of the table of formats.
struct GridFormat {
    std::int32_t code;             ///< 1 ERMapper, 15 raster image with a registration; the others are this program's own
    const char * name;             ///< as shown to the user
    const char * driver;           ///< the GDAL driver that reads it; empty for this program's own reader
    GridRegistration registration; ///< of the format; a file may say otherwise
    const char * null_rule;        ///< the format's own rule in words
    BodySize body = BodySize::packed;
};

inline constexpr std::int32_t ermapper_code = 1, image_code = 15;

/// The reason why a picture is not taken for data.
inline constexpr const char * picture_fault = "it is a picture and not a grid of values";

/// All formats of grids, and the registered image as the last one.
std::span<const GridFormat> grid_formats();

/// The row with a code, or with a driver's name; null when there is none.
const GridFormat * grid_format_with_code(std::int32_t code);
const GridFormat * grid_format_of_driver(const std::string & driver);

/// The GDAL drivers of the formats that have one.
std::vector<const char *> grid_drivers();

/// The null rule of an open grid in words and number, as shown to the user. Any value at or below -1e30, and what is no
/// number at all, is missing in every format.
std::string null_rule_text(const GridHeader & header);

/// What the header of an open grid makes the file: points while the format is unknown.
FileKind file_kind(const GridHeader & header);
