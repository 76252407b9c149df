#include "data/given_grids.h"
#include "data/topo_grid.h"
#include "fakes/case_table.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// 3 by 2 cells in three layers over a grid that is a plane: 60 at the origin, 0.5 up a metre to the east and 0.25 down to the
/// north.
struct TopoRun : GivenGrids {
    TopoRun()
    {
        definition.inversion_method = 0;
        // nodes each 10 m from -10 to 40 and from -10 to 30
        definition.data_file[1] = folder.write("ground.grd", "DSAA\n6 5\n-10 40\n-10 30\n47.5 82.5\n"
                                                             "57.5 62.5 67.5 72.5 77.5 82.5\n"
                                                             "55 60 65 70 75 80\n"
                                                             "52.5 57.5 62.5 67.5 72.5 77.5\n"
                                                             "50 55 60 65 70 75\n"
                                                             "47.5 52.5 57.5 62.5 67.5 72.5\n");
    }
    Status load() { return load_topo_grid(definition, mesh, topo, recorded.host); }

    InversionDefinition definition;
    UbcMesh mesh = even_mesh(3, 2, { 100, 71, 65, 40 });
    TopoSurface topo;
};

std::vector<float> listed(const List<float> & values) { return { values.items().begin(), values.items().end() }; }

}

TEST(load_topo_grid, given_a_method_then_its_positions_are_sampled_and_its_rule_counts_the_air)
{
    for (const auto & [method, points, air] : cases_of<3>("topo_grid_methods.cases")) {
        SCOPED_TRACE(method);
        TopoRun run;
        run.definition.inversion_method = number_in(method);
        ASSERT_EQ(run.load(), Status::good);
        EXPECT_EQ(listed(run.topo.cell_topo), (std::vector<float>{ 61.25F, 66.25F, 71.25F, 58.75F, 63.75F, 68.75F }));
        std::string found;
        for (const std::int32_t cells : run.topo.air_cells.items()) found += (found.empty() ? "" : " ") + general_text(cells);
        EXPECT_EQ(found, air);
        EXPECT_EQ(run.topo.frame_count, 17); // (4 + 3) * 2 + 3
        EXPECT_EQ(run.topo.point_count, number_in(points) + 17);
        const std::vector<float> nodes = { 60, 65, 70, 75, 57.5F, 62.5F, 67.5F, 72.5F, 55, 60, 65, 70 };
        EXPECT_EQ(listed(run.topo.node_topo), method == "4" ? nodes : std::vector<float>());
        EXPECT_EQ(run.recorded.progress.steps, (std::vector<std::string>{ "Loading grid data", "Interpolate topo values" }));
        EXPECT_FALSE(run.has_working_copies());
    }
}

TEST(load_topo_grid, given_an_offset_or_a_turn_then_elevations_take_the_offset_alone)
{
    TopoRun offset;
    offset.definition.topo_offset() = 1.5F;
    ASSERT_EQ(offset.load(), Status::good);
    EXPECT_EQ(offset.topo.cell_topo[2], 67.75F);

    // the cells' ground in the map, with x from -20 to 0 and y from 0 to 30
    TopoRun turned;
    turned.definition.coordinate_transform = quarter_turn();
    turned.definition.data_file[1] = turned.arc("turned.asc", { 2, 3, -20, 0, 10 }, "61 62\n63 64\n65 66");
    ASSERT_EQ(turned.load(), Status::good);
    EXPECT_EQ(listed(turned.topo.cell_topo), (std::vector<float>{ 66, 64, 62, 65, 63, 61 }));
}

TEST(load_topo_grid, given_few_values_then_fewer_than_five_samples_or_one_line_are_refused)
{
    for (const auto & [rows, outcome] : cases_of<2>("topo_grid.cases")) {
        SCOPED_TRACE(rows);
        TopoRun run;
        run.topo.point_count = 7;
        const auto count = static_cast<std::int32_t>(parts_of(rows, '/').size());
        run.mesh = even_mesh(3, count, { 100, 40 });
        run.definition.data_file[1] = run.arc("part.asc", { 3, count, 0, 0, 10 }, file_of(rows));
        EXPECT_EQ(run.load(), outcome == "good" ? Status::good : Status::bad);
        EXPECT_EQ(run.recorded.dialogs.messages, refusals_of(outcome));
        EXPECT_EQ(run.topo.point_count == 7, outcome != "good");
        EXPECT_FALSE(run.has_working_copies());
    }
}

TEST(load_topo_grid, given_values_in_a_corner_then_far_from_them_the_ground_is_the_mean_of_the_samples)
{
    TopoRun run;
    run.mesh = even_mesh(10, 1, { 100, 40 });
    run.definition.topo_offset() = 1;
    run.definition.data_file[1] = run.arc("west.asc", { 2, 1, 0, 0, 10 }, "60 66");
    ASSERT_EQ(run.load(), Status::good);
    // three samples each at x of 0, 5 and 15: 60, 60 and 66
    EXPECT_EQ(run.topo.cell_topo[10], 63);
    EXPECT_EQ(run.topo.cell_topo[1], 61);
}

TEST(load_topo_grid, given_a_stop_or_no_grid_then_the_surface_stays_and_no_working_copy)
{
    TopoRun run;
    run.recorded.progress.stop_at_percent = 50;
    EXPECT_THROW((void)run.load(), Stopped);
    EXPECT_FALSE(run.has_working_copies());
    EXPECT_EQ(run.topo.point_count, 0);

    const std::string lost = run.definition.data_file[1] = run.folder.file("lost.grd");
    EXPECT_EQ(run.load(), Status::bad);
    EXPECT_EQ(run.recorded.dialogs.messages,
              std::vector<std::string>{ "Failed to determine grid format: " + lost + ": there is no such file" });
}
