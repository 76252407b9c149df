#include "rules/mesh_boxes.h"
#include "rules/started_setup.h"
#include "rules/tile_boxes.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

/// x 0..400, y 0..200, z 0..100, cells of 100, 50 and 10; padding 1,2 in all directions. The design mesh is built.
struct Filled : StartedSetup {
    explicit Filled(const char * lower_cells = "0")
    {
        InversionDefinition record;
        record.mesh_max = { 400, 200, 100, 0 };
        record.mesh_cell_size = { 100, 50, 10, 1 };
        record.padding_multipliers = { "1,2", "1,2" };
        load(record);
        type("Text_num_cells", lower_cells, 3);
        type("Text_cell_size", "1.5", 3);
        type("Text_tile_overlap", "");
        EXPECT_EQ(unload(), Status::good);
    }
    void fill(int axis, const char * minimum, const char * maximum, const char * size)
    {
        type("Text_min_val", minimum, axis);
        type("Text_max_val", maximum, axis);
        type("Text_cell_size", size, axis);
    }
    Status unload(int axis = -1, bool keep_maximum = false) { return unload_mesh_from_form(setup, axis, keep_maximum, host); }
    /// What boxes show, with commas between; a name may carry its index: "Text_num_cells 5".
    std::string shown(const Texts & boxes)
    {
        std::string all;
        for (const std::string & box : boxes) {
            const bool indexed = box.find(' ') != std::string::npos;
            all += (&box == &boxes[0] ? "" : ",") + text(box.substr(0, box.find(' ')).c_str(), indexed ? box.back() - '0' : 0);
        }
        return all;
    }
};

}

TEST(unload_mesh, given_limits_then_they_are_snapped_to_whole_cells)
{
    struct Case {
        int axis;
        const char *minimum, *maximum, *size, *expected; // the last: minimum, maximum, cells
        bool keep_maximum = false;
    };
    const Case cases[] = {
        { 0, "1000", "2050", "100", "1000,2000,10" },       // 10.5 cells: ties go to even
        { 0, "1000", "2150", "100", "1000,2200,12" },       // 11.5
        { 1, "1000", "2050", "100", "1000,2000,10", true }, // the typed minimum wins in the second pass
        { 0, "0.1", "1", "0.3", "0.1,1,3" },
        { 2, "0", "500", "30", "0,510,17" },
        { 2, "-105", "0", "50", "-105,-5,2" }, // the core hangs from the snapped top
    };
    for (const Case & c : cases) {
        Filled filled;
        filled.fill(c.axis, c.minimum, c.maximum, c.size);
        EXPECT_EQ(filled.unload(c.axis, c.keep_maximum), Status::good);
        const std::string index = " " + std::to_string(c.axis);
        EXPECT_EQ(filled.shown({ "Text_min_val" + index, "Text_max_val" + index, "Text_num_cells" + index }), c.expected);
    }
}

TEST(unload_mesh, given_a_faulty_box_then_its_message_and_the_record_stays)
{
    struct Case {
        std::int32_t mode; // 1 refined
        const char * box;
        int index;
        const char *text, *message;
    };
    const Case cases[] = {
        { 0, "Text_min_val", 0, "a", "The minimum X value is not valid" },
        { 0, "Text_max_val", 1, "", "The maximum Y value is not valid" },
        { 0, "Text_max_val", 2, "0", "The minimum Z value must be less than the maximum value" },
        { 0, "Text_cell_size", 0, "10 m", "The X cell size is not valid" },
        { 0, "Text_cell_size", 1, "0", "The Y cell size must be positive" },
        { 0, "Text_num_cells", 3, "x", "The number of non-uniform z cells is not valid" },
        { 0, "Text_num_cells", 3, "-1", "The number of non-uniform z cells cannot be negative" },
        { 0, "Text_cell_size", 3, "", "The non-uniform z cell multiplier is not valid" },
        { 0, "Text_cell_size", 3, "0.9", "The non-uniform z cell multiplier cannot be less than 1" },
        { 0, "Text_padding_multipliers", 0, "1,2,x", "There is a problem with the padding cell definitions" },
        { 1, "Text_x_tile_size", 0, "-", "The X tile size is not valid" },
        { 1, "Text_number_x_tiles", 0, "", nullptr }, // not filled in yet
        { 1, "Text_number_y_tiles", 0, "-1", "The number of Y tiles must be positive" },
        { 1, "Text_tile_overlap", 0, "-1", "The number of overlap cells must be positive" },
        { 1, "Text_z_blend", 0, "6", "The number of z blend cells must be less than the number of x/y overlap cells" },
    };
    for (const auto & [mode, box, index, text, message] : cases) {
        Filled filled;
        filled.setup.refinement_mode = mode;
        for (const char * tiles : { "number_x_tiles", "number_y_tiles", "tile_overlap", "blend_overlap", "z_blend" })
            filled.type((std::string("Text_") + tiles).c_str(), "5"); // a blend as wide as the overlap passes
        filled.type("Text_max_val", "500", 0);
        filled.type(box, text, index);
        EXPECT_EQ(filled.unload(), Status::bad);
        EXPECT_EQ(filled.dialogs.messages, message ? Texts{ message } : Texts{});
        EXPECT_EQ(filled.setup.definition.mesh_max[0], 400);
    }
}

