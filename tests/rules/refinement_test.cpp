#include "rules/mesh_boxes.h"
#include "rules/refined_boxes.h"
#include "rules/refined_setup.h"
#include "rules/tile_choice.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

constexpr const char * loaded = "The mesh/model files have been loaded and refinement mode is enabled";

struct Started : StartedSetup {
    TemporaryFolder folder;
    std::string mesh_file = folder.write("base.msh", base_mesh_text);

    Status press(int index, std::deque<std::string> picks = {})
    {
        dialogs.picks = std::move(picks);
        return press_define_inversion_mode(setup, index, host);
    }
};

}

TEST(refinement, given_a_mesh_without_a_model_then_its_core_is_the_volume_to_refine)
{
    Started started;
    started.act("Text_min_val 0 = 7");
    EXPECT_EQ(started.press(1, { started.mesh_file }), Status::good);
    EXPECT_EQ(started.dialogs.questions,
              (Texts{ "Select the mesh definition file", "Select the (optional) QVinv3D model file" }));
    EXPECT_EQ(started.dialogs.messages, Texts{ loaded });
    EXPECT_EQ(started.setup.refinement_mode, 1);
    started.expect("menu_define_inversion_mode shown; menu_define_inversion_mode 1 hidden; Text_number_x_tiles = 0;"
                   "Text_min_val 0 = 0; Text_max_val 0 = 100; Text_cell_size 0 = 10; Text_num_cells 0 = 14;"
                   "Text_min_val 1 = 0; Text_max_val 1 = 100; Text_cell_size 1 = 10; Text_num_cells 1 = 14;"
                   "Text_min_val 2 = 0; Text_max_val 2 = 50; Text_cell_size 2 = 10; Text_num_cells 2 = 4");
}

TEST(refinement, given_a_choice_that_fails_or_is_none_then_the_mode_changes_only_with_a_mesh)
{
    Started started;
    EXPECT_EQ(started.press(1), Status::stopped); // cancelled
    EXPECT_EQ(started.press(1, { started.folder.write("grid.vo", "GOCAD Voxet 1\r\n") }), Status::bad);
    EXPECT_EQ(started.dialogs.messages.size(), 1U);
    EXPECT_EQ(started.setup.refinement_mode, 0);
    started.dialogs.messages.clear();
    EXPECT_EQ(started.press(1, { started.mesh_file, started.folder.write("short.sus", "1\r\n2\r\n") }), Status::bad);
    EXPECT_EQ(started.dialogs.messages.size(), 1U);
    EXPECT_TRUE(started.setup.refinement_mode == 1 && started.setup.base.mesh_loaded && started.setup.base.model_file.empty());
    EXPECT_EQ(started.press(0), Status::good);
    EXPECT_TRUE(started.setup.refinement_mode == 0 && !started.setup.base.mesh_loaded);
    started.dialogs.messages.clear();
    EXPECT_EQ(finish_refinement(started.setup, "any.sus", started.host), Status::bad);
    EXPECT_EQ(started.dialogs.messages, Texts{ "No mesh file has been specified" });
}

TEST(refinement, given_refined_boxes_then_mesh_and_tiles_are_built_and_shown)
{
    Refined given;
    given.act("Text_min_val 0 = 14; Text_max_val 0 = 95");
    EXPECT_EQ(unload_mesh_from_form(given.setup, -1, false, given.host), Status::good);
    // 14..95 is 40 cells (40.5 to even) and so 14..94, and by the base mesh 10..90; 0..100 is 50; by 20: 2 and 2.5, even, but 25
    // cells with overlaps are 35 and so 3
    given.expect("Text_min_val 0 = 10; Text_max_val 0 = 90; Text_num_cells 0 = 40; Text_max_val 1 = 100; Text_num_cells 1 = 50;"
                 "Text_min_val 2 = 0; Text_num_cells 2 = 10; Text_num_cells 4 = 10; Text_min_val 3 = 0.0;"
                 "Text_number_x_tiles = 2; Text_number_y_tiles = 3; Text_min_east =");
    EXPECT_TRUE(given.dialogs.messages.empty());
    const TileLayout & tiles = given.setup.tiles;
    // half of 39 cells from node 4 on is 23.5, to even 24: there lies 50, a node of the base mesh
    EXPECT_EQ(tiles.tile_x_cells[1], (TileBounds{ 4, 4, 24, 29 }));
}

TEST(refinement, given_tiles_then_skips_and_order_are_taken_until_they_are_laid_anew)
{
    Refined given;
    given.act("Text_number_x_tiles = 0");
    const TileLayout & tiles = given.setup.tiles;
    ASSERT_TRUE(tiles.has({ 2, 3 }));
    select_tile(given.setup, { 2, 3 });
    given.expect("Frame_do_tile shown; Check_do_tile = off");
    EXPECT_EQ(given.setup.form["Check_do_tile"].caption, "Skip Tile X02 Y03");
    given.act("Check_do_tile = on; Combo_tile_order 1 = 1");
    EXPECT_TRUE(tiles.is_skipped({ 2, 3 }) && tiles.tile_order == (std::array{ 0, 1, 0 }));
    given.expect("Tile order: 0 1 0");
    select_tile(given.setup, { 4, 1 });
    given.expect("Frame_do_tile hidden");
    given.act("Check_do_tile = off");
    EXPECT_TRUE(tiles.is_skipped({ 2, 3 }));

    given.act("Text_tile_overlap = 4");
    given.expect("Combo_tile_order 1 = Bottom to Top; Tile order: 0 0 0; Tile overlap: 4");
    EXPECT_FALSE(tiles.is_skipped({ 2, 3 }));
}

TEST(refinement, given_ground_below_the_volume_or_no_base_then_a_message)
{
    Refined given;
    EXPECT_EQ(unload_mesh_from_form(given.setup, -1, false, given.host), Status::good); // down to 0
    const auto check = [&](std::int32_t method, float bottom) {
        given.setup.definition.inversion_method = method;
        given.setup.base.ground_bottom = bottom;
        return check_refined_bottom(given.setup, given.host);
    };
    EXPECT_TRUE(check(3, 0) == Status::good && check(4, -0.5F) == Status::good && check(3, -0.5F) == Status::bad);
    given.setup.base = {};
    EXPECT_EQ(build_design_mesh(given.setup, given.host), Status::bad);
    EXPECT_EQ(given.dialogs.messages,
              (Texts{ "The bottom of the mesh refinement must be below the bottom of the topo: -0.5",
                      "No base mesh has been loaded: a refined inversion needs the mesh that it refines" }));
}

TEST(snap_to_nodes, given_limits_then_they_move_to_the_node_below_or_the_ends_of_the_mesh)
{
    // minimum and maximum, and where they go: above the mesh a minimum goes to the last node but one
    const double cases[][4] = { { -1, -2, 0, 0 }, { 10, 39.9, 10, 20 }, { 40, 40, 40, 40 }, { 41, 41, 20, 40 } };
    for (const auto & limits : cases) {
        ::Setup setup;
        setup.design_mesh.nodes_x = { 0, 10, 20, 40 };
        setup.definition.mesh_min[0] = limits[0];
        setup.definition.mesh_max[0] = limits[1];
        snap_to_nodes(setup, 0);
        EXPECT_EQ((std::array{ setup.definition.mesh_min[0], setup.definition.mesh_max[0] }),
                  (std::array{ limits[2], limits[3] }));
    }
}
