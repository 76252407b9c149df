#include "data/layout_backdrop.h"

#include "data/observed_processing.h"
#include "grid/grid_source.h"
#include "grid/image_registration.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/paths.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

namespace {

constexpr std::int32_t most_dots = 200000;
constexpr std::int32_t most_cells = 1024;      // of a grid along an axis
constexpr std::int32_t most_point_cells = 512; // of a raster of points
constexpr std::int32_t widest_gap = 6;         // cells that are filled from their neighbours
constexpr double points_per_cell = 2;

/// Means of what falls into each cell.
class Means {
public:
    Means(const GridLimits & limits, std::int32_t columns, std::int32_t rows)
    {
        raster_.limits = limits;
        raster_.columns = columns;
        raster_.rows = rows;
        const auto count = static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
        sums_.resize(count);
        counts_.resize(count);
    }
    void add(std::int32_t column, std::int32_t row, double value)
    {
        const std::size_t cell =
            static_cast<std::size_t>(row) * static_cast<std::size_t>(raster_.columns) + static_cast<std::size_t>(column);
        sums_[cell] += value;
        ++counts_[cell];
    }
    BackdropRaster raster()
    {
        raster_.values.resize(sums_.size());
        for (std::size_t i = 0; i < sums_.size(); ++i)
            raster_.values[i] = counts_[i] > 0 ? to_f32(sums_[i] / counts_[i]) : missing_value_f32;
        return std::move(raster_);
    }

private:
    BackdropRaster raster_;
    std::vector<double> sums_;
    std::vector<std::int32_t> counts_;
};

/// A few values far from all others would leave one colour for the rest.
void set_colour_range(BackdropRaster & raster)
{
    std::vector<float> present;
    std::ranges::copy_if(raster.values, std::back_inserter(present), [](float value) { return !is_missing(value); });
    if (present.empty()) return;
    const auto value_at = [&present](double share) {
        const auto place = present.begin() + std::lround(share * static_cast<double>(present.size() - 1));
        std::ranges::nth_element(present, place);
        return *place;
    };
    raster.low = value_at(0.01);
    raster.high = value_at(0.99);
}

/// One ring of cells around those that have a value takes the mean of its neighbours.
void fill_ring(BackdropRaster & raster)
{
    const std::vector<float> known = raster.values;
    const auto at = [&raster](std::int32_t column, std::int32_t row) {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(raster.columns) + static_cast<std::size_t>(column);
    };
    for (std::int32_t row = 0; row < raster.rows; ++row)
        for (std::int32_t column = 0; column < raster.columns; ++column) {
            if (!is_missing(known[at(column, row)])) continue;
            float sum = 0;
            int count = 0;
            for (std::int32_t r = std::max(0, row - 1); r <= std::min(raster.rows - 1, row + 1); ++r)
                for (std::int32_t c = std::max(0, column - 1); c <= std::min(raster.columns - 1, column + 1); ++c)
                    if (const float value = known[at(c, r)]; !is_missing(value)) {
                        sum += value;
                        ++count;
                    }
            if (count > 1) raster.values[at(column, row)] = sum / static_cast<float>(count);
        }
}

BackdropRaster raster_of_grid(const std::string & path, double offset, std::string & fault, Progress & progress)
{
    const auto source = open_grid_source(path, 1, fault);
    if (source == nullptr) return {};
    const GridHeader & header = source->header();
    const std::int32_t side = std::max(header.columns, header.rows);
    const std::int32_t factor = (side + most_cells - 1) / most_cells;
    const auto shrunk = [factor](std::int32_t count) { return (count + factor - 1) / factor; };
    const std::int32_t columns = shrunk(header.columns), rows = shrunk(header.rows);
    GridLimits limits = header.limits; // the last cells may reach beyond the grid
    limits.east = limits.west + columns * factor * header.cell_size_x;
    limits.south = limits.north - rows * factor * header.cell_size_y;
    Means means(limits, columns, rows);
    std::int64_t done = 0;
    Percentage percentage(progress, std::int64_t{ header.columns } * header.rows);
    for_each_strip(*source, whole_grid(header), [&](const GridWindow & strip, std::span<const double> values) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (is_missing(values[i])) continue;
            const auto across = static_cast<std::int32_t>(i) % strip.columns, down = static_cast<std::int32_t>(i) / strip.columns;
            means.add((strip.column + across) / factor, (strip.row + down) / factor, values[i] + offset);
        }
        percentage.report(done += static_cast<std::int64_t>(values.size()));
    });
    BackdropRaster raster = means.raster();
    set_colour_range(raster);
    return raster;
}

void read_readings(const LocationSource & source, LayoutBackdrop & backdrop, Host & host)
{
    if (source.file_name.empty()) return;
    host.progress.step("Reading the observed data");
    ObservedData data;
    LocationStatistics statistics;
    if (read_locations_file(source, ReadMode::store, data, statistics, host) != Status::good) return;
    const std::int32_t step = std::max(1, (data.point_count + most_dots - 1) / most_dots);
    for (std::int32_t i = 1; i <= data.point_count; i += step) {
        backdrop.reading_x.push_back(data.xyz[0][i]);
        backdrop.reading_y.push_back(data.xyz[1][i]);
    }
}

