#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "host/debug_log.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

TEST(debug_write, given_level_0_then_no_file)
{
    const TemporaryFolder folder;
    RecordedHost host;
    host.debug.file = folder.file("debug.log");
    debug_write(host.debug, host.dialogs, true, "text");
    EXPECT_FALSE(folder.has("debug.log"));
    EXPECT_TRUE(host.dialogs.messages.empty());
}

TEST(debug_write, given_level_1_then_numbered_lines_anew_after_a_reset)
{
    const TemporaryFolder folder;
    RecordedHost host;
    host.debug.level = 1;
    host.debug.file = folder.write("debug.log", "of an earlier run");
    const auto text_behind_head = [&folder] {
        const std::string text = folder.read("debug.log");
        EXPECT_TRUE(text.starts_with("Debug for 3D Mag/Gravity Inversion Setup Utility started at : ")) << text;
        return text.substr(text.find("\r\n") + 2);
    };
    debug_write(host.debug, host.dialogs, false, "user name: x");
    debug_write(host.debug, host.dialogs, false, "more");
    EXPECT_EQ(text_behind_head(), "1 : user name: x\r\n2 : more\r\n");
    debug_write(host.debug, host.dialogs, true, "again");
    EXPECT_EQ(text_behind_head(), "1 : again\r\n");
    const std::string started = "Debug started: " + host.debug.file;
    EXPECT_EQ(host.dialogs.messages, (std::vector<std::string>{ started, started }));
}

TEST(debug_write, given_a_place_that_takes_nothing_then_no_fault)
{
    RecordedHost host;
    host.debug.level = 1;
    host.debug.file = "\\dev\\null\\debug.log";
    EXPECT_NO_THROW(debug_write(host.debug, host.dialogs, false, "text"));
}
