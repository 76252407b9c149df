#include "model/mesh_reading.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"

#include <algorithm>
#include <vector>

namespace {

/// Cells of one kind, in the order of the file.
struct Layer {
    const char * name;
    std::int32_t cells;
    std::int32_t first; ///< number of the first one in the mesh
    std::int32_t step;  ///< 1 downwards, -1 upwards
};

Status read_layer(MeshReading & reading, const Layer & layer)
{
    reading.text.data_line();
    reading.text.drop_line();
    const std::string start = std::string("The ") + layer.name + " mesh cell value is ";
    return reading.text.each_token(layer.cells, [&](std::string_view token, std::int64_t & done) {
        if (!is_numeric(token)) return reading.refuse(start + "invalid : " + std::string(token));
        const double width = leading_number(token);
        if (!(width > 0)) return reading.refuse(start + "not positive : " + std::string(token));
        reading.mesh.widths_z[layer.first + layer.step * done++] = width;
        return Status::good;
    });
}

/// Surface nodes in the order of the file.
struct NodeGrid {
    std::vector<double> x, y, elevation; ///< elevations are missing where the file holds no number
};

/// The file has depths for elevations.
void take_component(NodeGrid & grid, std::string_view token, std::int64_t component)
{
    if (component == 0) {
        grid.x.push_back(leading_number(token));
    } else if (component == 1) {
        grid.y.push_back(leading_number(token));
    } else {
        grid.elevation.push_back(is_numeric(token) ? 0 - leading_number(token) : missing_value);
    }
}

Status read_node_grid(MeshReading & reading, NodeGrid & grid)
{
    const std::int32_t nodes = multiply_counts(add_counts(reading.mesh.cells_x(), 1), add_counts(reading.mesh.cells_y(), 1));
    reading.text.data_line();
    reading.text.drop_line();
    const Status status = reading.text.each_token(3 * std::int64_t{ nodes }, [&](std::string_view token, std::int64_t & done) {
        take_component(grid, token, done++ % 3);
        return Status::good;
    });
    if (status != Status::good) return status;
    if (std::ssize(grid.elevation) == nodes) return Status::good;
    return reading.refuse("An error occurred while reading the mesh file");
}

/// The different positions of the nodes along one axis, in order. Fails when they are not those of `cells` cells.
List<double> positions_of(std::vector<double> values, const char * axis, std::int32_t cells)
{
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    if (std::ssize(values) != cells + std::int64_t{ 1 })
        throw Fault("the surface nodes have " + general_text(static_cast<double>(values.size())) + " different " + axis +
                    " positions, where " + general_text(cells) + " cells have " + general_text(cells + 1.0));
    List<double> positions;
    positions.append(values);
    return positions;
}

void set_axis(const List<double> & positions, double & origin, List<double> & widths)
{
    origin = positions[1];
    for (std::int32_t i = 1; i <= widths.size(); ++i) widths[i] = positions[i + 1] - positions[i];
}

/// The elevations to their nodes by position, whatever their order in the file, and the range.
void place_elevations(const NodeGrid & grid, const List<double> & x, const List<double> & y, UbcMesh & mesh)
{
    mesh.topo_present = true;
    mesh.topo_nodes.assign(std::ssize(grid.elevation), missing_value_f32);
    for (std::size_t i = 0; i < grid.elevation.size(); ++i) {
        const float elevation = to_f32(grid.elevation[i]);
        mesh.topo_nodes[(interval_of(y, grid.y[i]) - std::int64_t{ 1 }) * x.size() + interval_of(x, grid.x[i])] = elevation;
        if (is_missing(elevation)) continue;
        mesh.topo_min = std::min(mesh.topo_min, elevation);
        mesh.topo_max = std::max(mesh.topo_max, elevation);
    }
}

double mean_elevation(const NodeGrid & grid)
{
    double sum = 0;
    std::int64_t count = 0;
    for (const double elevation : grid.elevation) {
        if (is_missing(elevation)) continue;
        sum += elevation;
        ++count;
    }
    return count == 0 ? 0 : sum / static_cast<double>(count);
}

Status read_counts(MeshReading & reading)
{
    UbcMesh & mesh = reading.mesh;
    reading.text.data_line();
    std::int32_t north = 0, east = 0;
    for (std::int32_t * const count : { &north, &east, &mesh.earth_cells, &mesh.sea_cells, &mesh.air_cells })
        *count = leading_count(reading.text.line_token());
    const std::int32_t down = add_counts(add_counts(mesh.earth_cells, mesh.sea_cells), mesh.air_cells);
    const bool negative = std::min({ mesh.earth_cells, mesh.sea_cells, mesh.air_cells }) < 0;
    return reading.set_cells({ east, north, negative ? 0 : down });
}

}

Status read_layered_mesh(MeshReading & reading)
{
    UbcMesh & mesh = reading.mesh;
    mesh.mesh_format = 1;
    if (read_counts(reading) != Status::good) return Status::bad;
    const Layer layers[] = { { "earth", mesh.earth_cells, mesh.air_cells + mesh.sea_cells + 1, 1 },
                             { "sea", mesh.sea_cells, mesh.air_cells + 1, 1 },
                             { "air", mesh.air_cells, mesh.air_cells, -1 } };
    for (const Layer & layer : layers)
        if (read_layer(reading, layer) != Status::good) return Status::bad;
    NodeGrid grid;
    if (read_node_grid(reading, grid) != Status::good) return Status::bad;
    const List<double> x = positions_of(grid.x, "x", mesh.cells_x()), y = positions_of(grid.y, "y", mesh.cells_y());
    set_axis(x, mesh.origin_x, mesh.widths_x);
    set_axis(y, mesh.origin_y, mesh.widths_y);
    place_elevations(grid, x, y, mesh);
    mesh.origin_z = mean_elevation(grid);
    for (std::int32_t i = 1; i <= mesh.air_cells + mesh.sea_cells; ++i) mesh.origin_z += mesh.widths_z[i];
    return Status::good;
}