TEST(unload_mesh, given_a_lower_part_then_neither_a_build_nor_a_check_loses_it)
{
    Filled filled("3"); // typed before the first build, of which the record knows nothing
    const Texts boxes = { "Text_num_cells 3", "Text_num_cells 4", "Text_num_z_cells", "Text_min_val 3" };
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(filled.shown(boxes), "3,13,13,-47.5"); // no padding below
        EXPECT_EQ(build_design_mesh(filled.setup, filled.host), Status::good);
        EXPECT_EQ(filled.unload(2), Status::good);
    }
    filled.type("Text_num_cells", "", 3);
    EXPECT_EQ(filled.unload(2), Status::good);
    EXPECT_EQ(filled.shown(boxes), ",10,12,0.0");
}

TEST(unload_mesh, given_the_first_build_then_the_totals_and_outer_limits_are_shown)
{
    Filled filled;
    EXPECT_EQ(filled.shown({ "Text_num_cells 6", "Text_num_cells 7", "Text_num_cells 8", "Text_num_cells 5" }), "8,8,12,768");
    EXPECT_EQ(filled.shown({ "Text_min_east", "Text_max_east", "Text_range_east" }), "-300,700,1000");
    EXPECT_EQ(filled.shown({ "Text_min_north", "Text_max_north", "Text_range_north" }), "-150,350,500");
    // The design mesh ends at -30; its padding is counted once more.
    EXPECT_EQ(filled.shown({ "Text_min_elev", "Text_max_elev", "Text_range_elev" }), "-60,100,160");
    EXPECT_EQ(filled.setup.definition.tile_overlap, 0); // of a blank box
}

TEST(unload_mesh, given_more_cells_than_can_be_counted_then_the_unloading_ends_or_leaves_the_product_out)
{
    Filled filled;
    for (const int axis : { 0, 1 }) filled.fill(axis, "0", "50000", "1");
    EXPECT_EQ(filled.unload(), Status::good);
    EXPECT_EQ(filled.shown({ "Text_num_cells 6", "Text_num_cells 5", "Text_num_x_cells" }), "50004,,");
    EXPECT_THROW((void)build_design_mesh(filled.setup, filled.host), OverflowFault);
    filled.fill(0, "0", "1000", "1E-9");
    EXPECT_THROW((void)take_mesh_boxes(filled.setup, 0, false, filled.host), OverflowFault);
    EXPECT_EQ(filled.unload(0), Status::good);
}

TEST(tile_boxes, given_a_refined_definition_then_a_blend_may_reach_the_overlap_but_not_pass_it)
{
    StartedSetup started;
    for (const char * box : { "Text_tile_overlap", "Text_blend_overlap", "Text_z_blend" }) started.type(box, "5");
    EXPECT_EQ(check_tile_definitions(started.setup, started.host), Status::good);
    started.type("Text_tile_overlap", "4");
    EXPECT_EQ(check_tile_definitions(started.setup, started.host), Status::bad);
    EXPECT_EQ(started.dialogs.messages, Texts{ "The number of blend cells must be less than the number of overlap cells" });
}
