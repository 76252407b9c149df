#include "batch/batch_run.h"

#include <gtest/gtest.h>

namespace {

/// A command line in which "@" stands for a file of the survey's folder.
std::vector<std::string> arguments_of(const std::string & line, const TemporaryFolder & folder)
{
    std::vector<std::string> arguments;
    std::istringstream words(line);
    for (std::string word; words >> word;) arguments.push_back(word[0] == '@' ? host_file(folder, word.substr(1)) : word);
    return arguments;
}

}

TEST(commands, given_a_command_line_then_streams_and_status_are_apart)
{
    const TinySurvey survey;
    const std::string header = "     Station        Depth      East       North\r\n";
    survey.folder.write("shift.crd", header + " 0 0 1000 2000\r\n 100 0 1100 2000\r\n 5 2\r\n");
    survey.folder.write("same.crd", header + " 7 8 1000 2000\r\n 7 8 1100 2000\r\n 0 1\r\n");
    survey.folder.write("rock.vo", "GOCAD Voxet 1\n");
    survey.folder.write("flat.msh", "8 2 3\n-.5 2000 7\n120 100 6*50\n2*40\n6 6 5.5\n");
    survey.folder.write("pair.msh", "3 1 1\n0 0 0\n3*10\n10\n10\n");
    survey.folder.write("pair.sus", "9.39167e-02\n-1\n-0.0005\n");
    survey.folder.write("null.sus", "-1 -2 -99\n");
    survey.folder.write("empty.sus", "");
    for (const auto & [line, input, status, output, errors] : cases_of<5>("commands.cases")) {
        SCOPED_TRACE(line);
        const BatchRun run = run_batch(arguments_of(line, survey.folder), input);
        EXPECT_EQ(run.status, number_in(status));
        EXPECT_EQ(run.output, output);
        EXPECT_TRUE(errors == "*" ? run.errors.starts_with("message: ") : run.errors == errors) << run.errors;
    }
}

TEST(commands, given_a_command_line_that_cannot_be_understood_then_status_2_and_nothing_on_standard_output)
{
    const TemporaryFolder folder;
    for (const char * line :
         { "", "nonsense", "create a.inp", "create a.inp --output b --mode half", "transform",
           "create a.inp --output b --skip-tile 01,01", "create a.inp --output b --base-mesh m --tile-order 0,2,0" }) {
        const BatchRun run = run_batch(arguments_of(line, folder));
        EXPECT_EQ(run.status, 2) << line;
        EXPECT_EQ(run.output, "");
        EXPECT_NE(run.errors, "");
    }
    EXPECT_EQ(run_batch({ "create", "--help" }).status, 0);
    EXPECT_EQ(run_batch({ "--version" }).output.rfind("zeb_qvinv3d_batch ", 0), 0U);
}

TEST(igrf, given_angles_in_fields_with_a_letter_or_a_sign_then_the_place_is_that_of_decimal_degrees)
{
    const auto field = [](const char * latitude, const char * longitude) {
        return run_batch({ "igrf", "--date", "2025", "--latitude", latitude, "--longitude", longitude, "--elevation", "-20" });
    };
    const std::string expected = field("-33.51", "151").output;
    EXPECT_EQ(field("33 30 36 S", "151 0 0 e").output, expected);
    EXPECT_EQ(field("-33 30 36", " 151 0").output, expected);
    EXPECT_EQ(field("33 30 60 S", "151").errors, "message: The latitude is invalid\n");
}

TEST(save, given_a_definition_then_it_saves_what_reads_back)
{
    const TinySurvey survey("Z Range: 0 300 50 6 1.5 3; Smoothness weighting: 1 9,3; Positivity flag: 2");
    EXPECT_EQ(run_batch(arguments_of("save @tiny.inp --output @saved", survey.folder)).status, 0);
    const std::string first = survey.folder.read("saved.inp");
    EXPECT_NE(first.find("Z Range: 0.000000 300.0000000 50.0000000 6.0000000 1.5000000 3.0000000\r\n"), std::string::npos);
    EXPECT_NE(first.find("Smoothness weighting: 1 9,3\r\n"), std::string::npos);
    EXPECT_EQ(run_batch(arguments_of("save @saved.inp --output @again.inp", survey.folder)).status, 0);
    EXPECT_EQ(survey.folder.read("again.inp"), first);
}

TEST(save, given_a_part_to_take_over_then_only_that_part_changes)
{
    const TinySurvey survey;
    const char * changes = "X Range: 500 900 200 2; Trade-off parameter: 7; Topo offset: 3";
    survey.folder.write("other.inp", TinySurvey::definition(changes));
    for (const std::string part : { "mesh", "parameters", "topo", "data" }) {
        SCOPED_TRACE(part);
        const std::string line = "save @other.inp --into @tiny.inp --output @out.inp --yes --select " + part;
        EXPECT_EQ(run_batch(arguments_of(line, survey.folder)).status, 0);
        const std::string text = survey.folder.read("out.inp");
        EXPECT_EQ(text.find("X Range: 500.000000 900.0000000 200.0000000 2.0000000\r\n") != std::string::npos, part == "mesh");
        EXPECT_EQ(text.find("Trade-off parameter:  7\r\n") != std::string::npos, part == "parameters");
        EXPECT_EQ(text.find("Topo offset: 3.00\r\n") != std::string::npos, part == "topo");
    }
}

#ifndef _WIN32
TEST(start, given_an_inversion_folder_then_its_script_is_handed_to_the_launcher_of_the_settings)
{
    const TinySurvey survey("Refinement Mode: 1");
    const TemporaryFolder & folder = survey.folder;
    const std::string stub = folder.write("stub", "#!/bin/sh\necho \"$(basename $PWD) $1\" >../pipe\n");
    std::filesystem::permissions(host_path(stub), std::filesystem::perms::owner_all);
    make_folder_path(folder.file("zeb_qvinv3d"));
    folder.write("zeb_qvinv3d\\settings.json",
                 "{\"Brindlewood\": {\"ZEB_QVinv3d_setup\": {\"Launcher\": \"" + host_path(stub).string() + "\"}}}");
    const std::string settings = folder.read("zeb_qvinv3d\\settings.json");
    ::setenv("XDG_CONFIG_HOME", host_path(folder.path()).c_str(), 1);
    folder.write("simple.inp", TinySurvey::definition(""));
    ASSERT_EQ(run_batch(arguments_of("create @simple.inp --output @out", folder)).status, 0);
    for (const char * script : { "iter_all.bat", "run_qvinv3d.bat" }) folder.write(std::string("out\\") + script, "");
    const std::pair<const char *, const char *> lines[] = {
        { "start @out", "out run_inversion.bat\n" },
        { "start @out --variation --definition @simple.inp", "out run_qvinv3d.bat\n" },
        { "start @out --definition @tiny.inp", "out iter_all.bat\n" }, // a refined one
    };
    for (const auto & [line, said] : lines) {
        SCOPED_TRACE(line);
        ASSERT_EQ(std::system(("mkfifo " + host_file(folder, "pipe")).c_str()), 0);
        const BatchRun run = run_batch(arguments_of(line, folder));
        EXPECT_EQ(run.errors, "message: The 3D inversion process has been started\n");
        ASSERT_EQ(run.status, 0) << "nothing would write into the pipe";
        EXPECT_EQ(folder.read("pipe"), said);
        delete_file(folder.file("pipe"));
    }
    EXPECT_EQ(folder.read("zeb_qvinv3d\\settings.json"), settings);
}
#endif
