#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "model/model_file.h"
#include "support/fault.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

UbcMesh mesh_of_cells(std::int32_t x, std::int32_t y, std::int32_t z)
{
    UbcMesh mesh;
    mesh.total_cells = { x, y, z };
    mesh.nodes_x.assign(x + 1);
    mesh.nodes_y.assign(y + 1);
    mesh.nodes_z.assign(z + 1);
    return mesh;
}

std::string written(const UbcMesh & mesh, const NodeWindow & window, const List<float> & values, const ModelText & form = {})
{
    const TemporaryFolder folder;
    RecordedHost host;
    write_model_file(folder.write("model", "what was there before"), mesh, window, values, form, host.progress);
    return folder.read("model");
}

/// Cells numbered in memory from 1: x fastest, then y, then z.
List<float> numbered_cells(const UbcMesh & mesh)
{
    List<float> values;
    for (int i = 1; i <= mesh.cells_x() * mesh.cells_y() * mesh.cells_z(); ++i) values.push_back(static_cast<float>(i));
    return values;
}

}

TEST(write_model_file, given_a_model_then_columns_from_the_top_x_before_y)
{
    const UbcMesh mesh = mesh_of_cells(2, 2, 2);
    EXPECT_EQ(written(mesh, whole_mesh(mesh), numbered_cells(mesh)), // 1 to 4 are the top layer, 5 to 8 the lower one
              " 1.00000E+00\r\n 5.00000E+00\r\n 2.00000E+00\r\n 6.00000E+00\r\n"
              " 3.00000E+00\r\n 7.00000E+00\r\n 4.00000E+00\r\n 8.00000E+00\r\n");
}

TEST(write_model_file, given_values_nulls_and_a_scale_then_each_in_the_form_of_the_file)
{
    const UbcMesh mesh = mesh_of_cells(9, 1, 1);
    // at or below -1e32 is null, -1e30 is a value; equal neighbours; a negative one keeps the blank in front
    const List<float> values = { 1, 1, -1e32F, -2e32F, -1e30F, -1, 0, 123.4565F, 0.5F };
    EXPECT_EQ(written(mesh, whole_mesh(mesh), values, { .null_value = -99, .scale = 1000 }),
              " 1.00000E-03\r\n 1.00000E-03\r\n -9.90000E+01\r\n -9.90000E+01\r\n -1.00000E+27\r\n"
              " -1.00000E-03\r\n 0.00000E+00\r\n 1.23457E-01\r\n 5.00000E-04\r\n");
}

TEST(write_model_file, given_a_window_of_a_larger_mesh_then_its_cells_only)
{
    const UbcMesh mesh = mesh_of_cells(50, 7, 310);
    const List<float> values = numbered_cells(mesh);
    for (const NodeWindow & window : { whole_mesh(mesh), NodeWindow{ 3, 41, 2, 6, 2, 300 }, NodeWindow{ 3, 4, 2, 3, 5, 5 } }) {
        std::string expected;
        for (int y = window.y_first; y < window.y_last; ++y)
            for (int x = window.x_first; x < window.x_last; ++x)
                for (int z = window.z_first; z < window.z_last; ++z) {
                    char line[32];
                    std::snprintf(line, sizeof line, " %.5E\r\n", static_cast<double>(x + 50 * (y - 1) + 350 * (z - 1)));
                    expected += line;
                }
        EXPECT_TRUE(written(mesh, window, values) == expected); // too long to be shown
    }
}

TEST(write_model_file, given_skip_then_an_empty_file)
{
    const UbcMesh mesh = mesh_of_cells(1, 1, 1);
    EXPECT_EQ(written(mesh, whole_mesh(mesh), { 1 }, { .skip = true }), "");
}

TEST(write_model_file, given_a_run_then_rising_percents_and_the_users_stop_passes)
{
    const UbcMesh mesh = mesh_of_cells(1, 400, 1);
    const TemporaryFolder folder;
    RecordedHost host;
    write_model_file(folder.file("model"), mesh, whole_mesh(mesh), List<float>(400), {}, host.progress);
    EXPECT_EQ(host.progress.percents.size(), 101U);
    EXPECT_EQ(host.progress.percents.back(), 100);
    host.progress.stop_at_percent = 30;
    EXPECT_THROW(write_model_file(folder.file("model"), mesh, whole_mesh(mesh), List<float>(400), {}, host.progress), Stopped);
}

TEST(write_model_file, given_what_cannot_be_written_then_a_fault)
{
    const UbcMesh mesh = mesh_of_cells(2, 1, 1);
    RecordedHost host;
    EXPECT_THROW(write_model_file("\\dev\\full", mesh, whole_mesh(mesh), { 1, 2 }, {}, host.progress), FileFault);
    EXPECT_THROW(written(mesh, whole_mesh(mesh), { 1 }), SubscriptFault); // fewer values than cells
    EXPECT_THROW(written(mesh, whole_mesh(mesh), { 1, std::numeric_limits<float>::quiet_NaN() }), OverflowFault);
}
