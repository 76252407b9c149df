#include "fakes/recorded_host.h"
#include "form/main_form.h"
#include "rules/mesh_boxes.h"
#include "rules/tile_boxes.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

void fill(Setup & setup, int axis, const char * minimum, const char * maximum, const char * size)
{
    setup.form("Text_min_val", axis).text = minimum;
    setup.form("Text_max_val", axis).text = maximum;
    setup.form("Text_cell_size", axis).text = size;
}

/// x 0..400, y 0..200, z 0..100, cells of 100, 50 and 10; padding 1,2 in all directions. The design mesh is built.
Setup filled_setup(RecordedHost & host, const char * lower_cells = "0")
{
    Setup setup;
    setup.form = make_main_form();
    fill(setup, 0, "0", "400", "100");
    fill(setup, 1, "0", "200", "50");
    fill(setup, 2, "0", "100", "10");
    setup.form("Text_num_cells", 3).text = lower_cells;
    setup.form("Text_cell_size", 3).text = "1.5";
    setup.form("Text_padding_multipliers", 0).text = setup.form("Text_padding_multipliers", 1).text = "1,2";
    setup.form["Text_x_tile_size"].text = "64";
    EXPECT_EQ(unload_mesh_from_form(setup, -1, false, host.host), Status::good);
    return setup;
}

Texts texts(const Setup & setup, const std::vector<std::pair<const char *, int>> & boxes)
{
    Texts shown;
    for (const auto & [box, index] : boxes) shown.push_back(setup.form(box, index).text);
    return shown;
}

}

TEST(unload_mesh, given_limits_then_they_are_snapped_to_whole_cells)
{
    struct Case {
        int axis;
        const char *minimum, *maximum, *size;
        bool keep_maximum;
        Texts expected; // minimum, maximum, cells
    };
    const Case cases[] = {
        { 0, "1000", "2050", "100", false, { "1000", "2000", "10" } }, // 10.5 cells: ties go to even
        { 0, "1000", "2150", "100", false, { "1000", "2200", "12" } }, // 11.5
        { 1, "1000", "2050", "100", true, { "1000", "2000", "10" } },  // the typed minimum wins in the second pass
        { 0, "0.1", "1", "0.3", false, { "0.1", "1", "3" } },          { 2, "0", "500", "30", false, { "0", "510", "17" } },
        { 2, "-105", "0", "50", false, { "-105", "-5", "2" } }, // the core hangs from the snapped top
    };
    RecordedHost host;
    for (const Case & c : cases) {
        auto setup = filled_setup(host);
        fill(setup, c.axis, c.minimum, c.maximum, c.size);
        EXPECT_EQ(unload_mesh_from_form(setup, c.axis, c.keep_maximum, host.host), Status::good);
        EXPECT_EQ(texts(setup, { { "Text_min_val", c.axis }, { "Text_max_val", c.axis }, { "Text_num_cells", c.axis } }),
                  c.expected);
    }
    EXPECT_EQ(host.dialogs.messages, Texts{});
}

TEST(unload_mesh, given_a_faulty_box_then_its_message_and_the_record_stays)
{
    struct Case {
        const char * box;
        int index;
        const char *text, *message;
    };
    const Case cases[] = {
        { "Text_min_val", 0, "a", "The minimum X value is not valid" },
        { "Text_max_val", 1, "", "The maximum Y value is not valid" },
        { "Text_max_val", 2, "0", "The minimum Z value must be less than the maximum value" },
        { "Text_cell_size", 0, "10 m", "The X cell size is not valid" },
        { "Text_cell_size", 1, "0", "The Y cell size must be positive" },
        { "Text_num_cells", 3, "x", "The number of non-uniform z cells is not valid" },
        { "Text_num_cells", 3, "-1", "The number of non-uniform z cells cannot be negative" },
        { "Text_cell_size", 3, "", "The non-uniform z cell multiplier is not valid" },
        { "Text_cell_size", 3, "0.9", "The non-uniform z cell multiplier cannot be less than 1" },
        { "Text_padding_multipliers", 0, "1,2,x", "There is a problem with the padding cell definitions" },
    };
    for (const Case & c : cases) {
        RecordedHost host;
        auto setup = filled_setup(host);
        const auto limits = setup.definition.mesh_max;
        if (c.index != 0) setup.form("Text_max_val", 0).text = "500";
        setup.form(c.box, c.index).text = c.text;
        EXPECT_EQ(unload_mesh_from_form(setup, -1, false, host.host), Status::bad);
        EXPECT_EQ(host.dialogs.messages, Texts{ c.message });
        EXPECT_EQ(setup.definition.mesh_max, limits);
    }
}

