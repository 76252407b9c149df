#include "grid/grid_detection.h"

#include "grid/gdal_grid.h"
#include "grid/grid_formats.h"
#include "grid/grid_source.h"
#include "grid/image_registration.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view point_extensions[] = { "XYZ", "CSV", "OBS" };
constexpr std::string_view picture_extensions[] = { "BMP", "JPG", "JPEG", "GIF", "PNG", "TGA" }; // never tried as grids
constexpr std::string_view tiff_extensions[] = { "TIF", "TIFF" };                                // both are possible

template <class Items, class Item>
bool contains(const Items & items, const Item & item)
{
    return std::ranges::find(items, item) != std::end(items);
}

/// Takes all but what is the caller's own.
void take_header(const GridHeader & found, GridHeader & header)
{
    const std::string file = header.file_name, work = header.work_name;
    header = found;
    header.file_name = file;
    header.work_name = work;
}

/// N46E008 and the like: the south west corner of an SRTM tile.
bool gives_tile_position(const std::string & name)
{
    constexpr std::string_view pattern = "NddEddd";
    if (name.size() < pattern.size() || (name[0] != 'N' && name[0] != 'S') || (name[3] != 'E' && name[3] != 'W')) return false;
    for (std::size_t i = 0; i < pattern.size(); ++i)
        if (pattern[i] == 'd' && (name[i] < '0' || name[i] > '9')) return false;
    return true;
}

/// An SRTM tile holds nothing but squares of 16-bit values, and its position is in its name alone; one that is known by neither
/// is no tile.
std::string hgt_fault(const std::string & path)
{
    constexpr std::size_t sizes[] = { 2UL * 1201 * 1201, 2UL * 1801 * 3601, 2UL * 3601 * 3601 };
    if (!same_text(file_extension_of_path(path), "HGT")) return "";
    if (gives_tile_position(upper_case(file_name_of_path(path)))) return "it holds fewer or more values than a tile";
    return contains(sizes, FileBytes(path).text().size()) ? "its name gives no position, as N46E008.hgt would" : "";
}

Status detect_grid(GridHeader & header)
{
    std::string fault;
    const std::unique_ptr<GridSource> source = open_grid_source(header.file_name, header.band, fault);
    if (source) {
        take_header(source->header(), header);
        fault = header_fault(header);
    }
    header.fault = fault;
    if (!source && fault.empty()) header.fault = hgt_fault(header.file_name);
    return source && fault.empty() ? Status::good : Status::bad;
}

std::optional<ImageRegistration> registration_of(const std::string & path, const PictureShape & shape, std::string & fault)
{
    auto registration = read_image_registration(path, shape.columns, shape.rows, fault);
    if (registration || !shape.limits || !shape.limits->are_set()) return registration;
    const GridLimits & limits = *shape.limits;
    return ImageRegistration{ limits, (limits.east - limits.west) / shape.columns, (limits.north - limits.south) / shape.rows,
                              "tags of the file" };
}

Status detect_image(GridHeader & header)
{
    const auto shape = picture_shape(header.file_name);
    if (!shape) return Status::bad;
    const auto registration = registration_of(header.file_name, *shape, header.fault);
    if (!registration) return Status::bad;
    header.fault.clear();
    header.format = grid_format_with_code(image_code);
    header.columns = shape->columns;
    header.rows = shape->rows;
    header.limits = registration->limits;
    header.cell_size_x = registration->cell_size_x;
    header.cell_size_y = registration->cell_size_y;
    const std::int32_t bands = shape->has_colour_table ? 1 : 3; // however the file keeps them, a picture is red, green and blue
    for (std::int32_t band = 1; band <= bands; ++band) header.band_names.push_back("Band " + general_text(band));
    if (header.band < 1 || header.band > bands) header.band = 1;
    return Status::good;
}

Status detect_content(GridHeader & header)
{
    const std::string extension = upper_case(file_extension_of_path(header.file_name));
    if (contains(point_extensions, extension)) return Status::bad;
    if (contains(picture_extensions, extension)) return detect_image(header);
    const Status status = detect_grid(header);
    if (status == Status::good || header.format != nullptr || !contains(tiff_extensions, extension)) return status;
    const std::string grid_fault = header.fault;
    const Status image_status = detect_image(header);
    // What is wrong with a grid says more than that nothing lies beside it.
    if (image_status != Status::good && !grid_fault.empty() && grid_fault != picture_fault) header.fault = grid_fault;
    return image_status;
}

}

Status detect_grid_file(GridHeader & header, Dialogs & dialogs)
{
    GridHeader fresh;
    fresh.band = header.band;
    take_header(fresh, header);
    const std::string name(trim(header.file_name));
    if (name.empty()) return Status::good;
    if (find_file(name).empty()) {
        dialogs.message("The specified image file : " + name + " does not exist");
        return Status::bad;
    }
    try {
        return detect_content(header);
    } catch (const Fault & fault) {
        header.fault = fault.what();
        return Status::bad;
    }
}

bool is_grid_file(const std::string & path)
{
    if (find_file(path).empty()) return false;
    GridHeader header;
    header.file_name = path;
    try {
        return !contains(point_extensions, upper_case(file_extension_of_path(path))) && detect_grid(header) == Status::good;
    } catch (const Fault &) {
        return false; // whoever goes on to read it says why it cannot be read
    }
}
