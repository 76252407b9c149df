#include "mesh/mesh_design.h"

#include "mesh/weighting_list.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace {

/// Single precision after every addition, as the outer limits of existing inversions were made.
float sum_of(const List<double> & items)
{
    float sum = 0;
    for (const double item : items.items()) sum = to_f32(static_cast<double>(sum) + item);
    return sum;
}

/// A list that does not parse leaves list and sum as they were; the count always tells what the list holds.
void take_padding(const std::string & text, List<double> & list, std::int32_t & count, float & sum)
{
    if (parse_weighting_list(text, list) == Status::good) sum = sum_of(list);
    count = list.size();
}

void set_core(const InversionDefinition & definition, UbcMesh & mesh)
{
    mesh.core_x_start = definition.mesh_min[0];
    mesh.core_x_end = definition.mesh_max[0];
    mesh.core_y_start = definition.mesh_min[1];
    mesh.core_y_end = definition.mesh_max[1];
    mesh.mesh_z_top = definition.mesh_max[2];
    mesh.mesh_z_bottom = definition.mesh_min[3];
    const auto & cells = definition.mesh_cells;
    mesh.total_cells = { cells[0], cells[1], add_counts(cells[2], cells[3]) };
    mesh.core_x_first = mesh.core_y_first = mesh.core_z_first = 1;
    mesh.core_x_last = add_counts(mesh.total_cells[0], 1);
    mesh.core_y_last = add_counts(mesh.total_cells[1], 1);
    mesh.core_z_last = add_counts(mesh.total_cells[2], 1);
}

/// Moves the outer limits by the padding; only the core node numbers still bound the core afterwards.
void add_padding(const InversionDefinition & definition, const Padding & padding, UbcMesh & mesh)
{
    const auto & size = definition.mesh_cell_size;
    const std::int32_t both_ends = multiply_counts(2, padding.count_xy);
    mesh.core_x_start -= padding.sum_xy * size[0];
    mesh.core_x_end += padding.sum_xy * size[0];
    mesh.core_y_start -= padding.sum_xy * size[1];
    mesh.core_y_end += padding.sum_xy * size[1];
    mesh.total_cells[0] = add_counts(mesh.total_cells[0], both_ends);
    mesh.total_cells[1] = add_counts(mesh.total_cells[1], both_ends);
    mesh.core_x_first = mesh.core_y_first = padding.count_xy + 1;
    mesh.core_x_last = add_counts(mesh.total_cells[0], 1 - padding.count_xy);
    mesh.core_y_last = add_counts(mesh.total_cells[1], 1 - padding.count_xy);
    if (definition.mesh_cells[3] != 0) return;
    mesh.mesh_z_bottom -= padding.sum_z * size[2];
    mesh.total_cells[2] = add_counts(mesh.total_cells[2], padding.count_z);
    mesh.core_z_last = add_counts(mesh.total_cells[2], 1 - padding.count_z);
}

/// The list runs from the core outwards, so its last item belongs to the outermost cell of either end.
void pad_both_ends(const Padding & padding, double cell_size, List<double> & widths)
{
    for (std::int32_t i = 1; i <= padding.count_xy; ++i) {
        const double width = padding.list_xy[padding.count_xy + 1 - i] * cell_size;
        widths[i] = width;
        widths[widths.size() + 1 - i] = width;
    }
}

void set_widths(const InversionDefinition & definition, const Padding & padding, UbcMesh & mesh)
{
    const auto & size = definition.mesh_cell_size;
    mesh.widths_x.assign(mesh.total_cells[0], size[0]);
    mesh.widths_y.assign(mesh.total_cells[1], size[1]);
    mesh.widths_z.assign(mesh.total_cells[2], size[2]);
    if (definition.mesh_cells[3] >= 1 && size[3] > 1) {
        // The first cell of the lower part still has the height of the core's.
        for (std::int32_t i = definition.mesh_cells[2] + 2; i <= mesh.total_cells[2]; ++i)
            mesh.widths_z[i] = mesh.widths_z[i - 1] * size[3];
    }
    if (definition.add_padding_cells != 1) return;
    pad_both_ends(padding, size[0], mesh.widths_x);
    pad_both_ends(padding, size[1], mesh.widths_y);
    if (definition.mesh_cells[3] != 0) return;
    for (std::int32_t i = 1; i <= padding.count_z; ++i) {
        const double multiplier = padding.list_z[padding.count_z + 1 - i];
        mesh.widths_z[mesh.total_cells[2] + 1 - i] = multiplier * mesh.widths_z[definition.mesh_cells[2]];
    }
}

/// Running sums from the start of the axis; direction -1 for z, which runs downwards.
// A thousand times what can be inverted. A cell size of one metre for a thousand would otherwise take all memory there is.
constexpr std::int32_t most_axis_cells = 10000000;

