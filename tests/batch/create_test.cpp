#include "batch/batch_run.h"
#include "fakes/tiny_survey.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

FileNames names_in(const std::string & text)
{
    std::istringstream words(text);
    return { std::istream_iterator<std::string>(words), {} };
}

/// Files beside the two definitions: of each mode, of a whole run alone, and the results.
struct MethodCase {
    std::string method, always, whole, model, data;
};
const std::string magnetic = "maginv3d.inp run_maginv3d.bat run_magerror.bat ";
const std::string gravity = "gzinv3d.inp run_gzinv3d.bat run_magerror.bat ";
const MethodCase method_cases[] = {
    { "0", magnetic, "magsen3d.inp run_inversion.bat run_magsen3d.bat ", "model.sus ", "mag.obs " },
    { "3", magnetic, "magsen3d.inp run_inversion.bat run_magsen3d.bat ", "model.sus ", "mag.obs " },
    { "6", magnetic, "mag_weights.inp magsen3d.inp run_inversion.bat run_magsen3d.bat ", "model.sus ", "mag.obs " },
    { "1", gravity, "run_inversion.bat run_gzsen3d.bat ", "model.den ", "grav.obs " },
    { "2", gravity, "gzsen3d.inp run_inversion.bat run_gzsen3d.bat ", "model.den ", "grav.obs " },
    { "5", gravity, "gz_weights.inp gzsen3d.inp run_inversion.bat run_gzsen3d.bat ", "model.den ", "grav.obs " },
    { "4", "qvinv3d.inp run_qvinv3d.bat run_magerror.bat ",
      "qvsen3d.inp run_inversion.bat run_qvsen3d.bat run_qvsen3d_cluster.bat run_cluster_inversion.bat ", "model.sus ",
      "mag.obs " },
};

}

TEST(create, given_each_method_and_mode_then_just_the_files_of_it_are_written)
{
    for (const MethodCase & row : method_cases) {
        const std::string reduced = "inversion.inp out.inp " + row.always;
        const std::pair<const char *, std::string> modes[] = {
            { "all", reduced + row.whole + "mesh topo.dat " + row.model + row.data },
            { "parameters", reduced + row.whole },
            { "variation", reduced },
            { "variation-data", reduced + row.data },
        };
        for (const auto & [mode, files] : modes) {
            SCOPED_TRACE(row.method + " " + mode);
            const TinySurvey survey({ { "Inversion method", row.method } });
            const BatchRun run = create(survey, { "--mode", mode });
            EXPECT_EQ(run.status, 0);
            EXPECT_EQ(run.errors, "message: Output complete\n");
            EXPECT_EQ(files_of(host_path(survey.folder.file("out"))), names_in(files));
        }
    }
}

TEST(create, given_the_own_solver_then_every_phase_reports_its_line)
{
    const TinySurvey survey;
    const BatchRun run = create(survey);
    EXPECT_EQ(run.output, "Checking inversion definitions\n"
                          "Creating inversion directory\n"
                          "Saving the inversion definitions\n"
                          "Creating inversion parameter files\n"
                          "Creating inversion batch file\n"
                          "Gridding topo data \n"
                          "Creating inversion mesh files\n"
                          "Writing inversion model file\n"
                          "Reading inversion data file\n"
                          "Number of data read from file: 16\n"
                          "Ensuring reading elevations are consistent with topo\n"
                          "Writing observed data for use in the inversion\n"
                          "Writing topo data for use in the inversion\n"
                          "Inversion processing complete\n");
    EXPECT_EQ(survey.folder.read("out\\inversion.inp"), survey.folder.read("out\\out.inp"));
}

TEST(create, given_paths_with_blanks_and_umlauts_then_it_works_and_a_second_run_gives_the_same_bytes)
{
    const TemporaryFolder folder;
    const std::string place = "Messung S\xC3\xBC"
                              "d 1";
    std::filesystem::create_directories(host_path(folder.file(place)));
    const TinySurvey survey;
    for (const char * name : { "data.csv", "ground.xyz" }) folder.write(place + "\\\xC3\xA4 " + name, survey.folder.read(name));
    folder.write(place + "\\set up.inp", TinySurvey::definition({ { "Obs data file", "\xC3\xA4 data.csv" },
                                                                  { "Topo data file", ".\\\xC3\xA4 ground.xyz" } }));
    const std::vector<std::string> arguments = { "create", host_file(folder, place + "\\set up.inp"), "--output",
                                                 host_file(folder, place + "\\new \xC3\xB6\\out") };
    ASSERT_EQ(run_batch(arguments).status, 0);
    const std::string data = folder.read(place + "\\new \xC3\xB6\\out\\mag.obs");
    EXPECT_NE(data, "");
    ASSERT_EQ(run_batch(arguments).status, 0);
    EXPECT_EQ(folder.read(place + "\\new \xC3\xB6\\out\\mag.obs"), data);
}

#ifndef _WIN32
TEST(create, given_an_interrupt_while_it_runs_then_it_stops_says_so_and_keeps_the_definition)
{
    const TinySurvey survey(
        { { "X Range", "0 20000 100 200" }, { "Y Range", "0 20000 100 200" }, { "Z Range", "0 5000 50 100 1 0" } });
    // The interrupt comes with the fourth line, while more than a million cells are still to be written.
    const std::string script = "cd '" + host_file(survey.folder, "") +
                               "' && mkfifo lines && { '" BATCH_PROGRAM "' create tiny.inp --output out >lines 2>errors & } && "
                               "{ for i in 1 2 3 4; do read line; done; kill -INT $!; cat >rest; } <lines; wait $!";
    EXPECT_EQ(WEXITSTATUS(std::system(script.c_str())), 130);
    EXPECT_EQ(survey.folder.read("errors"), "message: Stopped. What had been written stays, and is not complete\n");
    EXPECT_EQ(survey.folder.read("rest").find("complete"), std::string::npos);
    EXPECT_EQ(run_batch({ "check", host_file(survey.folder, "out\\inversion.inp") }).errors,
              "message: The specified observed data file does not exist\n");
}
#endif
