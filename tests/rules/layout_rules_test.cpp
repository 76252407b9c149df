#include "rules/layout_rules.h"
#include "rules/mesh_boxes.h"
#include "rules/refined_setup.h"
#include "support/numbers.h"

namespace {

using Texts = std::vector<std::string>;

/// Ten cells of 10 m from 0 to 100 in x, and five of 20 m from 0 to 100 in y, with one padding cell at each end.
struct Simple : StartedSetup {
    TemporaryFolder folder;

    Simple()
    {
        std::string data = "x y z v\r\n";
        for (int i = 0; i < 20; ++i) data += std::to_string(5 * i) + " 50 30 1\r\n";
        load_lines("Inversion method: 4; X Range: 0 100 10 10; Y Range: 0 100 20 5; Z Range: -100 0 10 10 1 0;"
                   "Add mesh padding: 1 1; X/Y padding: 2; Z padding: 1; Obs data types: 1; Mag field: 60 0 50000;"
                   "Obs data definitions: 2 0 1 0 1 2 3 4 0 0 0; Sensor height definitions: 0 0 0; Topo type: 1;"
                   "Obs data file: " +
                   folder.write("mag.dat", data));
        EXPECT_EQ(build_design_mesh(setup, host), Status::good);
    }
};

/// The volume from 20 to 80 m in x in 2 x 2 tiles.
struct Laid : Refined {
    Laid()
    {
        act("Text_x_tile_size := 40; Text_y_tile_size := 40; Text_min_val 0 := 20; Text_max_val 0 := 80; Text_number_x_tiles = "
            "0");
        EXPECT_TRUE(dialogs.messages.empty() && setup.tiles.has({ 1, 1 }));
    }
};

}

TEST(layout_view, given_the_button_then_it_opens_only_over_a_definition_that_passes_its_check)
{
    Simple given;
    given.act("Text_min_val 0 := abc");
    EXPECT_EQ(press_view_tiling(given.setup, given.host), Status::bad);
    EXPECT_EQ(given.dialogs.messages.size(), 1U);
    given.expect("Frame_tiling_layout hidden; Tab_inversion shown");

    given.act("Text_min_val 0 := 0");
    given.setup.form("StatusBar_coords", 3).text = "old";
    given.dialogs.messages.clear();
    EXPECT_EQ(press_view_tiling(given.setup, given.host), Status::good);
    EXPECT_EQ(given.dialogs.messages, Texts());
    given.expect("Frame_tiling_layout shown; Tab_inversion hidden; Frame_do_tile hidden; Command_done_tiling_layout shown;"
                 "Command_continue_tile hidden; Command_cancel_tile hidden");
    EXPECT_EQ(given.setup.form("StatusBar_coords", 2).text, "12,7");
    EXPECT_EQ(given.setup.form("StatusBar_coords", 3).text, "");
    EXPECT_EQ(given.setup.form("UpDown_clip", 10).tool_tip, "Shift the min and max x location");
    EXPECT_EQ(given.setup.form("UpDown_clip", 11).tool_tip, "Shift the min and max y location");
    press_done_tiling_layout(given.setup);
    given.expect("Frame_tiling_layout hidden; Tab_inversion shown");
}

TEST(press_clip, given_a_button_then_its_limits_move_by_a_cell_and_boxes_mesh_and_totals_follow)
{
    for (const auto & [limits, index, way, wanted, totals, edges] : cases_of<6>("press_clip.cases")) {
        SCOPED_TRACE(limits + " " + index + " " + way);
        Simple given;
        take_lines(limits, given.setup.definition);
        EXPECT_EQ(build_design_mesh(given.setup, given.host), Status::good);
        given.act("Combo_view_limits = 1");
        const int button = number_in(index);
        press_clip(given.setup, button, way == "up", given.host);
        given.expect(wanted);
        EXPECT_EQ(given.setup.form("StatusBar_coords", 2).text, totals);
        const UbcMesh & mesh = given.setup.design_mesh;
        EXPECT_EQ(general_text(mesh.nodes_x[1]) + " " + general_text(mesh.nodes_y[mesh.nodes_y.size()]), edges);
        const bool redrawn = button < 4 || button >= 10; // with the whole mesh in view
        given.expect(std::string("Frame_do_tile hidden; Combo_view_limits = ") + (redrawn ? "Total Region" : "Core Region"));
    }
}

