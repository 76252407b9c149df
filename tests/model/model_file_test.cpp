#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "model/model_file.h"
#include "support/fault.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>

namespace {

/// Writes a model on a mesh of so many cells.
std::string written(std::array<std::int32_t, 3> cells, const NodeWindow & window, const List<float> & values,
                    const ModelText & form = {})
{
    const TemporaryFolder folder;
    RecordedHost host;
    UbcMesh mesh;
    mesh.total_cells = cells;
    write_model_file(folder.write("model", "what was there before"), mesh, window, values, form, host.progress);
    return folder.read("model");
}

}

TEST(write_model_file, given_values_nulls_and_a_scale_then_each_in_the_form_of_the_file)
{
    // at or below -1e32 is null, -1e30 is a value; equal neighbours; a negative one keeps the blank in front
    const List<float> values = { 1, 1, -1e32F, -2e32F, -1e30F, -1, 0, 123.4565F, 0.5F };
    EXPECT_EQ(written({ 9, 1, 1 }, { 1, 10, 1, 2, 1, 2 }, values, { .null_value = -99, .scale = 1000 }),
              " 1.00000E-03\r\n 1.00000E-03\r\n -9.90000E+01\r\n -9.90000E+01\r\n -1.00000E+27\r\n"
              " -1.00000E-03\r\n 0.00000E+00\r\n 1.23457E-01\r\n 5.00000E-04\r\n");
}

TEST(write_model_file, given_a_window_then_its_columns_from_the_top_x_before_y)
{
    List<float> values(50 * 7 * 310); // numbered as they lie in memory: x fastest, then y, then z
    std::iota(values.items().begin(), values.items().end(), 1.0F);
    for (const NodeWindow & window : { NodeWindow{ 1, 51, 1, 8, 1, 311 }, NodeWindow{ 3, 41, 2, 6, 2, 300 } }) {
        std::string expected;
        for (int y = window.y_first; y < window.y_last; ++y)
            for (int x = window.x_first; x < window.x_last; ++x)
                for (int z = window.z_first; z < window.z_last; ++z) {
                    char line[32];
                    std::snprintf(line, sizeof line, " %.5E\r\n", static_cast<double>(x + 50 * (y - 1) + 350 * (z - 1)));
                    expected += line;
                }
        EXPECT_TRUE(written({ 50, 7, 310 }, window, values) == expected); // too long to be shown
    }
}

TEST(write_model_file, given_a_stop_a_full_disk_or_wrong_values_then_it_ends_with_that)
{
    RecordedHost host;
    UbcMesh mesh;
    mesh.total_cells = { 1, 400, 1 };
    const NodeWindow window{ 1, 2, 1, 401, 1, 2 };
    EXPECT_THROW(write_model_file("\\dev\\full", mesh, window, List<float>(400), {}, host.progress), FileFault);
    EXPECT_EQ(host.progress.percents.size(), 101U);
    host.progress.stop_at_percent = 30;
    EXPECT_THROW(write_model_file("\\dev\\null", mesh, window, List<float>(400), {}, host.progress), Stopped);
    EXPECT_THROW(written({ 2, 1, 1 }, { 1, 3, 1, 2, 1, 2 }, { 1 }), SubscriptFault); // fewer values than cells
    EXPECT_THROW(written({ 1, 1, 1 }, { 1, 2, 1, 2, 1, 2 }, { std::numeric_limits<float>::quiet_NaN() }), OverflowFault);
}
