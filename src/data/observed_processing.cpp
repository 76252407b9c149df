#include "data/observed_processing.h"

#include "data/cell_axis.h"
#include "data/observed_grids.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/ordered_work.h"
#include "support/pattern.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

namespace {

constexpr std::int32_t fewest_readings = 10; ///< below this the user is warned

/// True for the numbers that surveys put where they measured nothing.
bool is_dummy(double value)
{
    if (value > -998) return false;
    return std::abs(value + 99999) <= 1.0 || std::abs(value + 9999) <= 0.1 || std::abs(value + 999) <= 0.01;
}

/// A point on its way to becoming a reading.
struct Reading {
    double x = 0, y = 0, z = 0;
    std::int32_t cell_x = 0, cell_y = 0;
    double value_1 = missing_value, value_2 = missing_value, extra_value = missing_value;
    std::int32_t line = 0;
    double squared_distance = 0; ///< to the centre of its cell
};

/// Asks for memory that will be needed soon; a hint that may do nothing.
void prefetch([[maybe_unused]] const void * address)
{
#ifdef __GNUC__
    __builtin_prefetch(address);
#endif
}

/// Takes the points apart one by one, by the rules of one definition and mesh.
class PointSelection {
public:
    PointSelection(const ObservedData & points, const InversionDefinition & definition, const UbcMesh & mesh,
                   const TopoSurface & topo)
        : topo_(topo), x_(points.xyz[0].items()), y_(points.xyz[1].items()), z_(points.xyz[2].items()),
          value_({ points.value[0].items(), points.value[1].items(), points.value[2].items() }),
          line_index_(points.line_index.items()),
          axis_x_(mesh.nodes_x, mesh.core_x_first, definition.mesh_cell_size[0], definition.add_padding_cells != 0),
          axis_y_(mesh.nodes_y, mesh.core_y_first, definition.mesh_cell_size[1], definition.add_padding_cells != 0),
          mesh_top_(mesh.nodes_z[1]), sensor_offset_(static_cast<double>(definition.sensor_offset())),
          least_height_(static_cast<double>(definition.sensor_min_height())),
          base_(static_cast<double>(definition.obs_base_value)), scale_(static_cast<double>(definition.obs_scale_value)),
          type_count_(definition.obs_data_type_count), keeps_nulls_(definition.data_integration_time > 0),
          has_z_(definition.data_z_column[0] > 0), has_line_(definition.data_line_column > 0),
          has_extra_value_(definition.data_extra_value_column > 0), above_ground_(definition.sensor_height_type == 0),
          is_flat_(definition.topo_type != 0)
    {
    }

    /// Makes a reading of point i, counted from 0. False when it is left out. shifts: by how much readings were lifted.
    bool take(std::size_t i, Triangulation::Trail & trail, Reading & reading, std::vector<double> & shifts) const
    {
        if (has_z_ && is_dummy(z_[i])) return false;
        // A z from the file holds the sensor's offset already: it counts twice there, as it always has.
        reading.z = (has_z_ ? z_[i] : 0) + sensor_offset_;
        return take_values(i, reading) && place(i, reading) && set_elevation(trail, reading, shifts);
    }

    /// Makes the reading of a point that was taken before, all but its elevation.
    Reading take_again(std::size_t i) const
    {
        Reading reading;
        take_values(i, reading);
        place(i, reading);
        return reading;
    }

    void prefetch_point(std::size_t i) const
    {
        prefetch(&x_[i]);
        prefetch(&y_[i]);
        prefetch(value_[0].empty() ? nullptr : &value_[0][i]);
    }

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
        if (!is_missing(reading.value_1)) reading.value_1 = (reading.value_1 - base_) * scale_;
        if (type_count_ >= 2) {
            reading.value_2 = value(1, i);
            if (!admit(reading.value_2)) return false;
        }
        if (type_count_ >= 3) {
            double value_3 = value(2, i);
            if (!admit(value_3)) return false; // of no further use: the distance takes its place
        }
        if (has_line_) reading.line = line_index_[i];
        if (has_extra_value_) reading.extra_value = value(2, i);
        return true;
    }

    bool place(std::size_t i, Reading & reading) const
    {
        reading.x = x_[i];
        reading.y = y_[i];
        if (!axis_x_.takes(reading.x) || !axis_y_.takes(reading.y)) return false;
        reading.cell_x = axis_x_.cell_of(reading.x);
        reading.cell_y = axis_y_.cell_of(reading.y);
        axis_x_.snap(reading.cell_x, reading.x);
        axis_y_.snap(reading.cell_y, reading.y);
        const double dx = reading.x - axis_x_.centre(reading.cell_x);
        const double dy = reading.y - axis_y_.centre(reading.cell_y);
        reading.squared_distance = dx * dx + dy * dy;
        return true;
    }

