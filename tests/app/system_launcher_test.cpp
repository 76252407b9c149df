#ifndef _WIN32

#include "app/system_launcher.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

/// What a launcher that is really started says of itself; it writes into a pipe, so that reading waits for it.
std::string started_in(const TemporaryFolder & folder, const std::string & words, const std::string & script)
{
    KeptSettings settings;
    settings.kept["ZEB_QVinv3d_setup\\Launcher"] = words;
    const std::string pipe = folder.file("pipe");
    if (::mkfifo(host_path(pipe).c_str(), 0600) != 0) throw std::runtime_error("no pipe");
    SystemLauncher(settings).start(folder.file("run"), script);
    return bytes_of(host_path(pipe));
}

}

TEST(system_launcher, given_a_launcher_in_the_settings_then_it_runs_in_the_folder_by_itself_with_its_words_and_the_script)
{
    const TemporaryFolder folder;
    make_folder_path(folder.file("run"));
    const std::string stub = folder.write("stub launcher", "#!/bin/sh\n"
                                                           "streams=$(ls -l /proc/$$/fd/0 /proc/$$/fd/1 | grep -c /dev/null)\n"
                                                           "session=$(cut -d ' ' -f 6 /proc/self/stat)\n"
                                                           "echo \"$(basename $PWD):$#:$1:$2:$streams:$session\" >../pipe\n");
    std::filesystem::permissions(host_path(stub), std::filesystem::perms::owner_all);
    const std::string said = started_in(folder, "  \"" + host_path(stub).string() + "\"  -q ", "iter_all.bat");
    EXPECT_EQ(said.substr(0, said.rfind(':')), "run:2:-q:iter_all.bat:2");
    EXPECT_NE(std::stol(said.substr(said.rfind(':') + 1)), ::getsid(0));
}

TEST(system_launcher, given_what_cannot_be_started_then_a_fault_that_names_the_cure)
{
    const TemporaryFolder folder;
    const struct {
        std::string launcher, folder, message;
    } cases[] = {
        { "/gone/x -a", folder.path(),
          "cannot start /gone/x: No such file or directory. See the setting \"Launcher\" in section ZEB_QVinv3d_setup" },
        { "true", folder.file("gone"), "cannot start a run in " + folder.file("gone") + ": No such file or directory" },
        { "<no value>", folder.path(),
          "No command interpreter was found to run a.bat: install wine, or name another program in the setting \"Launcher\" in "
          "section ZEB_QVinv3d_setup" },
    };
    const std::string path = std::getenv("PATH");
    ::setenv("PATH", "/gone", 1);
    for (const auto & row : cases) {
        KeptSettings settings;
        settings.kept["ZEB_QVinv3d_setup\\Launcher"] = row.launcher;
        try {
            SystemLauncher(settings).start(row.folder, "a.bat");
            ADD_FAILURE() << "started " << row.launcher;
        } catch (const Fault & fault) {
            EXPECT_EQ(fault.what(), row.message);
        }
    }
    ::setenv("PATH", path.c_str(), 1);
}

#endif
