#include "rules/apply_definition.h"
#include "rules/mesh_boxes.h"
#include "rules/started_setup.h"

#include <algorithm>
#include <gtest/gtest.h>

TEST(loading, given_a_definition_then_it_is_mended_and_shown)
{
    for (const auto & [definition, seen] : cases_of<2>("apply_definition.cases")) {
        SCOPED_TRACE(definition);
        StartedSetup started;
        if (!definition.empty()) started.load_lines(definition);
        started.expect(seen);
        EXPECT_TRUE(!started.setup.loading && started.dialogs.messages.empty());
    }
}

TEST(loading, given_a_refined_definition_in_refined_mode_then_its_tiles_are_shown)
{
    StartedSetup started;
    started.setup.refinement_mode = 1;
    started.load_lines("Refinement Mode: 1; Inversion method: 6; X tile size: 64; Tile order: 1 0 1; Use Cluster Controller: 1");
    started.expect("Text_x_tile_size = 64; Combo_tile_order 2 = Right to Left");
    started.expect("Use Cluster Controller: 0"); // by the method, whatever the record says
    started.load_lines("");                      // a simple one: record and form keep the tiles
    started.expect("Text_x_tile_size = 64; X tile size: 64");
}

TEST(loading, given_another_mesh_then_the_totals_of_the_last_one_go)
{
    StartedSetup started;
    started.load_lines("X Range: 0 400 100 4; Y Range: 0 200 50 4; Z Range: 0 100 10 10 1 0");
    ASSERT_EQ(unload_mesh_from_form(started.setup, -1, false, started.host), Status::good);
    ASSERT_NE(started.text("Text_num_cells", 5), "");
    started.load_lines("X Range: 0 800 100 8", Selection::mesh);
    started.expect("Text_num_cells 5 =; Text_num_cells 6 =; Text_num_x_cells =; Text_min_east =; Text_range_elev =");
}

TEST(loading, given_one_block_then_the_rest_of_the_record_stays)
{
    const char * const selections[] = { "all", "parameters", "observed data", "topography", "mesh" };
    const auto cases = cases_of<2>("selections.cases");
    std::string all;
    for (const auto & [selection, lines] : cases) all += (all.empty() ? "" : "; ") + lines;
    for (const auto & [selection, lines] : cases) {
        const auto place = std::ranges::find(selections, selection) - std::begin(selections);
        if (selection == "none") continue;
        StartedSetup started;
        InversionDefinition expected = started.setup.definition;
        take_lines(lines, expected);
        started.load_lines(all, static_cast<Selection>(place));
        EXPECT_TRUE(started.setup.definition == expected) << lines;
    }
}
