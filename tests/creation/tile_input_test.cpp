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
