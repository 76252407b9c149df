#include "batch/batch_run.h"
#include "fakes/tiny_survey.h"

#include <gtest/gtest.h>

namespace {

constexpr const char * creating = "An error occurred while creating the inversion: ";
constexpr const char * generating = "An error occurred while generating the inversion files: ";

std::string messages(const std::vector<std::string> & texts)
{
    std::string lines;
    for (const std::string & text : texts) lines += "message: " + text + "\n";
    return lines;
}

BatchRun create(const TinySurvey & survey, const std::string & output = "out")
{
    return run_batch({ "create", host_file(survey.folder, "tiny.inp"), "--output", host_file(survey.folder, output) });
}

}

TEST(bad_input, given_a_file_that_is_no_definition_then_it_is_refused)
{
    const TemporaryFolder folder;
    folder.write("empty.inp", "");
    folder.write("version_only.inp", "Version 3.0\r\n");
    folder.write("other.inp", "10 10 5\r\n0 0 0\r\n");
    folder.write("binary.inp", std::string("\x7f"
                                           "ELF\0\0\1\2",
                                           8));
    std::filesystem::create_directories(host_path(folder.file("folder.inp")));
    const std::pair<const char *, std::string> cases[] = {
        { "missing.inp", "That file does not exist" },
        { "empty.inp", "The specified file was empty" },
        { "version_only.inp", "The specified file was empty" },
        { "other.inp", "Varnok cannot handle this file format" },
    };
    for (const auto & [name, message] : cases) {
        SCOPED_TRACE(name);
        const BatchRun run = run_batch({ "check", host_file(folder, name) });
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, messages({ message }));
    }
    for (const char * name : { "binary.inp", "folder.inp" }) {
        const BatchRun run = run_batch({ "check", host_file(folder, name) });
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errors.rfind("message: ", 0), 0U);
    }
}

struct FaultyData {
    const char * name;
    std::map<std::string, std::string> changes; ///< of the definition
    const char * file;                          ///< replaced by `content` when not null
    std::string content;
    std::vector<std::string> messages;
};

TEST(bad_input, given_data_that_cannot_be_used_then_a_message_says_why_and_the_status_is_1)
{
    const std::string far_away = "h\r\n1,2,3,4\r\n5,6,7,8\r\n";
    const std::string line_of_points =
        "1000 2000 1\r\n1100 2100 2\r\n1200 2200 3\r\n1300 2300 4\r\n1400 2400 5\r\n1350 2350 5\r\n";
    const FaultyData cases[] = {
        { "missing_data",
          { { "Obs data file", "none.csv" } },
          nullptr,
          "",
          { "The specified observed data file does not exist", creating } },
        { "missing_topo", { { "Topo data file", "none.xyz" } }, nullptr, "", { "The topo file does not exist", creating } },
        { "column_beyond_the_table",
          { { "Obs data definitions", "2 0 1 0 1 2 3 600 0 0 0" } },
          nullptr,
          "",
          { "An error occurred while reading the location file : *", generating } },
        { "column_beyond_the_line",
          { { "Obs data definitions", "2 0 1 0 1 2 3 40 0 0 0" } },
          nullptr,
          "",
          { "Warning: The number of inversion data defined is only 0", std::string(generating) + "none of the *" } },
        { "no_reading_in_the_mesh",
          {},
          "data.csv",
          far_away,
          { "Warning: The number of inversion data defined is only 0", std::string(generating) + "none of the 2 readings*" } },
        { "empty_data",
          {},
          "data.csv",
          "",
          { "Warning: The number of inversion data defined is only 0", std::string(generating) + "none of the 0 readings*" } },
        { "empty_topo",
          {},
          "ground.xyz",
          "",
          { std::string(generating) + "no points were found in the topography file ground.xyz*" } },
        { "too_few_topo_points",
          {},
          "ground.xyz",
          "1000 2000 1\r\n1100 2050 2\r\n1200 2300 3\r\n1300 2100 4\r\n",
          { "The topo data file did not contain enough data points to be meaningful", generating } },
        { "topo_on_a_line", {}, "ground.xyz", line_of_points, { "All Points in the topography file are colinear", generating } },
        { "grid_data",
          { { "Data file type", "1" }, { "Obs data grid", "data.grd" } },
          "data.grd",
          "DSAA\r\n2 2\r\n0 1\r\n0 1\r\n1 4\r\n1 2\r\n3 4\r\n",
          { "Gridded files are not available yet: *", creating } },
        { "grid_cut_short",
          { { "Data file type", "1" }, { "Obs data grid", "data.grd" } },
          "data.grd",
          "DSAA\r\n200 200\r\n0 1\r\n0 1\r\n1 4\r\n1 2\r\n3 4\r\n",
          { "The grid file format could not be dertermined for the file: data.grd: it is cut short: *", creating } },
        { "database", { { "Obs data file", "data.gdb" } }, "data.gdb", "x", { "Databases are not available here: *", creating } },
        { "tiled",
          { { "Refinement Mode", "1" } },
          nullptr,
          "",
          { "The definition is of a refined (tiled) inversion, which is not available yet: *" } },
        { "cells_beyond_32_bits",
          { { "X Range", "0 100000000 1 100000000" }, { "Y Range", "0 100000000 1 100000000" } },
          nullptr,
          "",
          { "*Overflow*" } },
    };
    for (const FaultyData & c : cases) {
        SCOPED_TRACE(c.name);
        const TinySurvey survey(c.changes);
        if (c.file != nullptr) survey.folder.write(c.file, c.content);
        const BatchRun run = create(survey);
        EXPECT_EQ(run.status, 1);
        std::vector<std::string> lines;
        for (std::size_t at = 0, end = 0; (end = run.errors.find('\n', at)) != std::string::npos; at = end + 1)
            lines.push_back(run.errors.substr(at, end - at));
        ASSERT_EQ(lines.size(), c.messages.size()) << run.errors;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::string & wanted = c.messages[i];
            const std::size_t star = wanted.find('*');
            if (star == std::string::npos)
                EXPECT_EQ(lines[i], "message: " + wanted);
            else
                EXPECT_NE(lines[i].find(wanted.substr(wanted[0] == '*' ? 1 : 0, wanted.rfind('*') - (wanted[0] == '*' ? 1 : 0))),
                          std::string::npos)
                    << lines[i];
        }
    }
}

