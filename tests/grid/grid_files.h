#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>
#include <zlib.h>

// The bytes of small grid files, as their formats have them. All hold the same 3 by 2 cells of 10 by 20 units, nodes at 100, 110,
// 120 and 200, 220, so edges at 95, 125, 190 and 230:
//
//     1  2  null      north
//     4  5  6         south

template <class... Values>
std::string little_endian(Values... values)
{
    std::string bytes;
    const auto add = [&](const auto & value) { bytes.append(reinterpret_cast<const char *>(&value), sizeof(value)); };
    (add(values), ...);
    return bytes;
}

inline std::string big_endian(std::uint32_t value)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift & 0xFF);
    return bytes;
}

inline std::string big_endian(float value)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return big_endian(bits);
}

inline std::string big_endian(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return big_endian(static_cast<std::uint32_t>(bits >> 32)) + big_endian(static_cast<std::uint32_t>(bits));
}

/// A text with each `from` in it changed to `to`: a file with exactly one thing different.
inline std::string with(std::string text, const std::string & from, const std::string & to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) text.replace(at, from.size(), to);
    return text;
}

constexpr std::int16_t three = 3, two = 2;
constexpr float surfer_blank = 1.70141e38F;

inline const std::string surfer_text = "DSAA\r\n3 2\r\n100 120\r\n200 220\r\n1 6\r\n4 5 6\r\n1 2 1.70141e+038\r\n";
inline const std::string surfer_6 =
    "DSBB" + little_endian(three, two, 100.0, 120.0, 200.0, 220.0, 1.0, 6.0, 4.0F, 5.0F, 6.0F, 1.0F, 2.0F, surfer_blank);
inline const std::string surfer_7 = "DSRB" + little_endian(4, 1) + "GRID" +
                                    little_endian(72, 2, 3, 100.0, 200.0, 10.0, 20.0, 1.0, 6.0, 0.0, -99.0) + "DATA" +
                                    little_endian(48, 4.0, 5.0, 6.0, 1.0, 2.0, -99.0);

inline const std::string arc_text =
    "ncols 3\nnrows 2\nxllcorner 95\nyllcorner 190\ndx 10\ndy 20\nNODATA_value -9999\n1 2 -9999\n4 5 6\n";

inline const std::string ers_values = little_endian(1.0F, 2.0F, -99.5F, 4.0F, 5.0F, 6.0F);
inline const std::string ers_header =
    "DatasetHeader Begin\n\tVersion = \"6.0\"\n\tDataSetType = ERStorage\n\tDataType = Raster\n"
    "\tByteOrder = LSBFirst\n\tCoordinateSpace Begin\n\t\tDatum = \"WGS84\"\n"
    "\t\tProjection = \"NUTM11\"\n\t\tCoordinateType = EN\n\t\tRotation = 0:0:0.0\n"
    "\tCoordinateSpace End\n\tRasterInfo Begin\n\t\tCellType = IEEE4ByteReal\n\t\tNrOfLines = 2\n"
    "\t\tNrOfCellsPerLine = 3\n\t\tNrOfBands = 1\n\t\tNullCellValue = -99.5\n\t\tCellInfo Begin\n"
    "\t\t\tXdimension = 10\n\t\t\tYdimension = 20\n\t\tCellInfo End\n\t\tRegistrationCoord Begin\n"
    "\t\t\tEastings = 95\n\t\t\tNorthings = 230\n\t\tRegistrationCoord End\n\tRasterInfo End\n"
    "DatasetHeader End\n";

inline std::string gxf(const std::string & values, const std::string & more = "", const std::string & shape = "3\n#ROWS\n2",
                       const std::string & steps = "10\n#RWSEPARATION\n20")
{
    return "#TITLE\nsmall\n#POINTS\n" + shape + "\n#XORIGIN\n100\n#YORIGIN\n200\n#PTSEPARATION\n" + steps + "\n" + more +
           "#GRID\n" + values;
}

/// A Geosoft header; the values are the caller's.
inline std::string geosoft_header(std::int32_t size, std::int32_t sign, std::int32_t ordering = 1, double base = 0,
                                  double multiplier = 1, double rotation = 0)
{
    const bool along_y = ordering == -1;
    std::string header = little_endian(size, sign, along_y ? 2 : 3, along_y ? 3 : 2, ordering, along_y ? 20.0 : 10.0,
                                       along_y ? 10.0 : 20.0, 100.0, 200.0, rotation, base, multiplier);
    header.resize(512);
    return header;
}

inline const std::string geosoft_values = little_endian(4.0F, 5.0F, 6.0F, 1.0F, 2.0F, -1e32F);

/// The compressed form: one vector a block.
inline std::string geosoft_packed()
{
    std::vector<std::string> blocks;
    for (std::size_t vector = 0; vector < 2; ++vector) {
        uLongf size = 100;
        std::string block(size, '\0');
        compress(reinterpret_cast<Bytef *>(block.data()), &size, reinterpret_cast<const Bytef *>(&geosoft_values[12 * vector]),
                 12);
        blocks.push_back(std::string(16, '\0') + block.substr(0, size));
    }
    const auto first = static_cast<std::int64_t>(528 + 2 * 12), second = first + static_cast<std::int64_t>(blocks[0].size());
    return geosoft_header(1028, 2) + little_endian(-119023417, 2, 2, 1, first, second) +
           little_endian(static_cast<std::int32_t>(blocks[0].size()), static_cast<std::int32_t>(blocks[1].size())) + blocks[0] +
           blocks[1];
}

/// A classic netCDF file whose coordinates have a range that is not theirs, as one cut from a larger grid has.
inline std::string netcdf(const std::string & x_name = "x", const std::string & y_name = "y",
                          std::vector<double> y = { 200, 220 }, std::vector<float> z = { 4, 5, 6, 1, 2, -7 },
                          std::vector<double> x = { 100, 110, 120 })
{
    const auto count = [](std::size_t value) { return big_endian(static_cast<std::uint32_t>(value)); };
    const auto name = [&](std::string text) {
        const std::string length = count(text.size());
        text.resize((text.size() + 3) / 4 * 4);
        return length + text;
    };
    constexpr std::size_t of_dimensions = 10, of_variables = 11, of_attributes = 12, is_float = 5, is_double = 6;
    const auto attribute = [&](const char * text, std::size_t type, std::size_t values) {
        return count(of_attributes) + count(1) + name(text) + count(type) + count(values);
    };
    const std::string range = attribute("actual_range", is_double, 2) + big_endian(-180.0) + big_endian(180.0);
    const std::string null = attribute("_FillValue", is_float, 1) + big_endian(-7.0F);
    const auto header = [&](std::size_t start) {
        return "CDF\1" + count(0) + count(of_dimensions) + count(2) + name(y_name) + count(2) + name(x_name) + count(3) +
               count(0) + count(0) + count(of_variables) + count(3) + name(y_name) + count(1) + count(0) + range +
               count(is_double) + count(16) + count(start) + name(x_name) + count(1) + count(1) + range + count(is_double) +
               count(24) + count(start + 16) + name("z") + count(2) + count(0) + count(1) + null + count(is_float) + count(24) +
               count(start + 40);
    };
    std::string bytes = header(header(0).size());
    for (const double value : y) bytes += big_endian(value);
    for (const double value : x) bytes += big_endian(value);
    for (const float value : z) bytes += big_endian(value);
    return bytes;
}
