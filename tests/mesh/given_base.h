#pragma once

#include "fakes/recorded_host.h"
#include "mesh/refined_mesh.h"

#include <gtest/gtest.h>
#include <sstream>

inline List<double> nodes_of(double start, double direction, const List<double> & widths)
{
    List<double> nodes = { start };
    for (const double width : widths.items()) nodes.push_back(nodes[nodes.size()] + direction * width);
    return nodes;
}

/// A base mesh whose x and y cells are alike; the first and the last of them, and the lowest, are padding when `padded`.
inline UbcMesh base_mesh(double origin, const List<double> & widths, double top, const List<double> & widths_z, bool padded)
{
    UbcMesh base;
    base.total_cells = { widths.size(), widths.size(), widths_z.size() };
    base.widths_x = base.widths_y = widths;
    base.nodes_x = base.nodes_y = nodes_of(origin, 1, widths);
    base.widths_z = widths_z;
    base.nodes_z = nodes_of(top, -1, widths_z);
    base.padding_x_start = base.padding_x_end = base.padding_y_start = base.padding_y_end = base.padding_z_bottom =
        padded ? 1 : 0;
    return base;
}

/// x and y nodes -20, 0, 10, 20, 30, 40, 60 and z nodes 100, 90, 80, 70, 50 with the core from 0 to 40 and from 100 to 70.
inline UbcMesh padded_base() { return base_mesh(-20, { 20, 10, 10, 10, 10, 20 }, 100, { 10, 10, 10, 20 }, true); }

/// Cells of 1 m that refine `core` metres of a mesh of `base_cell`, from its eleventh node on.
struct Tiled {
    UbcMesh base, mesh;
    TileLayout layout;

    Tiled(double base_cell, double core, std::int32_t size, std::int32_t overlap)
    {
        const double margin = 10 * base_cell;
        const auto base_cells = static_cast<std::int64_t>((core + 2 * margin) / base_cell);
        base = base_mesh(-margin, List<double>(base_cells, base_cell), 0, { 1 }, false);
        InversionDefinition definition;
        definition.mesh_min = { 0, 0, -1, -1 };
        definition.mesh_max = { core, core, 0, 0 };
        definition.mesh_cell_size = { 1, 1, 1, 1 };
        definition.mesh_cells = { 1, 1, 1, 0 };
        definition.tile_x_size = definition.tile_y_size = size;
        definition.tile_overlap = overlap;
        definition.tile_z_blend = 0;
        RecordedDialogs dialogs;
        EXPECT_EQ(determine_refined_mesh(definition, base, mesh, layout, dialogs), Status::good);
    }
};

template <class Numbers>
std::string written(const Numbers & numbers)
{
    std::ostringstream text;
    for (const auto & number : numbers) text << (text.tellp() > 0 ? " " : "") << number;
    return text.str();
}
