#include "data/observed_processing.h"

#include "data/cell_axis.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/pattern.h"

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace {

constexpr std::int32_t fewest_readings = 10; ///< below this the user is warned

/// True for the numbers that surveys put where they measured nothing.
bool is_dummy(double value)
{
    return std::abs(value + 99999) <= 1.0 || std::abs(value + 9999) <= 0.1 || std::abs(value + 999) <= 0.01;
}

/// A point on its way to becoming a reading.
struct Reading {
    double x = 0, y = 0, z = 0;
    std::int32_t cell_x = 0, cell_y = 0;
    double value_1 = missing_value, value_2 = missing_value, extra_value = missing_value;
    std::int32_t line = 0;
    double distance = 0; ///< to the centre of its cell
};

/// What a cell holds while readings compete for it. One cell is one half of a cache line: surveys come in any order.
struct alignas(32) CellReading {
    float distance = std::numeric_limits<float>::infinity(); ///< infinite while the cell is empty
    float x = 0, y = 0, z = 0;
    float value_1 = 0, value_2 = 0, extra_value = 0;
    std::int32_t line = 0;
};

CellReading cell_reading(const Reading & reading, float distance)
{
    CellReading kept;
    kept.distance = distance;
    kept.x = to_f32(reading.x);
    kept.y = to_f32(reading.y);
    kept.z = to_f32(reading.z);
    kept.value_1 = to_f32(reading.value_1);
    kept.value_2 = to_f32(reading.value_2);
    kept.extra_value = to_f32(reading.extra_value);
    kept.line = reading.line;
    return kept;
}

/// How many readings had to be lifted to the least height above the ground, and by how much in all.
struct Shifts {
    std::int32_t count = 0;
    double sum = 0;
};

/// Takes the points apart one by one, by the rules of one definition and mesh.
class PointSelection {
public:
    PointSelection(const ObservedData & points, const InversionDefinition & definition, const UbcMesh & mesh,
                   const TopoSurface & topo)
        : definition_(definition), topo_(topo), x_(points.xyz[0].items()), y_(points.xyz[1].items()), z_(points.xyz[2].items()),
          value_({ points.value[0].items(), points.value[1].items(), points.value[2].items() }),
          line_index_(points.line_index.items()),
          axis_x_(mesh.nodes_x, mesh.core_x_first, definition.mesh_cell_size[0], definition.add_padding_cells != 0),
          axis_y_(mesh.nodes_y, mesh.core_y_first, definition.mesh_cell_size[1], definition.add_padding_cells != 0),
          mesh_top_(mesh.nodes_z[1]), keeps_nulls_(definition.data_integration_time > 0), has_z_(definition.data_z_column[0] > 0),
          has_line_(definition.data_line_column > 0), has_extra_value_(definition.data_extra_value_column > 0),
          above_ground_(definition.sensor_height_type == 0)
    {
    }

    /// The reading made of point i, counted from 0; nothing when it is left out.
    std::optional<Reading> reading(std::size_t i)
    {
        Reading reading{ .x = x_[i], .y = y_[i] };
        if (has_z_ && is_dummy(z_[i])) return std::nullopt;
        // A z from the file holds the sensor's offset already: it counts twice there, as it always has.
        reading.z = (has_z_ ? z_[i] : 0) + static_cast<double>(definition_.sensor_offset());
        if (!take_values(i, reading) || !place(reading) || !set_elevation(reading)) return std::nullopt;
        return reading;
    }

    const Shifts & shifts() const { return shifts_; }

private:
    double value(std::size_t component, std::size_t i) const
    {
        return value_[component].empty() ? missing_value : static_cast<double>(value_[component][i]);
    }

    /// Makes every kind of null the missing one. False when a null puts the reading out.
    bool admit(double & value) const
    {
        if (!is_missing(value) && !is_dummy(value)) return true;
        value = missing_value;
        return keeps_nulls_;
    }

    bool take_values(std::size_t i, Reading & reading) const
    {
        reading.value_1 = value(0, i);
        if (!admit(reading.value_1)) return false;
        if (!is_missing(reading.value_1))
            reading.value_1 = (reading.value_1 - static_cast<double>(definition_.obs_base_value)) *
                              static_cast<double>(definition_.obs_scale_value);
        if (definition_.obs_data_type_count >= 2) {
            reading.value_2 = value(1, i);
            if (!admit(reading.value_2)) return false;
        }
        if (definition_.obs_data_type_count >= 3) {
            double value_3 = value(2, i);
            if (!admit(value_3)) return false; // of no further use: the distance takes its place
        }
        if (has_line_) reading.line = line_index_[i];
        if (has_extra_value_) reading.extra_value = value(2, i);
        return true;
    }

    bool place(Reading & reading) const
    {
        if (!axis_x_.takes(reading.x) || !axis_y_.takes(reading.y)) return false;
        reading.cell_x = axis_x_.cell_of(reading.x);
        reading.cell_y = axis_y_.cell_of(reading.y);
        axis_x_.snap(reading.cell_x, reading.x);
        axis_y_.snap(reading.cell_y, reading.y);
        const double dx = reading.x - axis_x_.centre(reading.cell_x);
        const double dy = reading.y - axis_y_.centre(reading.cell_y);
        reading.distance = std::sqrt(dx * dx + dy * dy);
        return true;
    }

    bool set_elevation(Reading & reading)
    {
        const double ground = definition_.topo_type != 0 ? mesh_top_ : topo_.triangulation.at(reading.x, reading.y);
        if (is_missing(ground)) return false;
        if (above_ground_) reading.z += ground;
        const auto least_height = static_cast<double>(definition_.sensor_min_height());
        if (least_height > 0 && reading.z - ground < least_height) {
            ++shifts_.count;
            shifts_.sum += ground + least_height - reading.z;
            reading.z = ground + least_height;
        }
        return true;
    }

    const InversionDefinition & definition_;
    const TopoSurface & topo_;
    std::span<const double> x_, y_, z_;
    std::array<std::span<const float>, 3> value_;
    std::span<const std::int32_t> line_index_;
    CellAxis axis_x_, axis_y_;
    double mesh_top_;
    bool keeps_nulls_, has_z_, has_line_, has_extra_value_, above_ground_;
    Shifts shifts_;
};

void add_to_all(const Reading & reading, AllPoints & all)
{
    AllPoints::Point point;
    point.cell_x = reading.cell_x;
    point.cell_y = reading.cell_y;
    point.line = reading.line;
    point.x = reading.x;
    point.y = reading.y;
    point.z = reading.z;
    point.value_1 = reading.value_1;
    point.value_2 = reading.value_2;
    point.distance = reading.distance;
    point.extra_value = reading.extra_value;
    all.points.push_back(point);
    ++all.point_count;
}

/// One list of the selection out of the cells' records.
template <class Field, class Item>
void unpack(const std::vector<CellReading> & cells, Field CellReading::*field, bool wanted, List<Item> & list)
{
    if (!wanted) return;
    list.assign(static_cast<std::int64_t>(cells.size()));
    const auto items = list.items();
    for (std::size_t i = 0; i < cells.size(); ++i) items[i] = cells[i].*field;
}

void unpack_cells(const std::vector<CellReading> & cells, const InversionDefinition & definition, SelectedData & selected)
{
    selected.occupied.assign(static_cast<std::int64_t>(cells.size()));
    unpack(cells, &CellReading::x, true, selected.x);
    unpack(cells, &CellReading::y, true, selected.y);
    unpack(cells, &CellReading::z, true, selected.z);
    unpack(cells, &CellReading::value_1, true, selected.value_1);
    unpack(cells, &CellReading::value_2, definition.obs_data_type_count >= 2, selected.value_2);
    unpack(cells, &CellReading::distance, true, selected.value_3);
    unpack(cells, &CellReading::line, definition.data_line_column > 0, selected.line);
    unpack(cells, &CellReading::extra_value, definition.data_extra_value_column > 0, selected.extra_value);
    const auto occupied = selected.occupied.items();
    const auto distances = selected.value_3.items();
    for (std::size_t i = 0; i < cells.size(); ++i) {
        occupied[i] = std::isinf(cells[i].distance) ? 0 : 1;
        if (occupied[i] == 0) distances[i] = 0;
    }
}

void report_selection(const Shifts & shifts, const SelectedData & selected, Host & host)
{
    if (shifts.count > 0)
        host.progress.line("Number of data points shifted: " + format_number(shifts.count, "0") +
                           " average shift: " + format_number(shifts.sum / shifts.count, "0.0"));
    if (selected.selected_count < fewest_readings)
        host.dialogs.message("Warning: The number of inversion data defined is only " +
                             format_number(selected.selected_count, "0"));
}

}