TEST(press_clip, given_refined_mode_then_limits_move_by_base_cells_and_go_no_further_than_its_core)
{
    Laid given;
    given.setup.tiles.tile_skipped[1] = 1;
    press_clip(given.setup, 0, false, given.host);
    given.expect("Text_min_val 0 = 10; Text_num_cells 0 = 35; Text_max_val 3 = 70; Frame_do_tile shown");
    EXPECT_EQ(given.setup.design_mesh.nodes_x[given.setup.design_mesh.core_x_first], 10);
    EXPECT_FALSE(given.setup.tiles.is_skipped({ 1, 1 }));             // laid out anew
    EXPECT_EQ(given.setup.form("StatusBar_coords", 2).text, "42,54"); // 35 and 50, with 7 and 4 of the base
    press_clip(given.setup, 0, false, given.host);
    EXPECT_TRUE(given.dialogs.messages.empty());
    press_clip(given.setup, 0, false, given.host);
    EXPECT_EQ(given.dialogs.messages,
              Texts{ "The minimum x limit of the refined area is outside the core mesh region of the original model" });
    given.expect("Text_min_val 0 = 0; Text_num_cells 0 = 40");
    EXPECT_EQ(given.setup.definition.mesh_min[0], 0);
    for (int press = 0; press < 12; ++press) press_clip(given.setup, 1, false, given.host);
    given.expect("Text_min_val 0 = 0; Text_max_val 0 = 10; Text_num_cells 0 = 5"); // one base cell is left
}

TEST(press_clip, given_the_overlap_then_the_box_shows_it_and_the_tiles_wait)
{
    Laid given;
    const auto tiles = given.setup.tiles.tile_x_cells;
    press_clip(given.setup, 10, false, given.host);
    given.expect("Text_tile_overlap = 4; Frame_do_tile shown");
    press_clip(given.setup, 11, true, given.host);
    press_clip(given.setup, 11, true, given.host);
    given.expect("Text_tile_overlap = 6; Tile overlap: 6");
    EXPECT_TRUE(given.setup.tiles.tile_x_cells == tiles);
}

TEST(layout_pointer, given_tiles_then_the_one_under_the_pointer_is_told_chosen_and_marked)
{
    Laid given;
    pause_in_tiling_layout(given.setup, given.host);
    given.expect("Frame_tiling_layout shown; Frame_do_tile shown; Tab_inversion hidden; Command_continue_tile shown;"
                 "Command_cancel_tile shown; Command_done_tiling_layout hidden; Check_do_tile disabled; Check_do_tile = off");
    EXPECT_EQ(given.setup.form("UpDown_clip", 11).tool_tip, "Increase/decrease the tile overlap");
    point_at(given.setup, 25.04, 1.25);
    // x nodes -60, -20, 0, 10, 20, 22, 24, 26 and y nodes -60, -20, 0, 2. In x one tile holds all but the last of 30 cells; in y
    // it ends at 50 m, after 25 cells, and has 5 more.
    const auto panels = [&] {
        std::string text;
        for (int i = 3; i < 6; ++i) text += given.setup.form("StatusBar_coords", i).text + "|";
        return text;
    };
    EXPECT_EQ(panels(), "25.0|1.3|7,3 T0101 29 x 30|");
    choose_at(given.setup, 25, 1);
    given.expect("Check_do_tile enabled; Check_do_tile = off");
    EXPECT_EQ(given.setup.form["Check_do_tile"].caption, "Skip Tile X01 Y01");
    given.act("Combo_view_limits = 2; Check_do_tile = on");
    given.expect("Combo_view_limits = Total Region; Frame_do_tile shown");
    EXPECT_TRUE(given.setup.tiles.is_skipped({ 1, 1 }));
    point_at(given.setup, -1000, 0);
    EXPECT_EQ(panels(), "-1000.0|0.0||");
    choose_at(given.setup, -1000, 0);
    EXPECT_EQ(given.setup.selected_tile, Tile());
    given.expect("Frame_do_tile shown; Check_do_tile disabled"); // the order of the tiles stays in reach
    choose_at(given.setup, 25, 1);
    given.expect("Check_do_tile = on");
    press_done_tiling_layout(given.setup);
    given.expect("Frame_do_tile hidden");
    pause_in_tiling_layout(given.setup, given.host);
    initialise_inversion_form(given.setup, given.host); // as for a definition that is opened meanwhile: it brings the pages back
    given.expect("Frame_tiling_layout hidden; Tab_inversion shown");
}
