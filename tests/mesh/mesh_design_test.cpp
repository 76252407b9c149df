#include "fakes/case_table.h"
#include "mesh/mesh_design.h"

#include <gtest/gtest.h>

namespace {

/// 3 x 2 x 2 cells of 100 x 50 x 30 m from (1000, 0), top at 500, without padding unless its texts are given.
InversionDefinition small_core(const char * padding_xy = nullptr, const char * padding_z = "")
{
    InversionDefinition definition;
    definition.mesh_min = { 1000, 0, 440, 440 };
    definition.mesh_max = { 1300, 100, 500, 0 };
    definition.mesh_cell_size = { 100, 50, 30, 1 };
    definition.mesh_cells = { 3, 2, 2, 0 };
    definition.add_padding_cells = padding_xy ? 1 : 0;
    if (padding_xy) definition.padding_multipliers = { padding_xy, padding_z };
    return definition;
}

UbcMesh built(InversionDefinition definition)
{
    Padding padding;
    UbcMesh mesh;
    EXPECT_EQ(determine_inversion_mesh(definition, padding, mesh), Status::good);
    return mesh;
}

}

TEST(determine_inversion_mesh, given_padding_then_the_last_item_lies_outermost_and_z_is_padded_at_the_bottom_alone)
{
    const UbcMesh mesh = built(small_core("1,2", "1,3"));
    EXPECT_EQ(mesh.total_cells, (std::array{ 7, 6, 4 }));
    EXPECT_EQ(mesh.widths_x, (List<double>{ 200, 100, 100, 100, 100, 100, 200 }));
    EXPECT_EQ(mesh.nodes_x, (List<double>{ 700, 900, 1000, 1100, 1200, 1300, 1400, 1600 }));
    EXPECT_EQ(mesh.nodes_y, (List<double>{ -150, -50, 0, 50, 100, 150, 250 }));
    EXPECT_EQ(mesh.nodes_z, (List<double>{ 500, 470, 440, 410, 320 }));
    EXPECT_EQ(mesh.nodes_z_ascending, (List<double>{ 320, 410, 440, 470, 500 }));
    EXPECT_EQ(mesh.centres_z, (List<double>{ 485, 455, 425, 365 }));
    EXPECT_EQ((std::array{ mesh.nodes_x[mesh.core_x_first], mesh.nodes_x[mesh.core_x_last] }), (std::array{ 1000.0, 1300.0 }));
    EXPECT_EQ((std::array{ mesh.nodes_y[mesh.core_y_first], mesh.nodes_y[mesh.core_y_last] }), (std::array{ 0.0, 100.0 }));
    EXPECT_EQ((std::array{ mesh.nodes_z[mesh.core_z_first], mesh.nodes_z[mesh.core_z_last] }), (std::array{ 500.0, 440.0 }));
    EXPECT_EQ((std::array{ mesh.core_x_start, mesh.core_x_end, mesh.mesh_z_bottom }), (std::array{ 700.0, 1600.0, 320.0 }));
}

TEST(determine_inversion_mesh, given_a_lower_part_then_it_replaces_the_padding_in_z)
{
    InversionDefinition definition = small_core("1", "1,2");
    definition.mesh_cell_size = { 100, 50, 10, 1.5 };
    definition.mesh_cells = { 3, 2, 2, 3 };
    definition.mesh_min = { 1000, 0, 480, lower_part_bottom(480, 10, 1.5, 3) };
    const UbcMesh mesh = built(definition);
    EXPECT_EQ(mesh.widths_z, (List<double>{ 10, 10, 10, 15, 22.5 }));
    EXPECT_EQ(mesh.mesh_z_bottom, 432.5);
    EXPECT_EQ(mesh.nodes_z[6], 432.5);
    EXPECT_EQ(mesh.core_z_last, 6);
}

TEST(determine_inversion_mesh, given_mode_4_then_the_limits_become_depths_once)
{
    InversionDefinition definition = small_core();
    definition.inversion_mode = 4;
    definition.mesh_min[3] = 430;
    Padding padding;
    UbcMesh mesh;
    for (int time = 0; time < 2; ++time) {
        ASSERT_EQ(determine_inversion_mesh(definition, padding, mesh), Status::good);
        EXPECT_EQ(definition.mesh_min, (std::array{ 1000.0, 0.0, -60.0, -70.0 }));
        EXPECT_EQ(definition.mesh_max[2], 0);
        EXPECT_EQ(mesh.nodes_z, (List<double>{ 0, -30, -60 }));
    }
}

TEST(determine_inversion_mesh, given_counts_that_cannot_be_then_the_mesh_stays)
{
    InversionDefinition definition = small_core();
    Padding padding;
    UbcMesh mesh = built(definition);
    const auto build = [&](std::array<std::int32_t, 4> cells) {
        definition.mesh_cells = cells;
        return determine_inversion_mesh(definition, padding, mesh);
    };
    EXPECT_THROW((void)build({ 2147483647, 1, 1, 0 }), OverflowFault);
    EXPECT_THROW((void)build({ 3, 2, 2147483647, 1 }), OverflowFault);
    EXPECT_THROW((void)build({ 50000, 50000, 2, 0 }), OverflowFault);
    EXPECT_EQ(build({ 0, 2, 2, 0 }), Status::bad);
    EXPECT_EQ(mesh.nodes_x, (List<double>{ 1000, 1100, 1200, 1300 }));
}

TEST(padding, given_texts_then_items_are_counted_or_refused)
{
    for (const auto & [text, cells] : cases_of<2>("padding.cases")) {
        Padding padding;
        const bool good = cells != "faulty";
        EXPECT_EQ(calculate_cell_counts(small_core(text.c_str()), padding), good ? Status::good : Status::bad) << text;
        const std::int32_t more = good ? 2 * number_in(cells) : 0;
        EXPECT_TRUE(!good || padding.total_cells == (std::array{ 3 + more, 2 + more, 2 })) << text;
    }
}

TEST(padding, given_items_then_their_sum_is_single_at_each_addition)
{
    EXPECT_EQ(built(small_core("16777216,1,1")).core_x_start, 1000 - 16777216.0 * 100); // 2^24 + 1 has no place in 24 bits
}
