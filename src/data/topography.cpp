#include "data/topography.h"

#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t fewest_points = 5;
constexpr float air_mark = -1.0F;
constexpr double least_clearance = 0.1; ///< of a reading above the top of its column's highest solid cell, metres
constexpr std::int32_t own_solver = 4;

struct SurfacePoints {
    std::vector<double> x, y, z;

    std::size_t size() const { return x.size(); }
    void reserve(std::size_t count)
    {
        for (auto * list : { &x, &y, &z }) list->reserve(count);
    }
    void add(double east, double north, double elevation)
    {
        x.push_back(east);
        y.push_back(north);
        z.push_back(elevation);
    }
};

/// The lines one edge cell outside the mesh: points count up to them and the frame lies on them.
struct Surroundings {
    double west, east, south, north;

    bool contain(double x, double y) const { return x >= west && x <= east && y >= south && y <= north; }
};

double before_first(const List<double> & nodes) { return nodes[1] - (nodes[2] - nodes[1]); }

double behind_last(const List<double> & nodes)
{
    const std::int32_t last = nodes.size();
    return nodes[last] + (nodes[last] - nodes[last - 1]);
}

Surroundings surroundings_of(const UbcMesh & mesh)
{
    return { before_first(mesh.nodes_x), behind_last(mesh.nodes_x), before_first(mesh.nodes_y), behind_last(mesh.nodes_y) };
}

/// Dummies of other programs. The bands are wider than those of readings, and all alike.
bool is_dummy_elevation(double z)
{
    return is_missing(z) || std::abs(z + 99999) <= 1 || std::abs(z + 9999) <= 1 || std::abs(z + 999) <= 1;
}

std::int32_t frame_count_of(const UbcMesh & mesh) { return (mesh.nodes_x.size() + mesh.nodes_y.size()) * 2 + 3; }

SurfacePoints points_near_mesh(const ObservedData & points, const UbcMesh & mesh, Progress & progress)
{
    const Surroundings near = surroundings_of(mesh);
    const auto x = points.xyz[0].items(), y = points.xyz[1].items(), z = points.xyz[2].items();
    SurfacePoints kept;
    kept.reserve(x.size() + static_cast<std::size_t>(frame_count_of(mesh)));
    Percentage percentage(progress, points.point_count);
    for (std::size_t i = 0; i < x.size(); ++i) {
        percentage.report(static_cast<std::int64_t>(i));
        if (near.contain(x[i], y[i]) && !is_dummy_elevation(z[i])) kept.add(x[i], y[i], z[i]);
    }
    return kept;
}

/// True when no point stands off one line by more than the rounding of its coordinates. Asked of the data alone: with the frame
/// around them they never lie on one line, and the user would get a surface that is the mean but for one thin ridge.
bool on_one_line(const SurfacePoints & points)
{
    double far_x = 0, far_y = 0, far_squared = 0, largest = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double x = points.x[i] - points.x[0], y = points.y[i] - points.y[0];
        const double squared = x * x + y * y;
        if (squared > far_squared) far_x = x, far_y = y, far_squared = squared;
        largest = std::max({ largest, std::abs(points.x[i]), std::abs(points.y[i]) });
    }
    const double allowed = 1e-14 * largest * std::sqrt(far_squared);
    for (std::size_t i = 0; i < points.size(); ++i)
        if (std::abs(far_x * (points.y[i] - points.y[0]) - far_y * (points.x[i] - points.x[0])) > allowed) return false;
    return true;
}

/// Adds a ring of points at the mean elevation around the mesh, so that the surface covers every cell.
///
/// They come behind the data, so that a data point in the same place counts. The north-west corner has no point; the hull
/// passes outside the mesh there all the same.
void add_topo_frame(const UbcMesh & mesh, double mean, SurfacePoints & points)
{
    const Surroundings at = surroundings_of(mesh);
    points.add(at.west, at.south, mean);
    points.add(at.east, at.south, mean);
    points.add(at.east, at.north, mean);
    for (const double y : { at.south, at.north })
        for (const double x : mesh.nodes_x.items()) points.add(x, y, mean);
    for (const double x : { at.west, at.east })
        for (const double y : mesh.nodes_y.items()) points.add(x, y, mean);
}

double mean_of(const std::vector<double> & values)
{
    double sum = 0;
    for (const double value : values) sum += value;
    return sum / static_cast<double>(values.size());
}

/// The surface at every crossing of xs and ys, x fastest. Every other row runs backwards, so that each position lies beside the
/// one before.
List<float> evaluated(const Triangulation & surface, const List<double> & xs, const List<double> & ys, Progress & progress)
{
    const auto columns = xs.items();
    List<float> values(std::int64_t{ xs.size() } * ys.size());
    Percentage percentage(progress, ys.size());
    for (std::int32_t row = 1; row <= ys.size(); ++row) {
        percentage.report(row - 1);
        const auto out = values.items().subspan((static_cast<std::size_t>(row) - 1) * columns.size(), columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const std::size_t column = row % 2 == 1 ? i : columns.size() - 1 - i;
            out[column] = to_f32(surface.at(columns[column], ys[row]));
        }
    }
    return values;
}

/// How many cells of a column lie above the ground or hold it. nodes descend.
std::int32_t air_cells_above(double ground, const List<double> & nodes)
{
    const std::int32_t cells = nodes.size() - 1;
    if (nodes[1] <= ground) return 0;
    if (nodes[cells + 1] > ground) return cells;
    const auto items = nodes.items();
    const auto first_not_above = std::partition_point(items.begin(), items.end(), [ground](double z) { return z > ground; });
    return static_cast<std::int32_t>(first_not_above - items.begin());
}

Status refuse(Host & host, const std::string & text)
{
    host.dialogs.message(text);
    return Status::bad;
}

Status report_fault(Host & host, const std::exception & fault)
{
    return refuse(host, std::string("The following error occurred while processing the topo data file : ") + fault.what());
}

void evaluate_surface(const InversionDefinition & definition, const UbcMesh & mesh, TopoSurface & topo, Host & host)
{
    const bool own = definition.inversion_method == own_solver;
    host.progress.step("Interpolate topo values");
    topo.cell_topo = evaluated(topo.triangulation, mesh.centres_x, mesh.centres_y, host.progress);
    topo.air_cells.assign(topo.cell_topo.size(), 0);
    if (own) {
        topo.node_topo = evaluated(topo.triangulation, mesh.nodes_x, mesh.nodes_y, host.progress);
        return; // its mesh drapes under the ground and has no air
    }
    const auto ground = topo.cell_topo.items();
    std::ranges::transform(ground, topo.air_cells.items().begin(), [&](float z) { return air_cells_above(z, mesh.nodes_z); });
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
    constexpr const char * colinear = "All Points in the topography file are colinear";
    try {
        TopoSurface made;
        SurfacePoints ground = points_near_mesh(points, mesh, host.progress);
        if (ground.size() < fewest_points)
            return refuse(host, "The topo data file did not contain enough data points to be meaningful");
        if (on_one_line(ground)) return refuse(host, colinear);

        add_topo_frame(mesh, mean_of(ground.z), ground);
        made.frame_count = frame_count_of(mesh);
        made.point_count = static_cast<std::int32_t>(ground.size());
        if (!made.triangulation.build(ground.x, ground.y, ground.z)) return refuse(host, colinear);
        ground = {};
        evaluate_surface(definition, mesh, made, host);
        topo = std::move(made);
        return Status::good;
    } catch (const std::exception & fault) {
        return report_fault(host, fault);
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
        return report_fault(host, fault);
    }
}