TEST(unload_mesh, given_a_lower_part_then_neither_a_build_nor_a_check_loses_it)
{
    RecordedHost host;
    auto setup = filled_setup(host, "3"); // typed before the first build, of which the record knows nothing
    const std::vector<std::pair<const char *, int>> boxes = {
        { "Text_num_cells", 3 }, { "Text_num_cells", 4 }, { "Text_num_z_cells", 0 }, { "Text_min_val", 3 }
    };
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(texts(setup, boxes), (Texts{ "3", "13", "13", "-47.5" })); // no padding below
        ASSERT_EQ(build_design_mesh(setup, host.host), Status::good);
        ASSERT_EQ(unload_mesh_from_form(setup, 2, false, host.host), Status::good);
    }
    setup.form("Text_num_cells", 3).text = "";
    ASSERT_EQ(unload_mesh_from_form(setup, 2, false, host.host), Status::good);
    EXPECT_EQ(texts(setup, boxes), (Texts{ "", "10", "12", "0.0" }));
}

TEST(unload_mesh, given_the_first_build_then_the_totals_and_outer_limits_are_shown)
{
    RecordedHost host;
    const auto setup = filled_setup(host);
    EXPECT_EQ(
        texts(setup, { { "Text_num_cells", 6 }, { "Text_num_cells", 7 }, { "Text_num_cells", 8 }, { "Text_num_cells", 5 } }),
        (Texts{ "8", "8", "12", "768" }));
    EXPECT_EQ(texts(setup, { { "Text_min_east", 0 }, { "Text_max_east", 0 }, { "Text_range_east", 0 } }),
              (Texts{ "-300", "700", "1000" }));
    EXPECT_EQ(texts(setup, { { "Text_min_north", 0 }, { "Text_max_north", 0 }, { "Text_range_north", 0 } }),
              (Texts{ "-150", "350", "500" }));
    // The design mesh ends at -30; its padding is counted once more.
    EXPECT_EQ(texts(setup, { { "Text_min_elev", 0 }, { "Text_max_elev", 0 }, { "Text_range_elev", 0 } }),
              (Texts{ "-60", "100", "160" }));
    EXPECT_EQ((std::array{ setup.definition.tile_x_size, setup.definition.tile_overlap }), (std::array{ 64, 0 }));
}

TEST(unload_mesh, given_more_cells_than_can_be_counted_then_the_unloading_ends_or_leaves_the_product_out)
{
    RecordedHost host;
    auto setup = filled_setup(host);
    for (const int axis : { 0, 1 }) fill(setup, axis, "0", "50000", "1");
    EXPECT_EQ(take_mesh_boxes(setup, -1, false, host.host), Status::good);
    EXPECT_EQ(texts(setup, { { "Text_num_cells", 6 }, { "Text_num_cells", 5 }, { "Text_num_x_cells", 0 } }),
              (Texts{ "50004", "", "" }));
    EXPECT_THROW((void)build_design_mesh(setup, host.host), OverflowFault);
    fill(setup, 0, "0", "1000", "1E-9");
    EXPECT_THROW((void)take_mesh_boxes(setup, 0, false, host.host), OverflowFault);
    EXPECT_EQ(unload_mesh_from_form(setup, 0, false, host.host), Status::good);
    EXPECT_EQ(host.dialogs.messages, Texts{});
}

TEST(tile_boxes, given_refinement_mode_then_each_faulty_box_has_its_message)
{
    struct Case {
        bool check; // of the whole definition, otherwise of the layout alone
        const char *box, *text, *message;
    };
    const Case cases[] = {
        { false, "Text_x_tile_size", "-", "The X tile size is not valid" },
        { false, "Text_number_x_tiles", "", nullptr }, // not filled in yet
        { false, "Text_number_y_tiles", "-1", "The number of Y tiles must be positive" },
        { false, "Text_z_blend", "6", "The number of z blend cells must be less than the number of x/y overlap cells" },
        { true, "Text_tile_overlap", "0", "The number of blend cells must be less than the number of overlap cells" },
        { true, "Text_z_blend", "6", "The number of z blend cells must be less than the number of overlap cells" },
        { true, "Text_minimum_points", "-1", "The minimum number of points per tile must be positive" },
    };
    RecordedHost host;
    auto setup = filled_setup(host);
    for (const char * box : { "Text_y_tile_size", "Text_number_x_tiles", "Text_number_y_tiles", "Text_minimum_points",
                              "Text_tile_overlap", "Text_z_blend", "Text_blend_overlap" })
        setup.form[box].text = "5"; // a blend as wide as the overlap passes
    EXPECT_EQ(check_tile_layout_boxes(setup, host.host), Status::good);
    EXPECT_EQ(check_tile_definitions(setup, host.host), Status::good);
    for (const Case & c : cases) {
        auto faulty = setup;
        faulty.form[c.box].text = c.text;
        host.dialogs.messages.clear();
        EXPECT_EQ(c.check ? check_tile_definitions(faulty, host.host) : check_tile_layout_boxes(faulty, host.host), Status::bad);
        EXPECT_EQ(host.dialogs.messages, c.message ? Texts{ c.message } : Texts{});
    }
}
