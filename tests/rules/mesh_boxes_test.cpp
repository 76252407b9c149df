#include "rules/mesh_boxes.h"
#include "rules/started_setup.h"
#include "rules/tile_boxes.h"
#include "support/fault.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

/// x 0..400, y 0..200, z 0..100, cells of 100, 50 and 10; padding 1,2 in all directions. The design mesh is built.
struct Filled : StartedSetup {
    explicit Filled(const std::string & lower_cells = "0")
    {
        load_lines("X Range: 0 400 100 4; Y Range: 0 200 50 4; Z Range: 0 100 10 10 1 0; X/Y padding: 1,2; Z padding: 1,2");
        act("Text_num_cells 3 = " + lower_cells + "; Text_cell_size 3 = 1.5; Text_tile_overlap :=");
        EXPECT_EQ(unload(), Status::good);
    }
    Status unload(int axis = -1, bool keep_maximum = false) { return unload_mesh_from_form(setup, axis, keep_maximum, host); }
};

}

TEST(unload_mesh, given_limits_then_they_are_snapped_to_whole_cells)
{
    for (const auto & [axis, edited, boxes, seen] : cases_of<4>("mesh_snapping.cases")) {
        SCOPED_TRACE(boxes);
        Filled filled;
        filled.act(boxes);
        EXPECT_EQ(filled.unload(number_in(axis), edited == "maximum"), Status::good);
        filled.expect(seen);
    }
}

TEST(unload_mesh, given_a_faulty_box_then_its_message_and_the_record_stays)
{
    for (const auto & [mode, box, message] : cases_of<3>("mesh_boxes.cases")) {
        Filled filled;
        filled.setup.refinement_mode = number_in(mode);
        filled.act("Text_number_x_tiles := 5; Text_number_y_tiles := 5; Text_tile_overlap := 5; Text_blend_overlap = 5;"
                   "Text_z_blend = 5; Text_max_val 0 = 500");
        filled.act(box);
        EXPECT_EQ(filled.unload(), Status::bad);
        EXPECT_EQ(filled.dialogs.messages, message.empty() ? Texts{} : Texts{ message });
        EXPECT_EQ(filled.setup.definition.mesh_max[0], 400);
    }
}

TEST(unload_mesh, given_a_lower_part_then_neither_a_build_nor_a_check_loses_it)
{
    Filled filled("3"); // typed before the first build, of which the record knows nothing
    for (int time = 0; time < 2; ++time) {
        filled.expect("Text_num_cells 3 = 3; Text_num_cells 4 = 13; Text_num_z_cells = 13; Text_min_val 3 = -47.5");
        EXPECT_EQ(build_design_mesh(filled.setup, filled.host), Status::good); // no padding below
        EXPECT_EQ(filled.unload(2), Status::good);
    }
    filled.act("Text_num_cells 3 =");
    EXPECT_EQ(filled.unload(2), Status::good);
    filled.expect("Text_num_cells 3 =; Text_num_cells 4 = 10; Text_num_z_cells = 12; Text_min_val 3 = 0.0");
}

TEST(unload_mesh, given_more_cells_than_can_be_counted_then_the_unloading_ends_or_leaves_the_product_out)
{
    Filled filled;
    filled.act("Text_max_val 0 = 50000; Text_cell_size 0 = 1; Text_max_val 1 = 50000; Text_cell_size 1 = 1");
    EXPECT_EQ(filled.unload(), Status::good);
    filled.expect("Text_num_cells 6 = 50004; Text_num_cells 5 =; Text_num_x_cells =");
    EXPECT_THROW((void)build_design_mesh(filled.setup, filled.host), OverflowFault);
    filled.act("Text_max_val 0 = 1000; Text_cell_size 0 = 1E-9");
    EXPECT_THROW((void)take_mesh_boxes(filled.setup, 0, false, filled.host), OverflowFault);
    EXPECT_EQ(filled.unload(0), Status::good);
}

TEST(tile_boxes, given_a_refined_definition_then_a_blend_may_reach_the_overlap_but_not_pass_it)
{
    StartedSetup started;
    started.act("Text_tile_overlap := 5; Text_blend_overlap = 5; Text_z_blend = 5");
    EXPECT_EQ(check_tile_definitions(started.setup, started.host), Status::good);
    started.act("Text_tile_overlap := 4");
    EXPECT_EQ(check_tile_definitions(started.setup, started.host), Status::bad);
    EXPECT_EQ(started.dialogs.messages, Texts{ "The number of blend cells must be less than the number of overlap cells" });
}
