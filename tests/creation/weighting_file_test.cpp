#include "creation/weighting_file.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>

TEST(weighting_file, given_a_list_deeper_than_the_mesh_then_the_layers_that_exist)
{
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    // one layer leaves columns without a value in the last block
    EXPECT_EQ(write_weighting_file("0.25, 8", folder.file("w.dat"), 2, 1, 1, dialogs), Status::good);
    EXPECT_EQ(folder.read("w.dat"), " 1\r\n 1\r\n 0.25\r\n\r\n\r\n");
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST(weighting_file, given_a_weight_that_is_not_positive_then_its_number_is_told_and_the_file_stays)
{
    const TemporaryFolder folder;
    folder.write("w.dat", "kept");
    RecordedDialogs dialogs;
    for (const char * list : { "1,0,2", "1,", "1, 2 x" })
        EXPECT_EQ(write_weighting_file(list, folder.file("w.dat"), 2, 2, 3, dialogs), Status::bad);
    EXPECT_EQ(dialogs.messages, std::vector<std::string>(3, "The weighting definitions are not valid for weight 2"));
    EXPECT_EQ(folder.read("w.dat"), "kept");
}
