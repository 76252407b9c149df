#include "mesh/refined_mesh.h"

#include "mesh/mesh_design.h"
#include "support/numbers.h"
#include "support/pattern.h"

namespace {

Status refuse(const std::string & message, Dialogs & dialogs)
{
    dialogs.message(message);
    return Status::bad;
}

/// Lower and upper limits of the core of a base mesh.
struct Core {
    double x_min, x_max, y_min, y_max, z_min, z_max;
};

Core core_of(const UbcMesh & base)
{
    return { base.nodes_x[base.padding_x_start + 1],
             base.nodes_x[base.cells_x() + 1 - base.padding_x_end],
             base.nodes_y[base.padding_y_start + 1],
             base.nodes_y[base.cells_y() + 1 - base.padding_y_end],
             base.nodes_z[base.cells_z() + 1 - base.padding_z_bottom],
             base.nodes_z[1] };
}

Status check_limits(const InversionDefinition & definition, const Core & core, Dialogs & dialogs)
{
    const auto outside = [&](const char * limit) {
        return refuse(std::string("The ") + limit +
                          " limit of the refined area is outside the core mesh region of the original model",
                      dialogs);
    };
    const auto within = [](double limit, double low, double high) {
        return limit >= low - same_place && limit <= high + same_place;
    };
    const auto & low = definition.mesh_min;
    const auto & high = definition.mesh_max;
    if (!within(low[0], core.x_min, core.x_max)) return outside("minimum x");
    if (!within(high[0], core.x_min, core.x_max)) return outside("maximum x");
    if (!within(low[1], core.y_min, core.y_max)) return outside("minimum y");
    if (!within(high[1], core.y_min, core.y_max)) return outside("maximum y");
    if (!within(high[2], core.z_max - 0.1, core.z_max + 0.1))
        return refuse("The top z limit of the refined volume has to be the same as the top node in the original model: " +
                          format_number(core.z_max, "0.0"),
                      dialogs);
    if (!(low[2] < core.z_max) || !within(low[2], core.z_min, core.z_max)) return outside("minimum z");
    return Status::good;
}

/// The nodes of the base mesh between which its cells give way to refined ones. In z they do so from the top.
struct Opening {
    std::int32_t x_first, x_last, y_first, y_last, z_last;
};

/// Moves a limit down to a node and gives its number.
std::int32_t snap(const List<double> & nodes, double & limit)
{
    const std::int32_t node = node_not_above(nodes, limit);
    limit = nodes[node];
    return node;
}

/// The lowest node of the core that the bottom lies above or less than a metre below.
std::int32_t snap_bottom(const UbcMesh & base, double & bottom)
{
    std::int32_t node = base.cells_z() + 1 - base.padding_z_bottom;
    while (base.nodes_z[node] + 1.0 < bottom) --node;
    bottom = base.nodes_z[node];
    return node;
}

Opening snap_limits(const UbcMesh & base, InversionDefinition & definition)
{
    auto & low = definition.mesh_min;
    auto & high = definition.mesh_max;
    Opening opening{ snap(base.nodes_x, low[0]), snap(base.nodes_x, high[0]), snap(base.nodes_y, low[1]),
                     snap(base.nodes_y, high[1]), snap_bottom(base, low[2]) };
    high[2] = base.nodes_z[1];
    for (std::size_t axis = 0; axis < 3; ++axis)
        definition.mesh_cells[axis] = round_to_count((high[axis] - low[axis]) / definition.mesh_cell_size[axis]);
    definition.mesh_cells[3] = 0;
    definition.mesh_min[3] = low[2];
    return opening;
}

/// A volume without a cell would leave a hole in the base mesh.
Status check_cells(const InversionDefinition & definition, Dialogs & dialogs)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (definition.mesh_cells[axis] < 1)
            return refuse("The refined volume has no cell in " + std::string(1, "xyz"[axis]) +
                              ": its limits, on nodes of the original model, are less than a cell apart",
                          dialogs);
    return Status::good;
}

Status check_tile_sizes(const InversionDefinition & definition, Dialogs & dialogs)
{
    if (definition.tile_x_size < 1) return refuse("The X tile size must be at least one cell", dialogs);
    if (definition.tile_y_size < 1) return refuse("The Y tile size must be at least one cell", dialogs);
    return Status::good;
}

void warn_of_blend(const InversionDefinition & definition, const Core & core, Dialogs & dialogs)
{
    if (definition.mesh_min[2] - definition.tile_z_blend * definition.mesh_cell_size[2] < core.z_min - same_place)
        dialogs.message("The lower z limit of the z-blend interval is below the core mesh region of the original model");
}

