#include "model/base_mesh_writer.h"

#include "model/mesh_file.h"
#include "support/file_writer.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/pattern.h"

#include <algorithm>

namespace {

/// Nodes of one axis that a part has, or the places between each two of them.
struct AxisPart {
    std::int32_t first = 1; ///< node number
    std::int32_t nodes = 0; ///< how many the part gets
    bool between = false;

    std::int32_t step() const { return between ? 1 : 0; } ///< to the second node that a place lies between
};

AxisPart part_of_axis(const UbcMesh & mesh, std::size_t axis, MeshPart part)
{
    const std::int32_t paddings[3][2] = { { mesh.padding_x_start, mesh.padding_x_end },
                                          { mesh.padding_y_start, mesh.padding_y_end },
                                          { mesh.padding_z_top, mesh.padding_z_bottom } };
    constexpr MeshPart reduced[] = { MeshPart::reduced_x, MeshPart::reduced_y, MeshPart::reduced_z };
    const std::int32_t nodes = mesh.total_cells[axis] + 1;
    if (part == reduced[axis]) return { 1, nodes - 1, true };
    if (part != MeshPart::core) return { 1, nodes };
    const auto & [start, end] = paddings[axis];
    return { start + 1, nodes - start - end };
}

void cut_axis(const AxisPart & part, List<double> & nodes, List<double> & widths)
{
    List<double> part_nodes, part_widths;
    for (std::int32_t i = part.first; i < part.first + part.nodes; ++i) {
        part_nodes.push_back(nodes[i] / 2 + nodes[i + part.step()] / 2);
        if (i + 1 < part.first + part.nodes) part_widths.push_back((widths[i] + widths[i + part.step()]) / 2);
    }
    nodes = part_nodes;
    widths = part_widths;
}

/// Values of the surface nodes at those of a part, `values` at each. Between two nodes it is their mean, if both have one.
template <class Number>
List<Number> cut_surface(const List<Number> & surface, std::int64_t columns, std::int32_t values, const AxisPart & x,
                         const AxisPart & y)
{
    List<Number> part;
    for (std::int64_t row = y.first; row < y.first + y.nodes; ++row)
        for (std::int64_t column = x.first; column < x.first + x.nodes; ++column)
            for (std::int32_t value = 1; value <= values; ++value) {
                const Number a = surface[((row - 1) * columns + column - 1) * values + value];
                const Number b = surface[((row - 1 + y.step()) * columns + column - 1 + x.step()) * values + value];
                part.push_back(is_missing(a) || is_missing(b) ? static_cast<Number>(missing_value) : a / 2 + b / 2);
            }
    return part;
}

/// How many of the top-down layers first to last lie in the cells that the part has.
std::int32_t layers_within(std::int32_t first, std::int32_t last, const AxisPart & z)
{
    return std::max(std::min(last, z.first + z.nodes - 2) - std::max(first, z.first) + 1, 0);
}

/// The part as a mesh of its own, with what is written of one.
UbcMesh part_of_mesh(const UbcMesh & mesh, MeshPart part)
{
    const AxisPart x = part_of_axis(mesh, 0, part), y = part_of_axis(mesh, 1, part), z = part_of_axis(mesh, 2, part);
    UbcMesh cut = mesh;
    cut_axis(x, cut.nodes_x, cut.widths_x);
    cut_axis(y, cut.nodes_y, cut.widths_y);
    cut_axis(z, cut.nodes_z, cut.widths_z);
    const std::int32_t columns = mesh.nodes_x.size();
    if (mesh.topo_present) cut.topo_nodes = cut_surface(mesh.topo_nodes, columns, 1, x, y);
    if (mesh.trapezoid_present) cut.trapezoid_nodes = cut_surface(mesh.trapezoid_nodes, columns, 2, x, y);
    cut.air_cells = layers_within(1, mesh.air_cells, z);
    cut.sea_cells = layers_within(mesh.air_cells + 1, mesh.air_cells + mesh.sea_cells, z);
    return cut;
}

/// A number with a place for its sign in front and a blank behind.
std::string printed(double value) { return str_text(value) + " "; }

void write_widths(FileWriter & file, const List<double> & widths, const std::string & pattern)
{
    constexpr std::size_t full_line = 70;
    std::string line;
    for (std::int32_t i = 1; i <= widths.size(); ++i) {
        line += format_number(widths[i], pattern) + "  ";
        if (line.size() <= full_line && i < widths.size()) continue;
        file.line(line);
        line.clear();
    }
}

void write_layer_lines(FileWriter & file, const UbcMesh & mesh)
{
    if (mesh.mesh_format > 0) file.line("Mesh format: " + format_number(mesh.mesh_format, "0"));
    if (mesh.mesh_format == 5 && mesh.drape_top > mesh.drape_bottom)
        file.line("Mesh topo drape: " + format_number(static_cast<double>(mesh.drape_top), "0.00") + " " +
                  format_number(static_cast<double>(mesh.drape_bottom), "0.00"));
    if (mesh.air_cells > 0) file.line("Number of air cells: " + format_number(mesh.air_cells, "0"));
    if (mesh.sea_cells > 0) file.line("Number of sea cells: " + format_number(mesh.sea_cells, "0"));
}

void write_part(const std::string & path, const UbcMesh & mesh)
{
    FileWriter file(path);
    file.line(printed(mesh.widths_x.size()) + printed(mesh.widths_y.size()) + printed(mesh.widths_z.size()));
    file.line(printed(mesh.nodes_x[1]) + printed(mesh.nodes_y[1]) + printed(mesh.nodes_z[1]));
    const std::string pattern = format_pattern_for_value(std::min(mesh.core_size_x, mesh.core_size_z), 6);
    for (const List<double> * const widths : { &mesh.widths_x, &mesh.widths_y, &mesh.widths_z })
        write_widths(file, *widths, pattern);
    write_layer_lines(file, mesh);
    if (mesh.mesh_format > 0 && mesh.topo_varies()) write_topography(file, mesh, whole_mesh(mesh), mesh.topo_nodes);
    if (mesh.trapezoid_present) write_trapezoids(file, mesh, whole_mesh(mesh), mesh.trapezoid_nodes);
    file.close();
}

}

void write_base_mesh(bool quiet, const std::string & path, MeshPart part, const UbcMesh & mesh, Dialogs & dialogs)
{
    const bool asks = part == MeshPart::all || part == MeshPart::core;
    if (asks && !find_file(path).empty() &&
        !dialogs.question("The specified mesh file already exists. Overwrite the existing file?"))
        return;
    write_part(path, part_of_mesh(mesh, part));
    if (asks && !quiet) dialogs.message("Mesh output complete");
}
