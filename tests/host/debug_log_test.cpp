#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>

TEST(debug_log, given_a_level_then_lines_are_numbered_and_a_reset_starts_again)
{
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    DebugLog log;
    log.file = folder.write("log", "of an earlier run");
    debug_write(log, dialogs, false, "off");
    EXPECT_EQ(folder.read("log"), "of an earlier run");

    log.level = 1;
    debug_write(log, dialogs, false, "one");
    debug_write(log, dialogs, false, "two");
    const std::string text = folder.read("log");
    EXPECT_EQ(text.find("Debug for 3D Mag/Gravity Inversion Setup Utility started at : 20"), 0U);
    EXPECT_EQ(text.substr(text.find("\r\n")), "\r\n1 : one\r\n2 : two\r\n");

    debug_write(log, dialogs, true, "again");
    EXPECT_EQ(folder.read("log").substr(text.find("\r\n")), "\r\n1 : again\r\n");
    log.file = folder.file("none\\log"); // cannot be written: ignored
    debug_write(log, dialogs, false, "lost");
    EXPECT_EQ(dialogs.messages, std::vector<std::string>(2, "Debug started: " + folder.file("log")));
}
