#include "mesh/complete_mesh.h"

#include "support/fault.h"
#include "support/pattern.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int32_t fewest_cells_with_padding = 7;
constexpr std::int32_t most_padding = 4;
constexpr double padding_growth = 1.2;

/// The nodes from `origin` on. Stops at the first width that is not above 0 and gives its number; 0 when there is none.
std::int32_t lay_out_nodes(double origin, double sign, const List<double> & widths, List<double> & nodes)
{
    nodes.clear();
    nodes.reserve(widths.size() + std::int64_t{ 1 });
    nodes.push_back(origin);
    for (std::int32_t i = 1; i <= widths.size(); ++i) {
        if (!(widths[i] > 0)) return i;
        const double node = nodes[i] + sign * widths[i];
        if (!std::isfinite(node)) throw OverflowFault("Overflow: the widths of the cells add up to more than a number can hold");
        nodes.push_back(node);
    }
    return 0;
}

List<double> midpoints(const List<double> & nodes)
{
    List<double> centres;
    centres.reserve(nodes.size());
    for (std::int32_t i = 1; i < nodes.size(); ++i) centres.push_back(nodes[i] / 2 + nodes[i + 1] / 2);
    return centres;
}

List<double> reversed(const List<double> & list)
{
    List<double> other = list;
    std::reverse(other.items().begin(), other.items().end());
    return other;
}

/// Cells at one end, the outermost at `end`, each at least 1.2 times as wide as the next one inwards.
std::int32_t count_padding(const List<double> & widths, std::int32_t end, std::int32_t inwards)
{
    std::int32_t count = 0;
    while (count < most_padding) {
        const std::int32_t cell = end + count * inwards;
        if (!(widths[cell] / padding_growth >= widths[cell + inwards])) break;
        ++count;
    }
    return count;
}

void find_padding(const List<double> & widths, std::int32_t & start, std::int32_t & end)
{
    const std::int32_t cells = widths.size();
    start = end = 0;
    if (cells < fewest_cells_with_padding) return;
    start = count_padding(widths, 1, 1);
    end = count_padding(widths, cells, -1);
    if (start + end >= cells - 2) {
        start = end = 0;
    } else if (start == most_padding - 1) {
        // three at the start count as four, and one more at the far end
        start = most_padding;
        ++end;
    }
    if (start == 1) start = 0;
    if (end == 1) end = 0;
}

void find_padding_z(UbcMesh & mesh)
{
    const bool has_layers = mesh.mesh_format != 0 && mesh.mesh_format != 5;
    const std::int32_t cells = mesh.cells_z();
    mesh.padding_z_top = has_layers ? mesh.air_cells : 0;
    mesh.padding_z_bottom = 0;
    if (has_layers || cells < fewest_cells_with_padding) return;
    const std::int32_t bottom = count_padding(mesh.widths_z, cells, -1);
    if (bottom > 1 && bottom < cells - 2) mesh.padding_z_bottom = bottom;
}

double smallest(const List<double> & widths, std::int32_t first, std::int32_t last)
{
    double size = widths[first];
    for (std::int32_t i = first + 1; i <= last; ++i) size = std::min(size, widths[i]);
    return size;
}

struct Axis {
    const char * name;
    std::size_t number;
    double sign; ///< of the way from a node to the next
    double UbcMesh::*origin;
    List<double> UbcMesh::*widths;
    List<double> UbcMesh::*nodes;
    List<double> UbcMesh::*centres;
};

using U = UbcMesh;
const Axis axes[] = { { "x", 0, 1, &U::origin_x, &U::widths_x, &U::nodes_x, &U::centres_x },
                      { "y", 1, 1, &U::origin_y, &U::widths_y, &U::nodes_y, &U::centres_y },
                      { "z", 2, -1, &U::origin_z, &U::widths_z, &U::nodes_z, &U::centres_z } };

Status complete_axis(UbcMesh & mesh, const Axis & axis, Dialogs & dialogs)
{
    const List<double> & widths = mesh.*axis.widths;
    const std::int32_t bad = lay_out_nodes(mesh.*axis.origin, axis.sign, widths, mesh.*axis.nodes);
    if (bad == 0) {
        mesh.*axis.centres = midpoints(mesh.*axis.nodes);
        return Status::good;
    }
    dialogs.message(std::string("Bad ") + axis.name + " cell " + format_number(bad, "0") + " " +
                    format_number(widths[bad], "0.00"));
    mesh.total_cells[axis.number] = 0;
    return Status::bad;
}

}

Status complete_mesh(UbcMesh & mesh, Dialogs & dialogs)
{
    for (const Axis & axis : axes)
        if (complete_axis(mesh, axis, dialogs) != Status::good) return Status::bad;
    mesh.nodes_z_ascending = reversed(mesh.nodes_z);
    find_padding(mesh.widths_x, mesh.padding_x_start, mesh.padding_x_end);
    find_padding(mesh.widths_y, mesh.padding_y_start, mesh.padding_y_end);
    find_padding_z(mesh);
    mesh.core_size_x = smallest(mesh.widths_x, mesh.padding_x_start + 1, mesh.cells_x() - mesh.padding_x_end);
    mesh.core_size_y = smallest(mesh.widths_y, mesh.padding_y_start + 1, mesh.cells_y() - mesh.padding_y_end);
    mesh.core_size_z = smallest(mesh.widths_z, 1, mesh.cells_z() - mesh.padding_z_bottom);
    return Status::good;
}
