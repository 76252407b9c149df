#ifndef _WIN32

#include "app/system_launcher.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

TEST(system_launcher, given_a_launcher_in_the_settings_then_it_runs_in_the_folder_by_itself_with_its_words_and_the_script)
{
    const TemporaryFolder folder;
    make_folder_path(folder.file("run"));
    const std::string stub = folder.write("stub launcher", "#!/bin/sh\n"
                                                           "streams=$(ls -l /proc/$$/fd/0 /proc/$$/fd/1 | grep -c /dev/null)\n"
                                                           "session=$(cut -d ' ' -f 6 /proc/self/stat)\n"
                                                           "echo \"$session:$(basename $PWD):$#:$1:$2:$streams\" >../pipe\n");
    std::filesystem::permissions(host_path(stub), std::filesystem::perms::owner_all);
    KeptSettings settings;
    settings.kept["ZEB_QVinv3d_setup\\Launcher"] = "  \"" + host_path(stub).string() + "\"  -q ";
    const std::string pipe = folder.file("pipe"); // reading it waits for the stub
    ASSERT_EQ(::mkfifo(host_path(pipe).c_str(), 0600), 0);
    SystemLauncher(settings).start(folder.file("run"), "iter_all.bat");
    const std::string said = bytes_of(host_path(pipe));
    EXPECT_EQ(said.substr(said.find(':')), ":run:2:-q:iter_all.bat:2\n");
    EXPECT_NE(std::stol(said), ::getsid(0));
}

TEST(system_launcher, given_what_cannot_be_started_then_a_fault_that_names_the_cure)
{
    const TemporaryFolder folder;
    const std::string setting = "the setting \"Launcher\" in section ZEB_QVinv3d_setup", reason = ": No such file or directory";
    const std::array<std::string, 3> cases[] = {
        // the setting, the folder and the message
        { "/gone/x -a", folder.path(), "cannot start /gone/x" + reason + ". See " + setting },
        { "true", folder.file("gone"), "cannot start a run in " + folder.file("gone") + reason },
        { "<no value>", folder.path(),
          "No command interpreter was found to run a.bat: install wine, or name another program in " + setting },
    };
    const std::string path = std::getenv("PATH");
    ::setenv("PATH", "/gone", 1);
    for (const auto & [launcher, place, expected] : cases) {
        KeptSettings settings;
        settings.kept["ZEB_QVinv3d_setup\\Launcher"] = launcher;
        std::string message;
        try {
            SystemLauncher(settings).start(place, "a.bat");
        } catch (const Fault & fault) {
            message = fault.what();
        }
        EXPECT_EQ(message, expected);
    }
    ::setenv("PATH", path.c_str(), 1);
}

#endif
