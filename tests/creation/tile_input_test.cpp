#include "creation/given_tiles.h"
#include "creation/solver_inputs.h"

#include <gtest/gtest.h>

TEST(tile_input, given_a_run_then_the_whole_input)
{
    for (const auto & [method, type, run, changes, expected] : cases_of<5>("tile_input.cases")) {
        const GivenTiles tiles(method, type, run, changes);
        const bool restart = run.find("restart") != run.npos;
        std::string lines;
        for (const std::string & line : tile_input_lines(tiles.creation(), restart ? SolverStart::restart : SolverStart::fresh))
            lines += (lines.empty() ? "" : "/") + line;
        EXPECT_EQ(lines, expected) << method << " " << type << " " << run << " " << changes;
    }
}

TEST(tile_input, given_a_tiled_run_then_the_input_at_the_top_has_one_to_go_on_from)
{
    const GivenTiles tiles("3", "1");
    write_inversion_inputs(tiles.creation());
    const std::string input = tiles.folder.read("inv\\maginv3d.inp");
    EXPECT_TRUE(input.starts_with("0\r\n3\r\n"));
    EXPECT_EQ(tiles.folder.read("inv\\maginv3d.restart"), "1" + input.substr(1));
}
