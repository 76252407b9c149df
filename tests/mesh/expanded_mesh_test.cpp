#include "fakes/case_table.h"
#include "mesh/expanded_mesh.h"
#include "mesh/given_base.h"

TEST(expanded_mesh, given_a_tile_then_its_rings_stay_inside_the_mesh)
{
    const UbcMesh mesh = base_mesh(0, List<double>(100, 1), 0, { 1 }, false);
    for (const auto & [nodes, low, high, bounds] : cases_of<4>("expanded_mesh.cases")) {
        SCOPED_TRACE(nodes);
        TileBounds tile;
        std::istringstream(nodes) >> tile.first >> tile.end;
        const TileLayout layout{ 1, 1, { tile }, { tile }, {}, {} };
        ExpandedMesh expanded;
        expanded.expanded_cell_index[4] = { 7, 7, 7, 7 }; // of the tile before
        set_expanded_mesh_limits(mesh, layout, { 1, 1 }, expanded);
        const auto side = [&](std::size_t place) {
            std::string text = written(std::array{ expanded.expanded_limits[place], double(expanded.expanded_rings[place]) });
            for (const auto & ring : expanded.expanded_cell_index) text += " " + std::to_string(ring[place]);
            return text;
        };
        const auto & first = expanded.expanded_first;
        for (const std::size_t axis : { 0U, 1U }) {
            EXPECT_EQ(side(2 * axis), low);
            EXPECT_EQ(side(2 * axis + 1), high);
            EXPECT_EQ(written(std::array{ first[2 * axis], first[2 * axis + 1] }), bounds);
        }
    }
}
