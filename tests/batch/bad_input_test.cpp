#include "batch/batch_run.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;
const std::string creating = "An error occurred while creating the inversion: ";
const std::string generating = "An error occurred while generating the inversion files: ";

/// One line on standard error per text; a text that ends in "*" stands for all that begin so.
void expect_messages(const std::string & errors, const Texts & texts)
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

}

TEST(bad_input, given_data_that_cannot_be_used_then_a_message_says_why_and_the_status_is_1)
{
    for (const auto & [changes, file, content, message, second] : cases_of<5>("bad_input.cases")) {
        SCOPED_TRACE(changes + file);
        const TinySurvey survey(changes);
        if (!file.empty()) survey.folder.write(file, content);
        const BatchRun run = create(survey);
        EXPECT_EQ(run.status, 1);
        expect_messages(run.errors, second.empty() ? Texts{ message } : Texts{ message, second });
    }
}

TEST(bad_input, given_a_failed_check_then_no_folder_is_made)
{
    const TinySurvey survey("Mag field: 1 2 0");
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
