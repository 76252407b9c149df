#include "creation/given_creation.h"
#include "creation/run_scripts.h"
#include "creation/solver_inputs.h"

#include <gtest/gtest.h>

TEST(run_scripts, given_a_run_then_its_scripts)
{
    for (const auto & [method, type, run, changes, script, lines] : cases_of<6>("run_scripts.cases")) {
        SCOPED_TRACE(method + " " + type + " " + run + " " + script);
        const TemporaryFolder folder;
        const GivenCreation given(method, type, run, changes);
        Creation creation = given.creation(folder.path() + "\\");
        write_sensitivity_inputs(creation); // what sets the threads, as in a run
        write_run_scripts(creation);
        const std::string name = "run_" + script + ".bat";
        const std::string expected = file_of(lines);
        if (lines == "none")
            EXPECT_FALSE(folder.has(name));
        else if (lines.ends_with(" / ..."))
            EXPECT_TRUE(folder.read(name).starts_with(expected.substr(0, expected.size() - 5))) << folder.read(name);
        else
            EXPECT_EQ(folder.read(name), expected);
    }
}
