#include "batch/batch_run.h"
#include "fakes/tiny_survey.h"

#include <gtest/gtest.h>

struct CommandCase {
    const char * name;
    std::vector<std::string> arguments;
    std::string input;
    int status;
    std::string output, errors;
};

TEST(commands, given_a_command_line_then_streams_and_status_are_apart)
{
    const TinySurvey survey;
    survey.folder.write("shift.crd",
                        "     Station        Depth      East       North\r\n 0 0 1000 2000\r\n 100 0 1100 2000\r\n 5 2\r\n");
    survey.folder.write("same.crd",
                        "     Station        Depth      East       North\r\n 7 8 1000 2000\r\n 7 8 1100 2000\r\n 0 1\r\n");
    const std::string definition = host_file(survey.folder, "tiny.inp");
    const std::string shift = host_file(survey.folder, "shift.crd");
    survey.folder.write("a.grd", "DSAA\n2 2\n0 10\n0 20\n1 4\n1.5 2\n1.70141e38 4\n");
    survey.folder.write("cut.grd", "DSAA\n200 200\n0 10\n0 20\n1 4\n1.5 2\n3 4\n");
    const CommandCase cases[] = {
        { "grid",
          { "grid", host_file(survey.folder, "a.grd") },
          "",
          0,
          "kind: grid\ncolumns: 2\nrows: 2\nextent: -5 15 -10 30\ncell_size: 10 20\nminimum: 1.5\nmaximum: 4\nmean: 2.5\n"
          "null_cells: 1\nformat: Surfer 6 text grid\nregistration: node\n"
          "null_rule: values of 1.70141E+38 and above (1.70141E+38); any value at or below -1E+30\n",
          "" },
        { "grid_of_points", { "grid", host_file(survey.folder, "ground.xyz") }, "", 0, "kind: point\n", "" },
        { "grid_cut_short",
          { "grid", host_file(survey.folder, "cut.grd") },
          "",
          1,
          "",
          "message: The grid file format could not be dertermined for the file: " + survey.folder.file("cut.grd") +
              ": it is cut short: it holds fewer values than its header says\n" },
        { "check", { "check", definition }, "", 0, "valid\n", "" },
        { "transform", { "transform", "--crd", shift }, "1 2 3\n\n-1.5,0.25\n", 0, "1001 2002 16\n998.5 2000.25\n", "" },
        { "transform_inverse", { "transform", "--crd", shift, "--inverse" }, "1001 2002 16\n", 0, "1 2 3\n", "" },
        { "transform_identity", { "transform", "--definition", definition }, "1E3 .5\n", 0, "1000 0.5\n", "" },
        { "transform_of_no_point",
          { "transform", "--crd", shift },
          "1 2\n1 b\n",
          1,
          "1001 2002\n",
          "message: line 2 of the input is not a point of two or three numbers: 1 b\n" },
        { "transform_points_that_coincide",
          { "transform", "--crd", host_file(survey.folder, "same.crd") },
          "1 2\n",
          1,
          "",
          "message: The start and end grid coordinates cannot be identical\n" },
        { "later_command", { "mesh", definition }, "", 1, "", "message: mesh is not available yet\n" },
        { "base_mesh",
          { "create", definition, "--output", host_file(survey.folder, "out"), "--base-mesh", "m" },
          "",
          1,
          "",
          "message: Base meshes and tiles are not available yet\n" },
    };
    for (const CommandCase & c : cases) {
        SCOPED_TRACE(c.name);
        const BatchRun run = run_batch(c.arguments, c.input);
        EXPECT_EQ(run.status, c.status);
        EXPECT_EQ(run.output, c.output);
        EXPECT_EQ(run.errors, c.errors);
    }
}

TEST(commands, given_a_command_line_that_cannot_be_understood_then_status_2_and_nothing_on_standard_output)
{
    const std::vector<std::vector<std::string>> cases = {
        {}, { "nonsense" }, { "create", "a.inp" }, { "create", "a.inp", "--output", "b", "--mode", "half" }, { "transform" },
    };
    for (const auto & arguments : cases) {
        const BatchRun run = run_batch(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_NE(run.errors, "");
    }
    EXPECT_EQ(run_batch({ "--help" }).status, 0);
    EXPECT_EQ(run_batch({ "create", "--help" }).status, 0);
    EXPECT_EQ(run_batch({ "--version" }).output.rfind("zeb_qvinv3d_batch ", 0), 0U);
}

TEST(save, given_a_definition_then_it_saves_what_reads_back_and_asks_before_it_overwrites)
{
    const TinySurvey survey(
        { { "Z Range", "0 300 50 6 1.5 3" }, { "Smoothness weighting", "1 9,3" }, { "Positivity flag", "2" } });
    const std::string saved = host_file(survey.folder, "saved");
    EXPECT_EQ(run_batch({ "save", host_file(survey.folder, "tiny.inp"), "--output", saved }).status, 0);
    const std::string first = survey.folder.read("saved.inp");
    EXPECT_NE(first.find("Z Range: 0.000000 300.0000000 50.0000000 6.0000000 1.5000000 3.0000000\r\n"), std::string::npos);
    EXPECT_NE(first.find("Smoothness weighting: 1 9,3\r\n"), std::string::npos);

    const BatchRun refused = run_batch({ "save", host_file(survey.folder, "tiny.inp"), "--output", saved + ".inp" });
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.errors, "question: That file already, exists, overwrite? -> No\n");
    EXPECT_EQ(survey.folder.read("saved.inp"), first);

    EXPECT_EQ(run_batch({ "save", saved + ".inp", "--output", saved + ".inp", "--yes" }).status, 0);
    EXPECT_EQ(survey.folder.read("saved.inp"), first);
}

TEST(save, given_a_part_to_take_over_then_only_that_part_changes)
{
    const TinySurvey survey;
    survey.folder.write(
        "other.inp",
        TinySurvey::definition({ { "X Range", "500 900 200 2" }, { "Trade-off parameter", "7" }, { "Topo offset", "3" } }));
    const std::string base = host_file(survey.folder, "tiny.inp");
    const std::string other = host_file(survey.folder, "other.inp");
    const std::string out = host_file(survey.folder, "out.inp");
    const struct {
        const char * part;
        bool mesh, parameters, topo;
    } cases[] = { { "mesh", true, false, false },
                  { "parameters", false, true, false },
                  { "topo", false, false, true },
                  { "data", false, false, false } };
    for (const auto & c : cases) {
        SCOPED_TRACE(c.part);
        EXPECT_EQ(run_batch({ "save", other, "--select", c.part, "--into", base, "--output", out, "--yes" }).status, 0);
        const std::string text = survey.folder.read("out.inp");
        EXPECT_EQ(text.find("X Range: 500.000000 900.0000000 200.0000000 2.0000000\r\n") != std::string::npos, c.mesh);
        EXPECT_EQ(text.find("Trade-off parameter:  7\r\n") != std::string::npos, c.parameters);
        EXPECT_EQ(text.find("Topo offset: 3.00\r\n") != std::string::npos, c.topo);
    }
}