    bool set_elevation(Triangulation::Trail & trail, Reading & reading, std::vector<double> & shifts) const
    {
        const double ground = is_flat_ ? mesh_top_ : topo_.triangulation.at(reading.x, reading.y, trail);
        if (is_missing(ground)) return false;
        if (above_ground_) reading.z += ground;
        if (least_height_ > 0 && reading.z - ground < least_height_) {
            shifts.push_back(ground + least_height_ - reading.z);
            reading.z = ground + least_height_;
        }
        return true;
    }

    const TopoSurface & topo_;
    std::span<const double> x_, y_, z_;
    std::array<std::span<const float>, 3> value_;
    std::span<const std::int32_t> line_index_;
    CellAxis axis_x_, axis_y_;
    double mesh_top_, sensor_offset_, least_height_, base_, scale_;
    std::int32_t type_count_;
    bool keeps_nulls_, has_z_, has_line_, has_extra_value_, above_ground_, is_flat_;
};

AllPoints::Point whole_point(const Reading & reading)
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
    point.distance = std::sqrt(reading.squared_distance);
    point.extra_value = reading.extra_value;
    return point;
}

/// What a reading needs to compete for its cell.
struct Candidate {
    std::int32_t point = 0; ///< counted from 0
    std::uint32_t cell = 0; ///< counted from 0
    double squared_distance = 0;
    double z = 0;
};

/// The readings that a block of points gives, in their order.
struct ReadingBlock {
    std::vector<Candidate> candidates;
    std::vector<AllPoints::Point> all; ///< empty unless all are kept
    std::vector<double> shifts;
};

void size_lists(const InversionDefinition & definition, const UbcMesh & mesh, SelectedData & selected)
{
    selected.cells_x = mesh.cells_x();
    selected.cells_y = mesh.cells_y();
    const std::int64_t cells = std::int64_t{ mesh.cells_x() } * mesh.cells_y();
    selected.occupied.assign(cells);
    for (List<float> * list : { &selected.x, &selected.y, &selected.z, &selected.value_1, &selected.value_3 })
        list->assign(cells);
    if (definition.obs_data_type_count >= 2) selected.value_2.assign(cells);
    if (definition.data_line_column > 0) selected.line.assign(cells);
    if (definition.data_extra_value_column > 0) selected.extra_value.assign(cells);
}

/// Lets readings compete for the cells. Only the number of a cell's point, its distance and its elevation are kept meanwhile.
class CellChoice {
public:
    explicit CellChoice(SelectedData & selected)
        : selected_(selected), point_(static_cast<std::size_t>(selected.occupied.size()), no_point),
          distance_(selected.value_3.items()), z_(selected.z.items())
    {
        std::ranges::fill(distance_, std::numeric_limits<float>::infinity());
    }

    /// Of readings at the same distance the first stays.
    void offer(std::span<const Candidate> candidates)
    {
        constexpr std::size_t ahead = 32;
        for (std::size_t i = 0; i < candidates.size(); ++i) {
            if (i + ahead < candidates.size()) prefetch_cell(candidates[i + ahead]);
            offer(candidates[i]);
        }
    }

    /// Fills in all that the cells from `first` up to `last`, counted from 0, hold of their points.
    void fill_cells(const PointSelection & selection, std::size_t first, std::size_t last)
    {
        for (std::size_t cell = first; cell < last; ++cell) {
            if (const std::size_t ahead = cell + 16; ahead < last && point_[ahead] != no_point)
                selection.prefetch_point(static_cast<std::size_t>(point_[ahead]));
            if (point_[cell] == no_point)
                distance_[cell] = 0;
            else
                fill_cell(static_cast<std::int64_t>(cell) + 1, selection.take_again(static_cast<std::size_t>(point_[cell])));
        }
    }

private:
    static constexpr std::int32_t no_point = -1; // points count from 0 here

    void prefetch_cell(const Candidate & candidate) const
    {
        prefetch(&distance_[candidate.cell]);
        prefetch(&point_[candidate.cell]);
    }

    void offer(const Candidate & candidate)
    {
        const std::size_t cell = candidate.cell;
        // The stored distance squared is exact, so this leaves out none that is nearer, and spares most of the roots.
        const auto least = static_cast<double>(distance_[cell]);
        if (candidate.squared_distance >= least * least) return;
        const auto distance = static_cast<float>(std::sqrt(candidate.squared_distance));
        if (!(distance < distance_[cell])) return;
        if (point_[cell] == no_point) ++selected_.selected_count;
        point_[cell] = candidate.point;
        distance_[cell] = distance;
        z_[cell] = to_f32(candidate.z);
    }