void set_nodes(double start, double direction, const List<double> & widths, List<double> & nodes, List<double> & centres)
{
    nodes.assign(std::int64_t{ widths.size() } + 1);
    centres.assign(widths.size());
    nodes[1] = start;
    for (std::int32_t i = 1; i <= widths.size(); ++i) {
        nodes[i + 1] = nodes[i] + direction * widths[i];
        centres[i] = (nodes[i] + nodes[i + 1]) / 2;
    }
}

}

Status prepare_mesh_limits(InversionDefinition & definition)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (definition.mesh_cells[axis] < 1) return Status::bad;
    if (definition.inversion_mode == 4) {
        definition.mesh_min[2] -= definition.mesh_max[2];
        definition.mesh_min[3] -= definition.mesh_max[2];
        definition.mesh_max[2] = 0;
    }
    return Status::good;
}

void set_mesh_lists(std::array<double, 3> first_nodes, const std::function<void(UbcMesh &)> & set_widths, UbcMesh & mesh)
{
    // One value per cell must be countable, whoever holds a model on this mesh.
    multiply_counts(multiply_counts(mesh.total_cells[0], mesh.total_cells[1]), mesh.total_cells[2]);
    for (const std::int32_t cells : mesh.total_cells)
        if (cells > most_axis_cells)
            throw OverflowFault("The mesh has " + general_text(cells) +
                                " cells along one axis, far more than can be inverted: check its limits and cell sizes");
    try {
        set_widths(mesh);
        set_nodes(first_nodes[0], 1, mesh.widths_x, mesh.nodes_x, mesh.centres_x);
        set_nodes(first_nodes[1], 1, mesh.widths_y, mesh.nodes_y, mesh.centres_y);
        set_nodes(first_nodes[2], -1, mesh.widths_z, mesh.nodes_z, mesh.centres_z);
        mesh.nodes_z_ascending = mesh.nodes_z;
    } catch (const std::bad_alloc &) {
        throw Fault("There is not enough memory for the mesh");
    }
    std::ranges::reverse(mesh.nodes_z_ascending.items());
}

Status decode_padding_cells(const InversionDefinition & definition, Padding & padding)
{
    padding.count_xy = padding.count_z = 0;
    if (definition.add_padding_cells != 1) return Status::good;
    if (parse_weighting_list(definition.padding_multipliers[0], padding.list_xy) != Status::good) return Status::bad;
    padding.count_xy = padding.list_xy.size();
    if (parse_weighting_list(definition.padding_multipliers[1], padding.list_z) != Status::good) return Status::bad;
    padding.count_z = padding.list_z.size();
    return Status::good;
}

void sum_padding(Padding & padding)
{
    padding.sum_xy = sum_of(padding.list_xy);
    padding.sum_z = sum_of(padding.list_z);
}

Status calculate_cell_counts(const InversionDefinition & definition, Padding & padding)
{
    if (decode_padding_cells(definition, padding) != Status::good) return Status::bad;
    const auto & cells = definition.mesh_cells;
    const std::int32_t both_ends = multiply_counts(2, padding.count_xy);
    const std::int32_t bottom = cells[3] == 0 ? padding.count_z : 0;
    padding.total_cells = { add_counts(cells[0], both_ends), add_counts(cells[1], both_ends),
                            add_counts(add_counts(cells[2], cells[3]), bottom) };
    return Status::good;
}

Status determine_inversion_mesh(InversionDefinition & definition, Padding & padding, UbcMesh & mesh)
{
    if (prepare_mesh_limits(definition) != Status::good) return Status::bad;
    UbcMesh design;
    set_core(definition, design);
    if (definition.add_padding_cells == 1) {
        take_padding(definition.padding_multipliers[0], padding.list_xy, padding.count_xy, padding.sum_xy);
        take_padding(definition.padding_multipliers[1], padding.list_z, padding.count_z, padding.sum_z);
        add_padding(definition, padding, design);
    }
    set_mesh_lists(
        { design.core_x_start, design.core_y_start, design.mesh_z_top },
        [&](UbcMesh & made) { set_widths(definition, padding, made); }, design);
    mesh = std::move(design);
    return Status::good;
}

double lower_part_bottom(double bottom, double cell_size, double multiplier, std::int32_t cells)
{
    if (cells < 1) return bottom;
    if (multiplier == 1) return bottom - cells * cell_size;
    const double lowest = bottom - cell_size * (std::pow(multiplier, cells) - 1) / (multiplier - 1);
    if (!std::isfinite(lowest)) throw OverflowFault("Overflow: the lower part of the mesh is too deep");
    return lowest;
}
