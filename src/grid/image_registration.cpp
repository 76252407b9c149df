#include "grid/image_registration.h"

#include "grid/ers_header.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"
#include "support/text_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

struct Picture {
    std::string path;
    std::int32_t columns, rows;
};

std::string lower_case(std::string text)
{
    for (char & c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

/// The file beside the picture with another ending, in either case of its letters; empty when there is none.
std::string side_file(const std::string & stem, const std::string & extension)
{
    for (const std::string & ending : { lower_case(extension), upper_case(extension) }) {
        std::string path = stem;
        path.append(".").append(ending);
        if (!find_file(path).empty()) return path;
    }
    return "";
}

std::string path_without_extension(const std::string & path)
{
    return path.substr(0, path.size() - file_extension_of_path(path).size() - 1);
}

std::string world_file_of(const std::string & path)
{
    const std::string extension = file_extension_of_path(path), stem = path_without_extension(path);
    const std::string shortened = { extension.front(), extension.back(), 'w' }; // .png -> .pgw
    for (const std::string & ending : { shortened, extension + "w", std::string("wld") })
        if (std::string found = side_file(stem, ending); !found.empty()) return found;
    return "";
}

/// Where the upper left corner of the picture and the size of a pixel give all the rest.
ImageRegistration registration_at(const Picture & picture, double west, double north, double cell_x, double cell_y)
{
    if (!(cell_x > 0) || !(cell_y > 0) || !std::isfinite(west) || !std::isfinite(north))
        throw Fault("its pixel size is not above 0");
    const GridLimits limits{ west, west + picture.columns * cell_x, north - picture.rows * cell_y, north };
    if (!limits.are_set() || !std::isfinite(limits.east) || !std::isfinite(limits.south))
        throw Fault("it places the picture so far off that its pixels have no size");
    return { limits, cell_x, cell_y, "" };
}

ImageRegistration read_world_file(const std::string & path, const Picture & picture)
{
    TextFile file(path);
    std::array<double, 6> numbers = {}; // x size, two turns, y size (negative: rows run south), x and y of the first centre
    for (double & number : numbers) {
        std::string line;
        if (!read_nonblank_line(file, line) || !is_numeric(line)) throw Fault("it does not hold six numbers");
        number = leading_number(line);
    }
    const auto [cell_x, turn_1, turn_2, minus_cell_y, x, y] = numbers;
    if (turn_1 != 0 || turn_2 != 0) throw Fault("it turns the picture, and only pictures along the axes can be used");
    return registration_at(picture, x - cell_x / 2, y - minus_cell_y / 2, cell_x, -minus_cell_y);
}

ImageRegistration read_ers_registration(const std::string & path, const Picture & picture)
{
    const ErsHeader header = read_ers_header(path);
    if (!header.limits) throw Fault("it holds no position");
    if (header.rotation != 0) throw Fault("it turns the picture, and only pictures along the axes can be used");
    if (header.columns != picture.columns || header.rows != picture.rows) throw Fault("it is of a raster of another size");
    return registration_at(picture, header.limits->west, header.limits->north, header.cell_size_x, header.cell_size_y);
}

/// One registration point of a MapInfo table: "(x,y) (column,row) Label ...".
struct TabPoint {
    double x, y, column, row;
};

std::optional<TabPoint> tab_point(const std::string & line)
{
    std::array<double, 4> numbers = {};
    std::size_t at = 0;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        at = line.find(i % 2 == 0 ? '(' : ',', at);
        if (at == std::string::npos) return std::nullopt;
        const NumberPrefix prefix = number_prefix(std::string_view(line).substr(++at));
        if (prefix.length == 0) return std::nullopt;
        numbers[i] = prefix.value;
    }
    return TabPoint{ numbers[0], numbers[1], numbers[2], numbers[3] };
}

/// The straight line through the points that lie farthest apart in `pixel`: start at pixel 0, and step for each pixel.
struct PixelLine {
    double start, step;
};

PixelLine pixel_line(const std::vector<TabPoint> & points, double TabPoint::*pixel, double TabPoint::*position)
{
    const auto [low, high] = std::ranges::minmax_element(points, {}, pixel);
    const double span = *high.*pixel - *low.*pixel;
    if (!(span > 0)) throw Fault("its points do not fix the position of the picture");
    const double step = (*high.*position - *low.*position) / span;
    const PixelLine line{ *low.*position - *low.*pixel * step, step };
    for (const TabPoint & point : points)
        if (std::abs(line.start + point.*pixel * step - point.*position) > std::abs(step) / 2)
            throw Fault("it turns or bends the picture, and only pictures along the axes can be used");
    return line;
}

ImageRegistration read_tab_registration(const std::string & path, const Picture & picture)
{
    TextFile file(path);
    std::vector<TabPoint> points;
    for (std::string line; read_text_line(file, line);)
        if (const auto point = tab_point(line)) points.push_back(*point);
    if (points.size() < 2) throw Fault("it holds no position");
    const PixelLine x = pixel_line(points, &TabPoint::column, &TabPoint::x), y = pixel_line(points, &TabPoint::row, &TabPoint::y);
    return registration_at(picture, x.start, y.start, x.step, -y.step);
}

/// One kind of file beside a picture.
struct SideFile {
    const char * name;
    std::string (*find)(const std::string & picture);
    ImageRegistration (*read)(const std::string & path, const Picture & picture);
};

std::string ers_of(const std::string & path)
{
    const std::string whole_name = side_file(path, "ers"); // picture.jpg.ers, the maker's own habit
    return whole_name.empty() ? side_file(path_without_extension(path), "ers") : whole_name;
}

std::string tab_of(const std::string & path) { return side_file(path_without_extension(path), "tab"); }

constexpr SideFile side_files[] = {
    { "world file ", world_file_of, read_world_file },
    { "ERMapper header ", ers_of, read_ers_registration },
    { "MapInfo table ", tab_of, read_tab_registration },
};

}

std::optional<ImageRegistration> read_image_registration(const std::string & path, std::int32_t columns, std::int32_t rows,
                                                         std::string & fault)
{
    fault = "it has no position: no world file, ERMapper header or MapInfo table lies beside it";
    if (file_extension_of_path(path).empty()) return std::nullopt;
    for (const SideFile & side : side_files) {
        const std::string found = side.find(path);
        if (found.empty()) continue;
        const std::string text = side.name + file_name_of_path(found);
        try {
            ImageRegistration registration = side.read(found, { path, columns, rows });
            registration.text = text;
            fault.clear();
            return registration;
        } catch (const Fault & bad) {
            fault = text + ": " + bad.what();
            return std::nullopt;
        }
    }
    return std::nullopt;
}
