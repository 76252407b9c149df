#include "batch/batch_run.h"

#include <gtest/gtest.h>

namespace {

const std::string creating = "An error occurred while creating the inversion: ";
const std::string generating = "An error occurred while generating the inversion files: ";

/// One line on standard error per text; a text that ends in "*" stands for all that begin so.
void expect_messages(const std::string & errors, const std::vector<std::string> & texts)
{
    std::istringstream lines(errors);
    std::string line;
    for (const std::string & text : texts) {
        ASSERT_TRUE(std::getline(lines, line)) << errors;
        const bool open = text.ends_with('*');
        const std::string wanted = "message: " + text.substr(0, text.size() - (open ? 1 : 0));
        EXPECT_EQ(open ? line.substr(0, wanted.size()) : line, wanted);
    }
    EXPECT_FALSE(std::getline(lines, line)) << errors;
}

/// "Label: value|Label: value" as changes of a definition.
std::map<std::string, std::string> changes_of(const std::string & text)
{
    std::map<std::string, std::string> changes;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line, '|');)
        changes[line.substr(0, line.find(": "))] = line.substr(line.find(": ") + 2);
    return changes;
}

struct FaultyData {
    const char * changes;        ///< of the definition
    std::string file, content;   ///< a file that is replaced, if any
    std::string message, second; ///< the second one, if any, is the general handler's
};
const std::string on_a_line = "1000 2000 1\r\n1100 2100 2\r\n1200 2200 3\r\n1300 2300 4\r\n1400 2400 5\r\n1350 2350 5\r\n";
const std::string few_points = "1000 2000 1\r\n1100 2050 2\r\n1200 2300 3\r\n1300 2100 4\r\n";
const std::string no_data = "Warning: The number of inversion data defined is only 0";
const FaultyData faulty_data[] = {
    { "Obs data file: none.csv", "", "", "The specified observed data file does not exist", creating },
    { "Topo data file: none.xyz", "", "", "The topo file does not exist", creating },
    { "Obs data definitions: 2 0 1 0 1 2 3 600 0 0 0", "", "", "An error occurred while reading the location file : *",
      generating },
    { "Obs data definitions: 2 0 1 0 1 2 3 40 0 0 0", "", "", no_data, generating + "none of the *" },
    { "", "data.csv", "h\r\n1,2,3,4\r\n5,6,7,8\r\n", no_data, generating + "none of the 2 readings*" }, // far from the mesh
    { "", "data.csv", "", no_data, generating + "none of the 0 readings*" },
    { "", "ground.xyz", "", generating + "no points were found in the topography file ground.xyz*", "" },
    { "", "ground.xyz", few_points, "The topo data file did not contain enough data points to be meaningful", generating },
    { "", "ground.xyz", on_a_line, "All Points in the topography file are colinear", generating },
    { "Smoothness weighting: 1 4,x", "", "", "The weighting definitions are not valid for weight 2", generating },
    { "Data file type: 1|Obs data grid: data.grd", "data.grd", "DSAA\r\n2 2\r\n", "Gridded files are not available yet: *",
      creating },
    { "Obs data file: data.gdb", "data.gdb", "x", "Databases are not available here: *", creating },
    { "Refinement Mode: 1", "", "", "The definition is of a refined (tiled) inversion, which is not available yet: *", "" },
    { "X Range: 0 1e8 1 100000000|Y Range: 0 1e8 1 100000000", "", "", creating + "Overflow*", "" },
};

}

