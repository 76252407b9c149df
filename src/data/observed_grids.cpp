#include "data/observed_grids.h"

#include "data/mesh_grids.h"
#include "support/missing.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t first_grid_slot = 2, sensor_grid_slot = 5;
constexpr std::int32_t most_grids = 3;
constexpr std::int32_t clear_cells = 4; ///< of a padded mesh, at either end

/// Cells of an axis, by their numbers.
struct CellRun {
    std::int32_t first, count;

    std::int32_t end() const { return first + count; }
    std::span<const double> of(const List<double> & centres) const
    {
        return centres.items().subspan(static_cast<std::size_t>(first) - 1, static_cast<std::size_t>(count));
    }
};

/// The cells that take readings.
CellRun taking_cells(std::int32_t cells, bool is_padded)
{
    if (!is_padded) return { 1, cells };
    if (cells <= 2 * clear_cells) return { 1, 0 };
    return { 1 + clear_cells, cells - 2 * clear_cells };
}

/// Turns samples at cell centres into readings.
class GridSelection {
public:
    GridSelection(const InversionDefinition & definition, const UbcMesh & mesh, const TopoSurface & topo, SelectedData & selected)
        : mesh_(mesh), topo_(topo), selected_(selected), sensor_offset_(static_cast<double>(definition.sensor_offset())),
          least_height_(static_cast<double>(definition.sensor_min_height())),
          base_(static_cast<double>(definition.obs_base_value)), scale_(static_cast<double>(definition.obs_scale_value)),
          is_fixed_(definition.sensor_height_type == 1), is_flat_(definition.topo_type != 0)
    {
    }

    void take_row(const MeshGrids & grids, const CellRun & columns, std::int32_t iy)
    {
        const std::array<List<float> *, most_grids> lists = { nullptr, &selected_.value_2, &selected_.value_3 };
        for (std::size_t i = 0; i < grids.values(0).size(); ++i) {
            const double value = grids.values(0)[i];
            if (is_missing(value)) continue;
            const std::int32_t ix = columns.first + static_cast<std::int32_t>(i);
            const std::int64_t cell = selected_.cell(ix, iy);
            ++selected_.selected_count;
            selected_.occupied[cell] = 1;
            selected_.x[cell] = to_f32(mesh_.centres_x[ix]);
            selected_.y[cell] = to_f32(mesh_.centres_y[iy]);
            selected_.z[cell] = to_f32(elevation(cell));
            selected_.value_1[cell] = to_f32((value - base_) * scale_);
            for (std::size_t grid = 1; grid < grids.size(); ++grid) (*lists[grid])[cell] = to_f32(grids.values(grid)[i]);
        }
    }

    /// heights: one for each cell of the row.
    void add_sensor_heights(std::span<const double> heights, std::int32_t iy, Shifts & shifts)
    {
        for (std::size_t i = 0; i < heights.size(); ++i) {
            const std::int64_t cell = selected_.cell(1 + static_cast<std::int32_t>(i), iy);
            if (selected_.occupied[cell] == 0) continue;
            if (is_missing(heights[i])) {
                selected_.occupied[cell] = 0; // and still counted
                continue;
            }
            selected_.z[cell] = to_f32(lifted(static_cast<double>(selected_.z[cell]) + heights[i], cell, shifts));
        }
    }

private:
    double ground(std::int64_t cell) const { return is_flat_ ? mesh_.nodes_z[1] : static_cast<double>(topo_.cell_topo[cell]); }

    /// Unlike that of points, an elevation whose kind was not chosen stands above the ground.
    double elevation(std::int64_t cell) const { return is_fixed_ ? sensor_offset_ : sensor_offset_ + ground(cell); }

    double lifted(double z, std::int64_t cell, Shifts & shifts) const
    {
        if (least_height_ <= 0) return z;
        const double lowest = ground(cell) + least_height_;
        if (z - ground(cell) >= least_height_) return z;
        ++shifts.count;
        shifts.sum += lowest - z;
        return lowest;
    }

    const UbcMesh & mesh_;
    const TopoSurface & topo_;
    SelectedData & selected_;
    double sensor_offset_, least_height_, base_, scale_;
    bool is_fixed_, is_flat_;
};

/// Calls `visit` with the number of each mesh row of the run once the grids have been sampled along it.
template <class Visit>
void for_each_row(MeshGrids & grids, std::span<const double> x, const CellRun & rows, const UbcMesh & mesh, Progress & progress,
                  Visit visit)
{
    Percentage percentage(progress, mesh.cells_y());
    for (std::int32_t iy = rows.first; iy < rows.end(); ++iy) {
        grids.sample_row(x, mesh.centres_y[iy]);
        visit(iy);
        percentage.report(iy - 1);
    }
}

Status take_values(const InversionDefinition & definition, const UbcMesh & mesh, GridSelection & selection, Host & host)
{
    MeshGrids grids(mesh, definition.coordinate_transform);
    const auto count = static_cast<std::size_t>(std::clamp(definition.obs_data_type_count, 1, most_grids));
    for (std::size_t grid = 0; grid < count; ++grid) {
        const std::string & file = definition.data_file.at(first_grid_slot + grid);
        if (file.empty()) {
            host.dialogs.message("Failed to determine grid format: no grid is named for data component " +
                                 general_text(static_cast<std::int32_t>(grid + 1)));
            return Status::bad;
        }
        if (grids.add(file, host.dialogs) != Status::good) return Status::bad;
    }

    const bool is_padded = definition.add_padding_cells != 0;
    const CellRun columns = taking_cells(mesh.cells_x(), is_padded);
    for_each_row(grids, columns.of(mesh.centres_x), taking_cells(mesh.cells_y(), is_padded), mesh, host.progress,
                 [&](std::int32_t iy) { selection.take_row(grids, columns, iy); });
    return Status::good;
}

Status add_sensor_grid(const InversionDefinition & definition, const UbcMesh & mesh, GridSelection & selection, Shifts & shifts,
                       Host & host)
{
    if (definition.data_file.at(sensor_grid_slot).empty()) return Status::good;
    MeshGrids sensor(mesh, definition.coordinate_transform);
    if (sensor.add(definition.data_file.at(sensor_grid_slot), host.dialogs) != Status::good) return Status::bad;
    for_each_row(sensor, mesh.centres_x.items(), { 1, mesh.cells_y() }, mesh, host.progress,
                 [&](std::int32_t iy) { selection.add_sensor_heights(sensor.values(0), iy, shifts); });
    return Status::good;
}

}

Status select_grid_readings(const InversionDefinition & definition, const UbcMesh & mesh, const TopoSurface & topo,
                            SelectedData & selected, Shifts & shifts, Host & host)
{
    GridSelection selection(definition, mesh, topo, selected);
    if (take_values(definition, mesh, selection, host) != Status::good) return Status::bad;
    return add_sensor_grid(definition, mesh, selection, shifts, host);
}
