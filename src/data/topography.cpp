#include "data/topography.h"

#include "data/mesh_surroundings.h"
#include "data/topo_surface.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float air_mark = -1.0F;
constexpr double least_clearance = 0.1; ///< of a reading above the top of its column's highest solid cell, metres
constexpr std::int32_t own_solver = 4;

/// Dummies of other programs. The bands are wider than those of readings, and all alike.
bool is_dummy_elevation(double z)
{
    return is_missing(z) || std::abs(z + 99999) <= 1 || std::abs(z + 9999) <= 1 || std::abs(z + 999) <= 1;
}

SurfacePoints points_near_mesh(const ObservedData & points, const UbcMesh & mesh, Progress & progress)
{
    const Extents near = surroundings_of(mesh);
    const auto is_near = [&near](double east, double north) {
        return east >= near.west && east <= near.east && north >= near.south && north <= near.north;
    };
    const auto x = points.xyz[0].items(), y = points.xyz[1].items(), z = points.xyz[2].items();
    SurfacePoints kept(x.size(), mesh);
    Percentage percentage(progress, points.point_count);
    for (std::size_t i = 0; i < x.size(); ++i) {
        percentage.report(static_cast<std::int64_t>(i));
        if (is_near(x[i], y[i]) && !is_dummy_elevation(z[i])) kept.add(x[i], y[i], z[i]);
    }
    return kept;
}

/// 0 everywhere while there is no surface: the top of the mesh is the ground.
std::int32_t air_cells_of(const TopoSurface & topo, std::int64_t column, std::int32_t cells_z)
{
    return topo.point_count == 0 ? 0 : std::min(topo.air_cells[column], cells_z);
}

void mark_air(const UbcMesh & mesh, const TopoSurface & topo, List<float> & cell_model)
{
    const std::int64_t columns = std::int64_t{ mesh.cells_x() } * mesh.cells_y();
    if (cell_model.size() != columns * mesh.cells_z()) throw Fault("the cell model does not fit the mesh");
    if (topo.point_count == 0) return;
    const auto air = topo.air_cells.items();
    const auto model = cell_model.items();
    const std::int32_t deepest = air.empty() ? 0 : std::min(std::ranges::max(air), mesh.cells_z());
    for (std::int32_t layer = 0; layer < deepest; ++layer)
        for (std::size_t column = 0; column < air.size(); ++column)
            if (layer < air[column]) model[static_cast<std::size_t>(layer) * air.size() + column] = air_mark;
}

void lift_readings(const UbcMesh & mesh, const TopoSurface & topo, SelectedData & selected, Progress & progress)
{
    Percentage percentage(progress, std::int64_t{ mesh.cells_x() } * mesh.cells_y());
    for (std::int32_t iy = 1; iy <= mesh.cells_y(); ++iy)
        for (std::int32_t ix = 1; ix <= mesh.cells_x(); ++ix) {
            const std::int64_t column = (iy - std::int64_t{ 1 }) * mesh.cells_x() + ix;
            percentage.report(column);
            if (selected.occupied[column] == 0) continue;
            const double lowest = mesh.nodes_z[air_cells_of(topo, column, mesh.cells_z()) + 1] + least_clearance;
            if (lowest > selected.z[column]) selected.z[column] = to_f32(lowest);
        }
}

}

Status interpolate_topo_points(const ObservedData & points, const InversionDefinition & definition, const UbcMesh & mesh,
                               TopoSurface & topo, Host & host)
{
    try {
        // The own solver's mesh drapes under the ground and has no air.
        const AirRule rule = definition.inversion_method == own_solver ? AirRule::none : AirRule::above_ground;
        return make_topo_surface(points_near_mesh(points, mesh, host.progress), rule, definition, mesh, topo, host);
    } catch (const std::exception & fault) {
        return report_topo_fault(fault, host.dialogs);
    }
}

Status process_inversion_topo(const InversionDefinition & definition, const UbcMesh & mesh, const TopoSurface & topo,
                              SelectedData & selected, List<float> & cell_model, Host & host)
{
    try {
        mark_air(mesh, topo, cell_model);
        // The own solver takes readings where they are.
        if (definition.inversion_method != own_solver) lift_readings(mesh, topo, selected, host.progress);
        return Status::good;
    } catch (const std::exception & fault) {
        return report_topo_fault(fault, host.dialogs);
    }
}