LocationSource location_source(const InversionDefinition & definition, int slot)
{
    const auto at = static_cast<std::size_t>(slot);
    LocationSource source;
    source.file_name = definition.data_file.at(at);
    source.file_type = definition.data_kind[at];
    source.first_data_line = definition.data_first_line[at];
    source.read_increment = definition.data_read_step[at];
    source.x_column = definition.data_x_column[at];
    source.y_column = definition.data_y_column[at];
    source.z_column = definition.data_z_column[at];
    source.transform = definition.coordinate_transform;
    if (slot == 1) {
        source.elevation_offset = definition.topo_offset();
        return source;
    }
    source.elevation_offset = definition.sensor_offset();
    source.line_column = definition.data_line_column;
    source.value_column = definition.data_value_column;
    // The third value may be one of two things, and the extra value comes first.
    if (definition.data_extra_value_column > 0) source.value_column[2] = definition.data_extra_value_column;
    return source;
}

void select_point_readings(const ObservedData & points, const InversionDefinition & definition, const UbcMesh & mesh,
                           const TopoSurface & topo, ObservedReadings & readings, Host & host)
{
    readings = {};
    readings.read_count = points.point_count;
    SelectedData & selected = readings.selected;
    selected.cells_x = mesh.cells_x();
    selected.cells_y = mesh.cells_y();
    selected.line_name = points.line_name;
    const bool keeps_all = definition.data_values_per_cell != 1;
    if (keeps_all) readings.all.points.reserve(points.point_count);

    PointSelection selection(points, definition, mesh, topo);
    std::vector<CellReading> cells(static_cast<std::size_t>(mesh.cells_x()) * static_cast<std::size_t>(mesh.cells_y()));
    Percentage percentage(host.progress, points.point_count);
    for (std::int32_t i = 0; i < points.point_count; ++i) {
        percentage.report(i);
        const std::optional<Reading> reading = selection.reading(static_cast<std::size_t>(i));
        if (!reading) continue;
        if (keeps_all) add_to_all(*reading, readings.all);
        CellReading & cell = cells[static_cast<std::size_t>(selected.cell(reading->cell_x, reading->cell_y)) - 1];
        const float distance = to_f32(reading->distance);
        if (!(distance < cell.distance)) continue;
        if (std::isinf(cell.distance)) ++selected.selected_count;
        cell = cell_reading(*reading, distance);
    }
    unpack_cells(cells, definition, selected);
    report_selection(selection.shifts(), selected, host);
}

Status process_inversion_data(const InversionDefinition & definition, const UbcMesh & mesh, const TopoSurface & topo,
                              ObservedReadings & readings, Host & host)
{
    if (definition.data_file_type != 0) {
        host.dialogs.message("Gridded data are not available yet: " + definition.data_file[2]);
        return Status::bad;
    }
    ObservedData points;
    LocationStatistics statistics;
    if (read_locations_file(location_source(definition, 0), ReadMode::store, points, statistics, host) != Status::good)
        return Status::bad;
    select_point_readings(points, definition, mesh, topo, readings, host);
    return Status::good;
}
