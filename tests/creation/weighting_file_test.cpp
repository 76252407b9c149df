#include "creation/weighting_file.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "support/fault.h"

#include <gtest/gtest.h>
#include <string>

TEST(write_weighting_file, given_a_list_then_four_blocks_with_a_line_per_column)
{
    struct Case {
        const char * list;
        std::int32_t x, y, z;
        std::string text;
    };
    const Case cases[] = {
        // smallest model, x, y, z; x has a column less in each row, y a row less, z a cell less
        { "16,8,4,2,1", 2, 3, 3,
          " 1 1 1\r\n 1 1 1\r\n 1 1 1\r\n 1 1 1\r\n 1 1 1\r\n 1 1 1\r\n"
          " 16 8 4\r\n 16 8 4\r\n 16 8 4\r\n"
          " 16 8 4\r\n 16 8 4\r\n 16 8 4\r\n 16 8 4\r\n"
          " 1 1\r\n 1 1\r\n 1 1\r\n 1 1\r\n 1 1\r\n 1 1\r\n" },
        // below the list all is 1; numbers are written plain, however they were given
        { "1.50, .00001", 1, 2, 4,
          " 1 1 1 1\r\n 1 1 1 1\r\n"
          " 1.5 1E-05 1 1\r\n"
          " 1 1 1\r\n 1 1 1\r\n" },
        // one cell in z: the columns of the last block hold nothing
        { "2", 2, 1, 1, " 1\r\n 1\r\n 2\r\n\r\n\r\n" },
    };
    for (const Case & given : cases) {
        const TemporaryFolder folder;
        RecordedDialogs dialogs;
        EXPECT_EQ(write_weighting_file(given.list, folder.file("w.dat"), given.x, given.y, given.z, dialogs), Status::good);
        EXPECT_EQ(folder.read("w.dat"), given.text) << given.list;
        EXPECT_TRUE(dialogs.messages.empty());
    }
}

TEST(write_weighting_file, given_a_bad_list_then_one_message_and_no_change)
{
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    const std::string path = folder.write("w.dat", "old");
    EXPECT_EQ(write_weighting_file("1,0,2", path, 2, 2, 2, dialogs), Status::bad);
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{ "The weighting definitions are not valid for weight 2" });
    EXPECT_EQ(folder.read("w.dat"), "old");
    EXPECT_THROW(static_cast<void>(write_weighting_file("1", path + "\\below", 2, 2, 2, dialogs)), FileFault);
}
