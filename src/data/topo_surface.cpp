#include "data/topo_surface.h"

#include "data/mesh_surroundings.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace {

constexpr std::size_t fewest_points = 5;
constexpr std::int32_t own_solver = 4;

std::int32_t frame_count_of(const UbcMesh & mesh) { return (mesh.nodes_x.size() + mesh.nodes_y.size()) * 2 + 3; }

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
    const Extents at = surroundings_of(mesh);
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

/// False when all points lie on one line.
bool build_surface(SurfacePoints ground, const UbcMesh & mesh, TopoSurface & topo)
{
    add_topo_frame(mesh, mean_of(ground.z), ground);
    topo.frame_count = frame_count_of(mesh);
    topo.point_count = static_cast<std::int32_t>(ground.size());
    return topo.triangulation.build(ground.x, ground.y, ground.z);
}

List<std::int32_t> air_cells_of(const List<float> & cell_topo, AirRule rule, const List<double> & nodes)
{
    List<std::int32_t> air(cell_topo.size(), rule == AirRule::one ? 1 : 0);
    if (rule == AirRule::above_ground)
        std::ranges::transform(cell_topo.items(), air.items().begin(), [&](float z) { return air_cells_above(z, nodes); });
    return air;
}

Status refuse(Dialogs & dialogs, const std::string & text)
{
    dialogs.message(text);
    return Status::bad;
}

}

SurfacePoints::SurfacePoints(std::size_t count, const UbcMesh & mesh)
{
    for (auto * list : { &x, &y, &z }) list->reserve(count + static_cast<std::size_t>(frame_count_of(mesh)));
}

Status make_topo_surface(SurfacePoints ground, AirRule rule, const InversionDefinition & definition, const UbcMesh & mesh,
                         TopoSurface & topo, Host & host)
{
    constexpr const char * colinear = "All Points in the topography file are colinear";
    if (ground.size() < fewest_points)
        return refuse(host.dialogs, "The topo data file did not contain enough data points to be meaningful");
    if (on_one_line(ground)) return refuse(host.dialogs, colinear);

    TopoSurface made;
    if (!build_surface(std::move(ground), mesh, made)) return refuse(host.dialogs, colinear);
    host.progress.step("Interpolate topo values");
    made.cell_topo = evaluated(made.triangulation, mesh.centres_x, mesh.centres_y, host.progress);
    made.air_cells = air_cells_of(made.cell_topo, rule, mesh.nodes_z);
    if (definition.inversion_method == own_solver)
        made.node_topo = evaluated(made.triangulation, mesh.nodes_x, mesh.nodes_y, host.progress);
    topo = std::move(made);
    return Status::good;
}

Status report_topo_fault(const std::exception & fault, Dialogs & dialogs)
{
    return refuse(dialogs, std::string("The following error occurred while processing the topo data file : ") + fault.what());
}
