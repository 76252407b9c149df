#include "model/mesh_reading.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/text.h"

#include <cmath>
#include <iterator>
#include <numbers>

namespace {

/// Formats whose topography says where the mesh hangs, so that its own top is 0.
bool hangs_from_topography(std::int32_t format) { return format == 3 || format == 5; }

Status take_format(MeshReading & reading, std::string_view values)
{
    reading.mesh.mesh_format = leading_count(next_token(values));
    return Status::good;
}

Status take_drape(MeshReading & reading, std::string_view values)
{
    UbcMesh & mesh = reading.mesh;
    mesh.drape_top = to_f32(leading_number(next_token(values)));
    mesh.drape_bottom = to_f32(leading_number(next_token(values)));
    mesh.drape_depth = mesh.drape_top - mesh.drape_bottom;
    reading.drape_read = true;
    return Status::good;
}

Status take_air_cells(MeshReading & reading, std::string_view values)
{
    reading.mesh.air_cells = leading_count(next_token(values));
    return Status::good;
}

Status take_sea_cells(MeshReading & reading, std::string_view values)
{
    reading.mesh.sea_cells = leading_count(next_token(values));
    return Status::good;
}

/// A number that marks a missing elevation does not belong to the range.
void take_elevation(UbcMesh & mesh, std::string_view token, float & node)
{
    if (!is_numeric(token)) return;
    node = to_f32(leading_number(token));
    if (is_missing(node)) return;
    mesh.topo_min = std::min(mesh.topo_min, node);
    mesh.topo_max = std::max(mesh.topo_max, node);
}

/// A level surface, behind which the file has nothing more to say, is just the top of a plain mesh.
void become_plain(UbcMesh & mesh)
{
    mesh.origin_z = static_cast<double>(mesh.topo_min);
    mesh.drape_top = mesh.drape_bottom = mesh.drape_depth = 0;
    mesh.topo_present = false;
    mesh.topo_nodes.clear();
    mesh.mesh_format = 0;
}

Status take_topography(MeshReading & reading, std::string_view)
{
    UbcMesh & mesh = reading.mesh;
    mesh.topo_present = true;
    if (hangs_from_topography(mesh.mesh_format)) mesh.origin_z = 0;
    mesh.topo_nodes.assign(reading.surface_nodes(1), missing_value_f32);
    mesh.topo_min = -missing_value_f32;
    mesh.topo_max = missing_value_f32;
    std::int32_t taken = 0;
    reading.text.drop_line();
    const Status status = reading.text.each_token(mesh.topo_nodes.size(), [&](std::string_view token, std::int64_t & done) {
        taken = static_cast<std::int32_t>(++done);
        take_elevation(mesh, token, mesh.topo_nodes[done]);
        return Status::good;
    });
    const bool complete = taken == mesh.topo_nodes.size();
    if (complete && mesh.topo_min == mesh.topo_max && !reading.text.has_data_line()) become_plain(mesh);
    return status;
}

/// Radians: the bearing from the first to the last node of a row, the mean of all rows. Rows are averaged as turns from the
/// first one, so that bearings on both sides of north do not cancel.
double rotation_of(const UbcMesh & mesh)
{
    constexpr double degrees = 180 / std::numbers::pi, radians = 0.017453292;
    const std::int64_t columns = mesh.cells_x() + std::int64_t{ 1 }, rows = mesh.cells_y() + std::int64_t{ 1 };
    const auto bearing_of_row = [&](std::int64_t row) {
        const std::int64_t first = row * columns + 1, last = (row + 1) * columns;
        const double east = mesh.trapezoid_nodes[2 * last - 1] - mesh.trapezoid_nodes[2 * first - 1];
        const double north = mesh.trapezoid_nodes[2 * last] - mesh.trapezoid_nodes[2 * first];
        const double bearing = std::atan2(east, north) * degrees;
        return bearing < 0 ? bearing + 360 : bearing;
    };
    const double start = bearing_of_row(0);
    double turns = 0;
    for (std::int64_t row = 1; row < rows; ++row) turns += std::remainder(bearing_of_row(row) - start, 360);
    return (start + turns / static_cast<double>(rows)) * radians;
}

Status take_trapezoids(MeshReading & reading, std::string_view)
{
    UbcMesh & mesh = reading.mesh;
    mesh.mesh_format = 4;
    mesh.trapezoid_present = true;
    mesh.trapezoid_nodes.assign(2 * std::int64_t{ reading.surface_nodes(2) });
    std::int64_t taken = 0;
    reading.text.drop_line();
    const Status status = reading.text.each_token(mesh.trapezoid_nodes.size(), [&](std::string_view token, std::int64_t & done) {
        taken = ++done;
        mesh.trapezoid_nodes[done] = leading_number(token);
        return Status::good;
    });
    if (taken == mesh.trapezoid_nodes.size()) mesh.trapezoid_rotation = rotation_of(mesh);
    return status;
}

struct TrailerLine {
    std::string_view label;
    Status (*take)(MeshReading &, std::string_view values);
};

const TrailerLine trailer_lines[] = {
    { "Mesh format:", take_format },
    { "Mesh topo drape:", take_drape },
    { "Number of air cells:", take_air_cells },
    { "Number of sea cells:", take_sea_cells },
    { "Topography", take_topography },
    { "Trapezoidal", take_trapezoids },
};

Status take_line(MeshReading & reading)
{
    const std::string line = reading.text.line();
    for (const TrailerLine & row : trailer_lines)
        if (line.starts_with(row.label)) return row.take(reading, std::string_view(line).substr(row.label.size()));
    return Status::good;
}

}

Status read_mesh_trailer(MeshReading & reading)
{
    UbcMesh & mesh = reading.mesh;
    while (reading.text.data_line())
        if (take_line(reading) != Status::good) return Status::bad;
    mesh.earth_cells = add_counts(mesh.cells_z(), -add_counts(mesh.sea_cells, mesh.air_cells));
    if (mesh.sea_cells >= 0 && mesh.air_cells >= 0 && mesh.earth_cells >= 0) return Status::good;
    return reading.refuse("The number of cells in the mesh file is invalid");
}
