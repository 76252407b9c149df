#include "fakes/case_table.h"
#include "mesh/given_base.h"
#include "support/fault.h"

#include <algorithm>

namespace {

struct Refining : RecordedDialogs {
    InversionDefinition definition;
    UbcMesh mesh;
    TileLayout layout;

    Refining(const std::string & limits, std::array<double, 4> sizes)
    {
        std::istringstream numbers(limits);
        for (std::size_t axis = 0; axis < 3; ++axis) numbers >> definition.mesh_min[axis] >> definition.mesh_max[axis];
        definition.mesh_cell_size = sizes;
        definition.mesh_cells = { 1, 1, 1, 2 };
        definition.tile_z_blend = 0;
        definition.tile_order = { 1, 1, 1 };
    }
    Status refine() { return determine_refined_mesh(definition, padded_base(), mesh, layout, *this); }
    std::string result() const
    {
        const auto & low = definition.mesh_min;
        const auto & high = definition.mesh_max;
        return written(std::array{ low[0], high[0], low[1], high[1], low[2], high[2] }) + " " +
               written(std::array{ definition.mesh_cells[0], definition.mesh_cells[1], definition.mesh_cells[2] });
    }
};

}

TEST(refined_mesh, given_a_volume_then_its_cells_replace_those_of_the_base_mesh)
{
    Refining given("10 30 0 40 80 100", { 4, 5, 5, 1 });
    given.definition.tile_overlap = 0;
    ASSERT_EQ(given.refine(), Status::good);
    const UbcMesh & mesh = given.mesh;
    EXPECT_EQ(mesh.total_cells, (std::array{ 9, 10, 6 }));
    EXPECT_EQ(mesh.widths_x, (List<double>{ 20, 10, 4, 4, 4, 4, 4, 10, 20 }));
    EXPECT_EQ(mesh.nodes_x, (List<double>{ -20, 0, 10, 14, 18, 22, 26, 30, 40, 60 }));
    EXPECT_EQ(mesh.nodes_y, (List<double>{ -20, 0, 5, 10, 15, 20, 25, 30, 35, 40, 60 }));
    EXPECT_EQ(mesh.nodes_z, (List<double>{ 100, 95, 90, 85, 80, 70, 50 }));
    EXPECT_EQ(mesh.nodes_z_ascending[1], 50);
    EXPECT_EQ(mesh.centres_x[3], 12);
    EXPECT_EQ(written(std::array{ mesh.core_x_first, mesh.core_x_last, mesh.core_y_first, mesh.core_y_last, mesh.core_z_first,
                                  mesh.core_z_last }),
              "3 7 2 9 1 5");
    EXPECT_EQ(written(std::array{ mesh.core_x_start, mesh.core_x_end, mesh.core_y_start, mesh.core_y_end, mesh.mesh_z_top,
                                  mesh.mesh_z_bottom }),
              "10 26 0 35 100 50");
    EXPECT_TRUE(given.definition.mesh_cells[3] == 0 && given.definition.mesh_min[3] == 80);
    EXPECT_EQ(given.definition.tile_order, (std::array{ 0, 0, 0 }));
    EXPECT_EQ(given.layout.tile_x_cells, (List<TileBounds>{ { 3, 3, 7, 7 } }));
}

TEST(refined_mesh, given_limits_then_they_move_to_nodes_of_the_base_mesh_or_are_refused_and_stay)
{
    for (const auto & [limits, blend, result, message] : cases_of<4>("refined_mesh.cases")) {
        SCOPED_TRACE(limits);
        Refining given(limits, { 3, 5, 5, 1 });
        given.definition.tile_z_blend = number_in(blend);
        const std::string before = given.result();
        EXPECT_EQ(given.refine(), result.empty() ? Status::bad : Status::good);
        EXPECT_EQ(given.result(), result.empty() ? before : result);
        EXPECT_EQ(given.messages, message.empty() ? std::vector<std::string>() : std::vector<std::string>{ message });
        EXPECT_EQ(given.mesh.total_cells[0] == 0, result.empty());
    }
}

TEST(refined_mesh, given_tiles_that_cannot_be_laid_then_nothing_changes)
{
    Refining given("10 30 0 40 80 100", { 4, 5, 5, 1 });
    given.definition.tile_y_size = 0;
    EXPECT_EQ(given.refine(), Status::bad);
    EXPECT_EQ(given.messages, (std::vector<std::string>{ "The Y tile size must be at least one cell" }));
    given.definition.tile_y_size = 2 * given.definition.tile_overlap;
    EXPECT_THROW((void)given.refine(), OverflowFault);
    EXPECT_EQ(given.result(), "10 30 0 40 80 100 1 1 1");
}