void read_ground(const BackdropSources & sources, LayoutBackdrop & backdrop, Host & host)
{
    host.progress.step("Reading the topography");
    if (!sources.ground_grid.empty()) {
        std::string fault;
        backdrop.ground = raster_of_grid(sources.ground_grid, static_cast<double>(sources.ground_offset), fault, host.progress);
        if (backdrop.ground.columns == 0) host.dialogs.message(sources.ground_grid + " cannot be shown. " + fault);
    } else if (!sources.ground_points.file_name.empty()) {
        ObservedData data;
        LocationStatistics statistics;
        if (read_locations_file(sources.ground_points, ReadMode::store, data, statistics, host) != Status::good) return;
        backdrop.ground = raster_of_points(data.xyz[0], data.xyz[1], data.xyz[2]);
    }
}

void read_image(const std::string & path, LayoutBackdrop & backdrop, Host & host)
{
    if (path.empty()) return;
    host.progress.step("Reading the image");
    if (find_file(path).empty()) return host.dialogs.message("The image file does not exist: " + path);
    std::string fault;
    backdrop.grid = raster_of_grid(path, 0, fault, host.progress);
    if (backdrop.grid.columns > 0) return;
    backdrop.picture = load_picture(path);
    if (backdrop.picture) {
        if (const auto place = read_image_registration(path, backdrop.picture->width, backdrop.picture->height, fault)) {
            backdrop.picture_limits = place->limits;
            return;
        }
        backdrop.picture.reset();
    }
    host.dialogs.message(path + " cannot be shown. " + (fault.empty() ? "It is neither a grid nor a picture" : fault));
}

/// The points of the map alone: what the files have besides is not looked at.
LocationSource positions_of(const InversionDefinition & definition, int slot)
{
    LocationSource source = location_source(definition, slot);
    source.transform.in_use = false;
    source.line_column = -1;
    source.value_column = {};
    return source;
}

auto key_of(const LocationSource & source)
{
    return std::tie(source.file_name, source.file_type, source.first_data_line, source.read_increment, source.elevation_offset,
                    source.x_column, source.y_column, source.z_column);
}

}

BackdropSources backdrop_sources(const InversionDefinition & definition, const std::string & image)
{
    BackdropSources sources;
    sources.image = image;
    if (definition.data_file_type == 0) {
        sources.readings = positions_of(definition, 0);
        sources.readings.z_column = 0;
    }
    if (definition.topo_type != 0) return sources;
    if (definition.data_kind[1] == 1) {
        sources.ground_grid = definition.data_file[1];
        sources.ground_offset = definition.topo_offset();
    } else {
        sources.ground_points = positions_of(definition, 1);
    }
    return sources;
}

bool same_backdrop(const BackdropSources & one, const BackdropSources & other)
{
    return key_of(one.readings) == key_of(other.readings) && key_of(one.ground_points) == key_of(other.ground_points) &&
           std::tie(one.ground_grid, one.ground_offset, one.image) ==
               std::tie(other.ground_grid, other.ground_offset, other.image);
}

void read_backdrop(const BackdropSources & sources, LayoutBackdrop & backdrop, Host & host)
{
    const auto guarded = [&host](const auto & read) {
        try {
            read();
        } catch (const Stopped &) {
            throw;
        } catch (const std::exception & fault) {
            host.dialogs.message(fault.what());
        }
    };
    guarded([&] { read_image(sources.image, backdrop, host); });
    guarded([&] { read_ground(sources, backdrop, host); });
    guarded([&] { read_readings(sources.readings, backdrop, host); });
}

BackdropRaster raster_of_points(const List<double> & x, const List<double> & y, const List<double> & z)
{
    GridLimits limits = { 1e32, -1e32, 1e32, -1e32 };
    std::int32_t count = 0;
    for (std::int32_t i = 1; i <= x.size(); ++i) {
        if (is_missing(z[i])) continue;
        ++count;
        limits.west = std::min(limits.west, x[i]);
        limits.east = std::max(limits.east, x[i]);
        limits.south = std::min(limits.south, y[i]);
        limits.north = std::max(limits.north, y[i]);
    }
    if (!limits.are_set()) return {};
    const double width = limits.east - limits.west, height = limits.north - limits.south;
    const double size = std::max(std::sqrt(width * height * points_per_cell / count), std::max(width, height) / most_point_cells);
    const auto cells = [size](double side) { return std::max(1, round_to_count(std::ceil(side / size))); };
    const std::int32_t columns = cells(width), rows = cells(height);
    Means means(limits, columns, rows);
    const auto place = [](double share, std::int32_t most) {
        return std::clamp(static_cast<std::int32_t>(share * most), 0, most - 1);
    };
    for (std::int32_t i = 1; i <= x.size(); ++i)
        if (!is_missing(z[i]))
            means.add(place((x[i] - limits.west) / width, columns), place((limits.north - y[i]) / height, rows), z[i]);
    BackdropRaster raster = means.raster();
    for (std::int32_t ring = 0; ring < widest_gap / 2; ++ring) fill_ring(raster);
    set_colour_range(raster);
    return raster;
}
