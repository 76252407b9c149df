#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "model/model_file.h"
#include "model/model_window.h"
#include "support/fault.h"

#include <gtest/gtest.h>

namespace {

/// 3 x 2 columns of 3 cells. Lines are of two lengths; the third cells are out of the windows.
const List<float> values = { 1, -2, 3, 4, 5, -6, -11, 12, 12, -14, -1e32F, 16, 99, 99, -99, 99, -99, 99 };

/// What a window has when it is cut out of the file of the whole after `spoil`.
std::string cut(const NodeWindow & window, bool spoil = false)
{
    const TemporaryFolder folder;
    RecordedHost host;
    UbcMesh mesh;
    mesh.total_cells = { 3, 2, 3 };
    ColumnPlaces places;
    places.top_cells = 2;
    const std::string whole = folder.write("whole", "");
    write_model_file(whole, mesh, { 1, 4, 1, 3, 1, 4 }, values, {}, host.progress, &places);
    if (spoil) folder.write("whole", "shorter");
    copy_model_window(whole, places, 3, folder.write("window", "what was there before"), window, host.progress);
    return folder.read("window");
}

}

TEST(copy_model_window, given_columns_below_which_the_model_goes_on_then_their_lines_down_to_there)
{
    EXPECT_EQ(cut({ 2, 4, 1, 3, 1, 3 }), " -2.00000E+00\r\n 1.20000E+01\r\n 3.00000E+00\r\n 1.20000E+01\r\n"
                                         " 5.00000E+00\r\n -1.00000E+00\r\n -6.00000E+00\r\n 1.60000E+01\r\n");
    EXPECT_EQ(cut({ 1, 2, 2, 3, 1, 3 }), " 4.00000E+00\r\n -1.40000E+01\r\n");
    EXPECT_EQ(cut({ 2, 2, 1, 3, 1, 3 }), "");
}

TEST(copy_model_window, given_another_file_or_a_window_that_is_none_of_the_model_then_it_fails)
{
    EXPECT_THROW(cut({ 1, 4, 1, 3, 1, 3 }, true), FileFault);
    for (const NodeWindow & window : { NodeWindow{ 1, 4, 1, 3, 1, 4 }, { 1, 4, 1, 4, 1, 3 }, { 2, 5, 1, 2, 1, 3 } })
        EXPECT_THROW(cut(window), SubscriptFault);
}