TEST(bad_input, given_a_file_that_is_no_definition_then_it_is_refused)
{
    const TemporaryFolder folder;
    folder.write("empty.inp", "");
    folder.write("version_only.inp", "Version 3.0\r\n");
    folder.write("other.inp", "10 10 5\r\n0 0 0\r\n");
    folder.write("binary.inp", std::string_view("\x7f\x45LF\0\0\1\2", 8));
    std::filesystem::create_directories(host_path(folder.file("folder.inp")));
    const std::pair<const char *, const char *> cases[] = {
        { "missing.inp", "That file does not exist" },
        { "empty.inp", "The specified file was empty" },
        { "version_only.inp", "The specified file was empty" },
        { "other.inp", "Varnok cannot handle this file format" },
        { "binary.inp", "*" },
        { "folder.inp", "*" },
    };
    for (const auto & [name, message] : cases) {
        SCOPED_TRACE(name);
        const BatchRun run = run_batch({ "check", host_file(folder, name) });
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        expect_messages(run.errors, { message });
    }
}

TEST(bad_input, given_data_that_cannot_be_used_then_a_message_says_why_and_the_status_is_1)
{
    for (const FaultyData & row : faulty_data) {
        SCOPED_TRACE(row.changes + row.file);
        const TinySurvey survey(changes_of(row.changes));
        if (!row.file.empty()) survey.folder.write(row.file, row.content);
        const BatchRun run = create(survey);
        EXPECT_EQ(run.status, 1);
        std::vector<std::string> messages = { row.message };
        if (!row.second.empty()) messages.push_back(row.second);
        expect_messages(run.errors, messages);
    }
}

TEST(bad_input, given_a_failed_check_then_no_folder_is_made)
{
    const TinySurvey survey(changes_of("Mag field: 1 2 0"));
    const BatchRun run = create(survey);
    EXPECT_EQ(run.status, 1);
    expect_messages(run.errors, { "The mag intensity must be positive", creating });
    EXPECT_EQ(run.output, "Checking inversion definitions\n");
    EXPECT_FALSE(survey.folder.has("out"));
}

TEST(bad_input, given_a_disk_that_is_full_then_the_file_is_named_and_the_rest_is_kept)
{
    for (const std::string name : { "mesh", "mag.obs", "topo.dat", "model.sus", "qvinv3d.inp", "run_inversion.bat" }) {
        SCOPED_TRACE(name);
        const TinySurvey survey;
        std::filesystem::create_directories(host_path(survey.folder.file("out")));
        survey.folder.write("out\\notes.txt", "kept");
        std::filesystem::create_symlink("/dev/full", host_path(survey.folder.file("out\\" + name)));
        const BatchRun run = create(survey);
        EXPECT_EQ(run.status, 1);
        for (const std::string & part : { generating, name, std::string("No space left on device") })
            EXPECT_NE(run.errors.find(part), std::string::npos) << run.errors;
        EXPECT_EQ(survey.folder.read("out\\notes.txt"), "kept");
    }
}

#ifndef _WIN32
TEST(bad_input, given_a_standard_output_that_is_full_then_the_status_says_so)
{
    const TinySurvey survey;
    const std::string definition = "'" + host_file(survey.folder, "tiny.inp") + "'";
    for (const std::string & arguments : { "check " + definition, "transform --definition " + definition }) {
        const std::string run = "echo 1 2 | '" BATCH_PROGRAM "' " + arguments + " >/dev/full 2>/dev/null";
        EXPECT_EQ(WEXITSTATUS(std::system(run.c_str())), 1) << arguments;
    }
}
#endif

TEST(bad_input, given_an_output_that_cannot_be_a_folder_then_nothing_that_was_there_is_lost)
{
    const TinySurvey survey;
    survey.folder.write("out", "a file in the way");
    const BatchRun run = create(survey);
    EXPECT_EQ(run.status, 1);
    expect_messages(run.errors, { creating + "cannot create the folder*" });
    EXPECT_EQ(survey.folder.read("out"), "a file in the way");

    const BatchRun conflict = run_batch({ "create", host_file(survey.folder, "tiny.inp"), "--output", "QVinv3D/" });
    EXPECT_EQ(conflict.status, 1);
    expect_messages(conflict.errors, { "The output directory name conflicts with the output file names" });
}