TEST(bad_input, given_a_failed_check_then_no_folder_is_made)
{
    const TinySurvey survey({ { "Error percent and floor", "0 0" }, { "Obs data scale value", "1" }, { "Mag field", "1 2 0" } });
    const BatchRun run = create(survey);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, messages({ "The mag intensity must be positive", creating }));
    EXPECT_EQ(run.output, "Checking inversion definitions\n");
    EXPECT_FALSE(survey.folder.has("out"));
}

TEST(bad_input, given_a_disk_that_is_full_then_the_file_is_named_and_the_rest_is_kept)
{
    for (const char * name : { "mesh", "mag.obs", "topo.dat", "model.sus", "qvinv3d.inp", "run_inversion.bat" }) {
        SCOPED_TRACE(name);
        const TinySurvey survey;
        std::filesystem::create_directories(host_path(survey.folder.file("out")));
        survey.folder.write("out\\notes.txt", "kept");
        std::filesystem::create_symlink("/dev/full", host_path(survey.folder.file(std::string("out\\") + name)));
        const BatchRun run = create(survey);
        EXPECT_EQ(run.status, 1);
        EXPECT_NE(run.errors.find(generating), std::string::npos) << run.errors;
        EXPECT_NE(run.errors.find(name), std::string::npos) << run.errors;
        EXPECT_NE(run.errors.find("No space left on device"), std::string::npos) << run.errors;
        EXPECT_EQ(survey.folder.read("out\\notes.txt"), "kept");
    }
}

TEST(bad_input, given_an_output_that_cannot_be_a_folder_then_nothing_that_was_there_is_lost)
{
    const TinySurvey survey;
    survey.folder.write("out", "a file in the way");
    const BatchRun run = create(survey);
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.errors.find("cannot create the folder"), std::string::npos) << run.errors;
    EXPECT_EQ(survey.folder.read("out"), "a file in the way");

    const BatchRun conflict = create(survey, "QVinv3D");
    EXPECT_EQ(conflict.status, 1);
    EXPECT_EQ(conflict.errors, messages({ "The output directory name conflicts with the output file names" }));
}
