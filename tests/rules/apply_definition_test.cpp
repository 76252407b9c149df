#include "rules/apply_definition.h"
#include "rules/started_setup.h"

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

TEST(loading, given_one_block_then_the_rest_of_the_record_stays)
{
    const std::string all = "Trade-off parameter: 7; Obs data base value: 50000; Obs data file: a.xyz; Topo data file: t.xyz;"
                            "Obs data grid: g.xyz; Sensor grid: s.xyz; Obs data definitions: 2 0 1 0 5 2 3 4 0 0 0;"
                            "Topo data definitions: 2 0 1 6 2 3; Sensor height definitions: -1 11 13; Topo offset: 12;"
                            "Topo shift option: 0; Smoothness weighting: 0 2,1; [Comments]; 1 note";
    const std::pair<Selection, const char *> taken[] = {
        { Selection::parameters, "Trade-off parameter: 7" },
        { Selection::observed_data, "Obs data base value: 50000; Obs data definitions: 2 0 1 0 5 2 3 4 0 0 0; Sensor height "
                                    "definitions: -1 11 13; Obs data file: a.xyz; Obs data grid: g.xyz; Sensor grid: s.xyz" },
        { Selection::topography,
          "Topo data file: t.xyz; Topo data definitions: 2 0 1 6 2 3; Topo offset: 12; Topo shift option: 0" },
        { Selection::mesh, "Smoothness weighting: 0 2,1" },
    };
    for (const auto & [selection, lines] : taken) {
        StartedSetup started;
        InversionDefinition expected = started.setup.definition;
        take_lines(lines, expected);
        started.load_lines(all, selection);
        EXPECT_TRUE(started.setup.definition == expected) << lines;
    }
}
