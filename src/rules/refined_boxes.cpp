#include "rules/refined_boxes.h"

#include "definition/enumerations.h"
#include "mesh/refined_mesh.h"
#include "rules/box_checks.h"
#include "rules/tile_choice.h"
#include "support/numbers.h"
#include "support/pattern.h"

namespace {

/// A minimum beyond the mesh goes to the last node but one, a maximum to the last.
double snapped(const List<double> & nodes, double limit, bool maximum)
{
    const std::int32_t last = nodes.size();
    if (limit < nodes[1]) return nodes[1];
    if (limit > nodes[last]) return nodes[maximum ? last : last - 1];
    return nodes[node_not_above(nodes, limit)];
}

}

void take_tile_boxes(Setup & setup)
{
    struct Row {
        const char * box;
        std::int32_t InversionDefinition::*field;
    };
    constexpr Row rows[] = { { "Text_x_tile_size", &InversionDefinition::tile_x_size },
                             { "Text_y_tile_size", &InversionDefinition::tile_y_size },
                             { "Text_tile_overlap", &InversionDefinition::tile_overlap },
                             { "Text_blend_overlap", &InversionDefinition::tile_blend },
                             { "Text_z_blend", &InversionDefinition::tile_z_blend } };
    for (const Row & row : rows) setup.definition.*row.field = leading_count(setup.form[row.box].text);
}

void snap_to_nodes(Setup & setup, int axis)
{
    const List<double> & nodes = axis == 0 ? setup.design_mesh.nodes_x : setup.design_mesh.nodes_y;
    double & minimum = setup.definition.mesh_min[static_cast<std::size_t>(axis)];
    double & maximum = setup.definition.mesh_max[static_cast<std::size_t>(axis)];
    minimum = snapped(nodes, minimum, false);
    maximum = snapped(nodes, maximum, true);
}

Status build_refined_mesh(Setup & setup, Host & host)
{
    if (!setup.base.mesh_loaded)
        return refuse("No base mesh has been loaded: a refined inversion needs the mesh that it refines", host);
    const Status status = determine_refined_mesh(setup.definition, setup.base.mesh, setup.design_mesh, setup.tiles, host.dialogs);
    if (status != Status::good) return status;
    show_tile_counts(setup, setup.tiles);
    for (int i = 0; i < 3; ++i) choose_position(setup.form("Combo_tile_order", i), 0);
    select_tile(setup, {});
    return Status::good;
}

void recount_tiles(Setup & setup)
{
    setup.definition.tile_overlap = leading_count(setup.form["Text_tile_overlap"].text);
    TileLayout counted;
    counted.number_x_tiles = setup.tiles.number_x_tiles;
    counted.number_y_tiles = setup.tiles.number_y_tiles;
    determine_number_of_tiles(setup.definition, counted);
    show_tile_counts(setup, counted);
}

void show_tile_counts(Setup & setup, const TileLayout & layout)
{
    setup.form["Text_number_x_tiles"].text = format_number(layout.number_x_tiles, "0");
    setup.form["Text_number_y_tiles"].text = format_number(layout.number_y_tiles, "0");
}

Status check_refined_bottom(Setup & setup, Host & host)
{
    const InversionDefinition & definition = setup.definition;
    const std::optional<float> & ground_bottom = setup.base.ground_bottom;
    if (setup.refinement_mode != 1 || !ground_bottom || definition.inversion_method == 4) return Status::good;
    if (to_f32(definition.mesh_min[2]) > *ground_bottom)
        return refuse("The bottom of the mesh refinement must be below the bottom of the topo: " +
                          format_number(static_cast<double>(*ground_bottom), "0.0"),
                      host);
    return Status::good;
}
