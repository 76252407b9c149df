#include "batch/batch_run.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

FileNames names_in(const std::string & text)
{
    std::istringstream words(text);
    return { std::istream_iterator<std::string>(words), {} };
}

}

TEST(create, given_each_method_and_mode_then_just_the_files_of_it_are_written)
{
    for (const auto & [method, always, whole, model, data] : cases_of<5>("create.cases")) {
        const std::string reduced = "inversion.inp out.inp " + always + " ";
        const std::pair<const char *, std::string> modes[] = {
            { "all", reduced + whole + " mesh topo.dat " + model + " " + data },
            { "parameters", reduced + whole },
            { "variation", reduced },
            { "variation-data", reduced + data },
        };
        for (const auto & [mode, files] : modes) {
            SCOPED_TRACE(method + " " + mode);
            const TinySurvey survey("Inversion method: " + method);
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
    EXPECT_EQ(run.output, bytes_of(TEST_DATA_FOLDER "/tiny/output.txt"));
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
    const char * changes = "Obs data file: \xC3\xA4 data.csv; Topo data file: .\\\xC3\xA4 ground.xyz";
    folder.write(place + "\\set up.inp", TinySurvey::definition(changes));
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
    const TinySurvey survey("X Range: 0 20000 100 200; Y Range: 0 20000 100 200; Z Range: 0 5000 50 100 1 0");
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
