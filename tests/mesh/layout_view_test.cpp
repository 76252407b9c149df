#include "fakes/case_table.h"
#include "mesh/given_base.h"
#include "mesh/layout_view.h"

#include <algorithm>
#include <cmath>

namespace {

/// x nodes 0, 100 .. 400 with the core from 100 to 300, y nodes 1000, 1050, 1150, 1200 with the core from 1050 to 1150.
struct Given {
    InversionDefinition definition;
    UbcMesh mesh;
    TileLayout tiles{ 2, 1, { { 1, 1, 3, 4 }, { 2, 3, 5, 5 } }, { { 1, 1, 4, 4 } }, { 0, 0 }, {} };

    Given()
    {
        mesh.total_cells = { 4, 3, 1 };
        mesh.nodes_x = { 0, 100, 200, 300, 400 };
        mesh.nodes_y = { 1000, 1050, 1150, 1200 };
        mesh.core_x_first = mesh.core_y_first = 2;
        mesh.core_x_last = 4;
        mesh.core_y_last = 3;
        definition.mesh_min = { 120, 1060, 0, 0 };
        definition.mesh_max = { 280, 1140, 0, 0 };
    }
    LayoutSource simple() const { return { definition, mesh, nullptr }; }
    LayoutSource tiled() const { return { definition, mesh, &tiles }; }
    /// A quarter turn clockwise about the origin: the map's (x, y) is the mesh's (y, -x).
    void turn()
    {
        definition.coordinate_transform.rotation = 90;
        normalise_point_transform(definition.coordinate_transform);
    }
};

std::string written_extents(const std::optional<Extents> & extents)
{
    if (!extents) return "none";
    std::array<double, 4> limits = { extents->west, extents->east, extents->south, extents->north };
    for (double & limit : limits) limit = std::round(limit);
    return written(limits);
}

}

TEST(shown_extents, given_a_choice_then_the_mesh_the_core_or_the_limits_of_the_form)
{
    Given given;
    EXPECT_EQ(written_extents(shown_extents(given.simple(), ViewLimits::whole)), "0 400 1000 1200");
    EXPECT_EQ(written_extents(shown_extents(given.simple(), ViewLimits::core)), "100 300 1050 1150");
    EXPECT_EQ(written_extents(shown_extents(given.simple(), ViewLimits::refined)), "100 300 1050 1150");
    EXPECT_EQ(written_extents(shown_extents(given.tiled(), ViewLimits::refined)), "120 280 1060 1140");
    given.turn(); // back to the map: x is -y, y is x, and 10 m more on each side
    EXPECT_EQ(written_extents(shown_extents(given.simple(), ViewLimits::core)), "-1160 -1040 90 310");
    given.mesh = {};
    EXPECT_EQ(written_extents(shown_extents(given.simple(), ViewLimits::whole)), "none");
    EXPECT_TRUE(layout_lines(given.tiled(), ViewLimits::whole).empty());
}

TEST(fit_view, given_a_range_and_a_picture_then_it_fills_one_direction_and_is_centred_in_the_other)
{
    for (const auto & fields : cases_of<7>("fit_view.cases")) {
        std::array<double, 7> numbers;
        std::ranges::transform(fields, numbers.begin(), number_in<double>);
        const auto & [x, y, width, height, left, top, scale] = numbers;
        SCOPED_TRACE(std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(width));
        const auto view = fit_view({ 5000, 5000 + x, 7000, 7000 + y }, width, height);
        ASSERT_EQ(view.has_value(), scale > 0);
        if (!view) continue;
        EXPECT_FLOAT_EQ(view->view_left, static_cast<float>(left));
        EXPECT_FLOAT_EQ(view->view_top, static_cast<float>(top));
        EXPECT_FLOAT_EQ(view->view_scale, static_cast<float>(scale));
        double east = 5000 + x, north = 7000 + y;
        to_picture(*view, east, north); // the upper right corner
        EXPECT_NEAR(east, width - left, 1e-3);
        EXPECT_NEAR(north, top, 1e-3);
        to_map(*view, east, north);
        EXPECT_NEAR(east, 5000 + x, 1e-6);
        EXPECT_NEAR(north, 7000 + y, 1e-6);
    }
}

TEST(layout_lines, given_a_mesh_then_frame_mesh_and_core_or_tiles_are_drawn_in_their_pens)
{
    Given given;
    const auto counts = [](const std::vector<LayoutLine> & lines) {
        std::array<int, 4> found = {}; // black, red, blue and dotted ones
        for (const LayoutLine & line : lines) {
            found[0] += line.colour == layout_black;
            found[1] += line.colour == 255 && line.style == 0 && line.width == 2;
            found[2] += line.colour == 16711680;
            found[3] += line.style == 2;
        }
        return written(found);
    };
    EXPECT_EQ(counts(layout_lines(given.simple(), ViewLimits::whole)), "4 8 0 0");
    EXPECT_EQ(counts(layout_lines(given.simple(), ViewLimits::core)), "0 8 0 0");
    EXPECT_EQ(counts(layout_lines(given.tiled(), ViewLimits::whole)), "4 16 8 8"); // mesh, all tiles, two of four sides each
    given.tiles.tile_skipped[2] = 1;
    const auto lines = layout_lines(given.tiled(), ViewLimits::core);
    EXPECT_EQ(counts(lines), "0 18 8 8");
    EXPECT_EQ(lines.back(), (LayoutLine{ 200, 1200, 400, 1000, 255, 0, 2 })); // across its own part
    const LayoutLine overlap = lines[4 + 4 + 4 + 1];                          // of the first tile: its east side
    EXPECT_EQ(overlap, (LayoutLine{ 300, 1000, 300, 1200, 16711680, 2, 1 }));
    given.turn();
    const LayoutLine south = layout_lines(given.simple(), ViewLimits::core)[0]; // from (0, 1000) to (400, 1000)
    EXPECT_NEAR(south.x1, -1000, 1e-3);
    EXPECT_NEAR(south.y2, 400, 1e-3);
    double x = south.x2, y = south.y2;
    map_to_mesh(given.definition.coordinate_transform, x, y);
    EXPECT_NEAR(x, 400, 1e-6);
    EXPECT_NEAR(y, 1000, 1e-6);
}

TEST(place_at, given_a_position_then_its_cell_and_in_refined_mode_its_tile)
{
    Given given;
    for (const auto & [x, y, simple, tiled] : cases_of<4>("place_at.cases")) {
        EXPECT_EQ(place_at(given.simple(), number_in<double>(x), number_in<double>(y)).text, simple) << x;
        EXPECT_EQ(place_at(given.tiled(), number_in<double>(x), number_in<double>(y)).text, tiled) << x;
    }
    given.tiles.tile_x_cells[2].own_end = 4; // the last core cell and what lies outside are in no tile
    EXPECT_EQ(place_at(given.tiled(), 399, 1100).text, "4,2");
    EXPECT_EQ(place_at(given.tiled(), 399, 1100).tile, Tile());
}
