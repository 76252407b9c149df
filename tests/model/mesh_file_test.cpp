#include "fakes/temporary_folder.h"
#include "model/mesh_file.h"
#include "support/fault.h"

#include <gtest/gtest.h>

namespace {

/// A mesh with these widths from a first node; z goes down.
UbcMesh mesh_of(double x0, double y0, double z0, const List<double> & x, const List<double> & y, const List<double> & z)
{
    const auto nodes = [](double at, const List<double> & widths, double sign) {
        List<double> list = { at };
        for (const double width : widths.items()) list.push_back(at += sign * width);
        return list;
    };
    UbcMesh mesh;
    mesh.widths_x = x, mesh.widths_y = y, mesh.widths_z = z;
    mesh.nodes_x = nodes(x0, x, 1), mesh.nodes_y = nodes(y0, y, 1), mesh.nodes_z = nodes(z0, z, -1);
    return mesh;
}

std::string written(const UbcMesh & mesh, const NodeWindow & window, bool skip_xy = false,
                    const std::optional<MeshExtension> & extension = {})
{
    const TemporaryFolder folder;
    write_mesh_file(folder.write("mesh", "what was there before"), mesh, window, skip_xy, extension);
    return folder.read("mesh");
}

}

TEST(write_mesh_file, given_widths_then_runs_in_columns_of_which_the_last_is_not_cut)
{
    List<double> x(12, 1234.5678), rising;
    x.push_back(50);
    for (int i = 1; i <= 13; ++i) rising.push_back(i);
    // neighbours within a millimetre of the first of a run belong to it, however far they drift together
    const UbcMesh mesh = mesh_of(440000.5, -0.25, 100, x, { 100, 100.0009, 100.0018, 123456789.5 }, rising);
    // 12 characters are cut to 11, and lines are full at 132
    EXPECT_EQ(written(mesh, whole_mesh(mesh)), bytes_of(TEST_DATA_FOLDER "/mesh_with_runs.txt"));
}

TEST(write_mesh_file, given_a_window_then_its_cells_from_its_first_node)
{
    const UbcMesh mesh = mesh_of(1000, 2000, 50, { 10, 20, 30, 40 }, { 1, 2, 3 }, { 5, 5, 6 });
    EXPECT_EQ(written(mesh, { 2, 4, 3, 4, 2, 4 }),
              "2 1 2\r\n 1010  2003  45\r\n    20.0000 30.0000\r\n3.0000\r\n     5.0000 6.0000\r\n");
    EXPECT_EQ(written(mesh, { 2, 4, 3, 4, 1, 4 }, true), "0*-1.0000\r\n0*-1.0000\r\n   2*5.0000 6.0000\r\n"); // runs of no cells
}

TEST(write_mesh_file, given_an_extension_then_only_the_lines_of_its_format)
{
    const List<float> topo = { 101.5F, 102.5F, -0.004F, 201.5F, 202.5F, 1e6F };
    const List<double> pairs = { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, -11.5, 12.345 };
    const std::string grid = "Topography (from lower-left by row)\r\n101.50  102.50  -0.00  \r\n201.50  202.50  1000000.00  \r\n";
    const std::string nodes = "Trapezoidal nodes\r\n1.00  2.00\r\n3.00  4.00\r\n5.00  6.00\r\n7.00  8.00\r\n9.00  10.00\r\n"
                              "-11.50  12.35\r\n";
    const std::pair<MeshExtension, std::string> cases[] = {
        { { .format = 0, .topo_nodes = &topo }, "Mesh format: 0\r\n" },
        { { .format = 1, .air_cells = 3, .sea_cells = 2 }, // counts with a decimal, as the readers know them
          "Mesh format: 1\r\nNumber of air cells: 3.0\r\nNumber of sea cells: 2.0\r\n" },
        { { .format = 3, .drape_top = 9, .topo_nodes = &topo }, "Mesh format: 3\r\n" + grid },
        { { .format = 4, .trapezoid_nodes = &pairs }, "Mesh format: 2\r\n" + nodes }, // 4 without topography is written as 2
        { { .format = 4, .topo_nodes = &topo, .trapezoid_nodes = &pairs }, "Mesh format: 4\r\n" + grid + nodes },
        { { .format = 5, .drape_top = 120.25F, .drape_bottom = -80, .topo_nodes = &topo },
          "Mesh format: 5\r\nMesh topo drape: 120.3 -80.0\r\n" + grid },
        { { .format = 5, .drape_top = -80, .drape_bottom = -80 }, "Mesh format: 5\r\n" },
    };
    const UbcMesh mesh = mesh_of(0, 0, 0, { 10, 10 }, { 20 }, { 5 });
    for (const auto & [extension, text] : cases)
        EXPECT_EQ(written(mesh, whole_mesh(mesh), true, extension), "0*-1.0000\r\n0*-1.0000\r\n5.0000\r\n" + text);
    const List<float> too_short(5);
    EXPECT_THROW(written(mesh, whole_mesh(mesh), true, MeshExtension{ .format = 5, .topo_nodes = &too_short }), SubscriptFault);
}

TEST(write_mesh_file, given_a_window_of_topography_then_its_rows_broken_beyond_70_characters)
{
    const UbcMesh mesh = mesh_of(0, 0, 0, List<double>(11, 1.0), { 1, 1 }, { 1 });
    List<float> topo(36);
    for (int i = 1; i <= 36; ++i) topo[i] = static_cast<float>(100 + i);
    const MeshExtension extension{ .format = 5, .topo_nodes = &topo };
    EXPECT_TRUE(written(mesh, { 3, 12, 2, 3, 1, 2 }, true, extension)
                    .ends_with("115.00  116.00  117.00  118.00  119.00  120.00  121.00  122.00  123.00  \r\n124.00  \r\n"
                               "127.00  128.00  129.00  130.00  131.00  132.00  133.00  134.00  135.00  \r\n136.00  \r\n"));
    // a row that ends just where it is broken leaves no empty line
    EXPECT_TRUE(written(mesh, { 3, 11, 2, 2, 1, 2 }, true, extension)
                    .ends_with("row)\r\n115.00  116.00  117.00  118.00  119.00  120.00  121.00  122.00  123.00  \r\n"));
}