/// Cells along an axis: those of the base mesh outside its nodes `first` and `last`, and `cells` between them.
std::int32_t joined_count(const List<double> & base, std::int32_t first, std::int32_t last, std::int32_t cells)
{
    return add_counts(cells, first - 1 + base.size() + 1 - last);
}

void join_widths(const List<double> & base, std::int32_t first, std::int32_t last, double size, std::int32_t count,
                 List<double> & widths)
{
    widths.assign(count, size);
    for (std::int32_t i = 1; i < first; ++i) widths[i] = base[i];
    for (std::int32_t i = base.size(); i >= last; --i) widths[count - (base.size() - i)] = base[i];
}

double start_of(double core_start, const List<double> & widths, std::int32_t first)
{
    for (std::int32_t i = 1; i < first; ++i) core_start -= widths[i];
    return core_start;
}

/// The core in numbers of the design mesh, not in those of the base mesh that the opening has: the tiles and the layout view read
/// its nodes. In x and y it ends at the lower node of its last cell, as the tiles do.
void set_core(const Opening & opening, const InversionDefinition & definition, UbcMesh & mesh)
{
    mesh.core_x_first = opening.x_first;
    mesh.core_x_last = opening.x_first + definition.mesh_cells[0] - 1;
    mesh.core_y_first = opening.y_first;
    mesh.core_y_last = opening.y_first + definition.mesh_cells[1] - 1;
    mesh.core_z_first = 1;
    mesh.core_z_last = definition.mesh_cells[2] + 1;
    mesh.core_x_start = mesh.nodes_x[mesh.core_x_first];
    mesh.core_x_end = mesh.nodes_x[mesh.core_x_last];
    mesh.core_y_start = mesh.nodes_y[mesh.core_y_first];
    mesh.core_y_end = mesh.nodes_y[mesh.core_y_last];
    mesh.mesh_z_top = mesh.nodes_z[1];
    mesh.mesh_z_bottom = mesh.nodes_z[mesh.cells_z() + 1];
}

UbcMesh joined_mesh(const UbcMesh & base, const Opening & opening, const InversionDefinition & definition)
{
    const auto & cells = definition.mesh_cells;
    const auto & size = definition.mesh_cell_size;
    UbcMesh mesh;
    mesh.total_cells = { joined_count(base.widths_x, opening.x_first, opening.x_last, cells[0]),
                         joined_count(base.widths_y, opening.y_first, opening.y_last, cells[1]),
                         joined_count(base.widths_z, 1, opening.z_last, cells[2]) };
    const auto set_widths = [&](UbcMesh & made) {
        const auto & total = made.total_cells;
        join_widths(base.widths_x, opening.x_first, opening.x_last, size[0], total[0], made.widths_x);
        join_widths(base.widths_y, opening.y_first, opening.y_last, size[1], total[1], made.widths_y);
        join_widths(base.widths_z, 1, opening.z_last, size[2], total[2], made.widths_z);
    };
    set_mesh_lists({ start_of(definition.mesh_min[0], base.widths_x, opening.x_first),
                     start_of(definition.mesh_min[1], base.widths_y, opening.y_first), base.nodes_z[1] },
                   set_widths, mesh);
    set_core(opening, definition, mesh);
    return mesh;
}

}

Status determine_refined_mesh(InversionDefinition & definition, const UbcMesh & base, UbcMesh & mesh, TileLayout & layout,
                              Dialogs & dialogs)
{
    if (check_cells(definition, dialogs) != Status::good || prepare_mesh_limits(definition) != Status::good) return Status::bad;
    const Core core = core_of(base);
    if (check_limits(definition, core, dialogs) != Status::good) return Status::bad;

    InversionDefinition refined = definition;
    const Opening opening = snap_limits(base, refined);
    if (check_cells(refined, dialogs) != Status::good || check_tile_sizes(refined, dialogs) != Status::good) return Status::bad;
    warn_of_blend(refined, core, dialogs);
    UbcMesh design = joined_mesh(base, opening, refined);
    TileLayout tiles = layout;
    determine_number_of_tiles(refined, tiles);
    determine_tile_bounds(refined, base, design, design.core_x_last, design.core_y_last, tiles);
    refined.tile_order = {};
    definition = std::move(refined);
    mesh = std::move(design);
    layout = std::move(tiles);
    return Status::good;
}
