#pragma once

#include "batch/tiny_survey.h"

#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#ifndef _WIN32
#include <sys/wait.h>
#endif

/// What a run of the program left behind.
struct BatchRun {
    int status = -1;
    std::string output; ///< standard output
    std::string errors; ///< standard error
};

/// Runs the program with standard input, output and error apart. Arguments are quoted for the shell.
inline BatchRun run_batch(const std::vector<std::string> & arguments, std::string_view input = {})
{
    const TemporaryFolder streams;
    streams.write("in", input);
    const auto quoted = [](const std::string & text) { return "'" + text + "'"; };
    const auto stream = [&](const char * name) { return quoted(host_path(streams.file(name)).string()); };
    std::string command = quoted(BATCH_PROGRAM);
    for (const std::string & argument : arguments) command += " " + quoted(argument);
    command += " <" + stream("in") + " >" + stream("out") + " 2>" + stream("err");
    const int status = std::system(command.c_str());
    BatchRun run;
#ifdef _WIN32
    run.status = status;
#else
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
    run.output = streams.read("out");
    run.errors = streams.read("err");
    return run;
}

/// The host path of a file of the folder, for the command line.
inline std::string host_file(const TemporaryFolder & folder, const std::string & name)
{
    return host_path(folder.file(name)).string();
}

/// Creates the inversion of a survey in its folder "out".
inline BatchRun create(const TinySurvey & survey, const std::vector<std::string> & more = {})
{
    std::vector<std::string> arguments = { "create", host_file(survey.folder, "tiny.inp"), "--output",
                                           host_file(survey.folder, "out") };
    arguments.insert(arguments.end(), more.begin(), more.end());
    return run_batch(arguments);
}

using FileNames = std::set<std::string>;

/// The bare names of what lies in a folder.
inline FileNames files_of(const std::filesystem::path & folder)
{
    FileNames files;
    for (const auto & entry : std::filesystem::directory_iterator(folder)) files.insert(entry.path().filename().string());
    return files;
}

using Files = std::map<std::string, std::string>;

/// Every file under a folder with its bytes.
inline Files tree_of(const std::filesystem::path & folder)
{
    Files files;
    for (const auto & entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) files[entry.path().lexically_relative(folder).generic_string()] = bytes_of(entry.path());
    return files;
}