    void fill_cell(std::int64_t cell, const Reading & reading)
    {
        selected_.occupied[cell] = 1;
        selected_.x[cell] = to_f32(reading.x);
        selected_.y[cell] = to_f32(reading.y);
        selected_.value_1[cell] = to_f32(reading.value_1);
        if (!selected_.value_2.empty()) selected_.value_2[cell] = to_f32(reading.value_2);
        if (!selected_.line.empty()) selected_.line[cell] = reading.line;
        if (!selected_.extra_value.empty()) selected_.extra_value[cell] = to_f32(reading.extra_value);
    }

    SelectedData & selected_;
    std::vector<std::int32_t> point_;
    std::span<float> distance_, z_;
};

// Of points and of cells alike. Small enough to stay near the processor, and for a search of the ground to start anew in each.
constexpr std::size_t block_size = std::size_t{ 1 } << 14;

std::size_t block_count(std::size_t count) { return (count + block_size - 1) / block_size; }
std::size_t block_end(std::size_t number, std::size_t count) { return std::min((number + 1) * block_size, count); }

void take_block(const PointSelection & selection, const SelectedData & selected, std::size_t first, std::size_t last,
                bool keeps_all, ReadingBlock & block)
{
    block.candidates.clear();
    block.all.clear();
    block.shifts.clear();
    Triangulation::Trail trail;
    for (std::size_t i = first; i < last; ++i) {
        Reading reading;
        if (!selection.take(i, trail, reading, block.shifts)) continue;
        const auto cell = static_cast<std::uint32_t>(selected.cell(reading.cell_x, reading.cell_y) - 1);
        block.candidates.push_back({ static_cast<std::int32_t>(i), cell, reading.squared_distance, reading.z });
        if (keeps_all) block.all.push_back(whole_point(reading));
    }
}

void fill_all_cells(CellChoice & choice, const PointSelection & selection, std::size_t cells)
{
    struct Nothing {};
    work_in_order<Nothing>(
        block_count(cells), working_threads(),
        [&](std::size_t number, Nothing &) { choice.fill_cells(selection, number * block_size, block_end(number, cells)); },
        [](std::size_t, const Nothing &) {});
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
    // The third value may be one of two things, and the extra value comes first. A column for neither may hold anything.
    if (definition.obs_data_type_count < 3) source.value_column[2] = 0;
    if (definition.data_extra_value_column > 0) source.value_column[2] = definition.data_extra_value_column;
    return source;
}

void select_point_readings(const ObservedData & points, const InversionDefinition & definition, const UbcMesh & mesh,
                           const TopoSurface & topo, ObservedReadings & readings, Host & host)
{
    readings = {};
    readings.read_count = points.point_count;
    SelectedData & selected = readings.selected;
    size_lists(definition, mesh, selected);
    selected.line_name = points.line_name;
    const bool keeps_all = definition.data_values_per_cell != 1;
    if (keeps_all) readings.all.points.reserve(points.point_count);

    const PointSelection selection(points, definition, mesh, topo);
    const auto count = static_cast<std::size_t>(points.point_count);
    CellChoice choice(selected);
    Shifts shifts;
    Percentage percentage(host.progress, points.point_count);
    work_in_order<ReadingBlock>(
        block_count(count), working_threads(),
        [&](std::size_t number, ReadingBlock & block) {
            take_block(selection, selected, number * block_size, block_end(number, count), keeps_all, block);
        },
        [&](std::size_t number, const ReadingBlock & block) {
            percentage.report(static_cast<std::int64_t>(number * block_size));
            readings.all.points.append(block.all);
            for (const double shift : block.shifts) shifts.add(shift);
            choice.offer(block.candidates);
        });
    readings.all.point_count = readings.all.points.size();
    fill_all_cells(choice, selection, selected.occupied.items().size());
    report_selection(shifts, selected, host);
}

Status process_inversion_data(const InversionDefinition & definition, const UbcMesh & mesh, const TopoSurface & topo,
                              ObservedReadings & readings, Host & host)
{
    if (definition.data_file_type != 0) {
        readings = {};
        size_lists(definition, mesh, readings.selected);
        Shifts shifts;
        if (select_grid_readings(definition, mesh, topo, readings.selected, shifts, host) != Status::good) return Status::bad;
        report_selection(shifts, readings.selected, host);
        return Status::good;
    }
    ObservedData points;
    LocationStatistics statistics;
    if (read_locations_file(location_source(definition, 0), ReadMode::store, points, statistics, host) != Status::good)
        return Status::bad;
    select_point_readings(points, definition, mesh, topo, readings, host);
    return Status::good;
}
