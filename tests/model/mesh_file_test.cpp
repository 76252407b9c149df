#include "fakes/temporary_folder.h"
#include "model/mesh_file.h"
#include "support/fault.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

/// A mesh with these widths from a first node; z goes down.
UbcMesh mesh_of(std::array<double, 3> origin, const List<double> & x, const List<double> & y, const List<double> & z)
{
    UbcMesh mesh;
    mesh.total_cells = { x.size(), y.size(), z.size() };
    mesh.widths_x = x;
    mesh.widths_y = y;
    mesh.widths_z = z;
    const auto nodes = [](double at, const List<double> & widths, double sign) {
        List<double> list = { at };
        for (const double width : widths.items()) list.push_back(at += sign * width);
        return list;
    };
    mesh.nodes_x = nodes(origin[0], x, 1);
    mesh.nodes_y = nodes(origin[1], y, 1);
    mesh.nodes_z = nodes(origin[2], z, -1);
    return mesh;
}

/// Elevations 1, 2, 3 ... by node number, each with its line number and row number readable: 101.5 is row 1, node 1.
List<float> elevations(const UbcMesh & mesh)
{
    List<float> topo;
    for (int y = 1; y <= mesh.nodes_y.size(); ++y)
        for (int x = 1; x <= mesh.nodes_x.size(); ++x) topo.push_back(static_cast<float>(100 * y + x) + 0.5F);
    return topo;
}

std::string written(const UbcMesh & mesh, const NodeWindow & window, bool skip_xy,
                    const std::optional<MeshExtension> & extension = {})
{
    const TemporaryFolder folder;
    write_mesh_file(folder.write("mesh", "what was there before"), mesh, window, skip_xy, extension);
    return folder.read("mesh");
}

const UbcMesh small_mesh = mesh_of({ 0, 0, 0 }, { 10, 10 }, { 20 }, { 5 });
const std::string small_text = "2 1 1\r\n"
                               " 0  0  0\r\n"
                               "2*10.0000\r\n"
                               "20.0000\r\n"
                               "5.0000\r\n";

}

TEST(write_mesh_file, given_a_mesh_then_counts_first_node_and_runs_of_widths)
{
    List<double> twelve(12, 1234.5678);
    twelve.push_back(50);
    List<double> rising;
    for (int i = 1; i <= 13; ++i) rising.push_back(i);
    // neighbours within a millimetre of the first of a run belong to it, however far they drift together
    const UbcMesh mesh = mesh_of({ 440000.5, -0.25, 100 }, twelve, { 100, 100.0009, 100.0018, 400 }, rising);
    EXPECT_EQ(written(mesh, whole_mesh(mesh), false),
              "13 4 13\r\n"
              " 440000.5 -.25  100\r\n"
              "12*1234.567 50.0000\r\n" // the token of 12 characters is cut to 11
              " 2*100.0000    100.0018 400.0000\r\n"
              "     1.0000      2.0000      3.0000      4.0000      5.0000      6.0000 "
              "     7.0000      8.0000      9.0000     10.0000     11.0000 \r\n" // full at 132 characters
              "    12.0000 13.0000\r\n");
}

TEST(write_mesh_file, given_the_last_run_then_its_token_is_not_cut)
{
    const UbcMesh mesh = mesh_of({ 1e15, 0.02, -3 }, List<double>(12, 1234.5678), { 123456789.5 }, { 0.00005 });
    EXPECT_EQ(written(mesh, whole_mesh(mesh), false), "12 1 1\r\n"
                                                      " 1E+15  .02 -3\r\n"
                                                      "12*1234.5678\r\n"
                                                      "123456789.5000\r\n"
                                                      "0.0001\r\n");
}

TEST(write_mesh_file, given_a_window_then_its_cells_and_its_first_node)
{
    const UbcMesh mesh = mesh_of({ 1000, 2000, 50 }, { 10, 20, 30, 40 }, { 1, 2, 3 }, { 5, 5, 6 });
    const NodeWindow window{ 2, 4, 3, 4, 2, 4 };
    EXPECT_EQ(written(mesh, window, false), "2 1 2\r\n"
                                            " 1010  2003  45\r\n"
                                            "    20.0000 30.0000\r\n"
                                            "3.0000\r\n"
                                            "     5.0000 6.0000\r\n");
    EXPECT_EQ(written(mesh, window, true), // without x and y: runs of no cells
              "0*-1.0000\r\n"
              "0*-1.0000\r\n"
              "     5.0000 6.0000\r\n");
}

TEST(write_mesh_file, given_an_extension_then_only_the_lines_of_its_format)
{
    const List<float> topo = elevations(small_mesh);
    const List<double> pairs = { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, -11.5, 12.345 };
    const std::string grid = "Topography (from lower-left by row)\r\n"
                             "101.50  102.50  103.50  \r\n"
                             "201.50  202.50  203.50  \r\n";
    const std::string nodes =
        "Trapezoidal nodes\r\n1.00  2.00\r\n3.00  4.00\r\n5.00  6.00\r\n7.00  8.00\r\n9.00  10.00\r\n-11.50  "
        "12.35\r\n";
    struct Case {
        MeshExtension extension;
        std::string text;
    };
    const Case cases[] = {
        { { .format = 0, .topo_nodes = &topo }, "Mesh format: 0\r\n" },
        { { .format = 1, .air_cells = 3, .sea_cells = 2 },
          "Mesh format: 1\r\nNumber of air cells: 3.0\r\nNumber of sea cells: 2.0\r\n" }, // with a decimal, as the readers know
                                                                                          // them
        { { .format = 3, .drape_top = 9, .drape_bottom = 1, .topo_nodes = &topo }, "Mesh format: 3\r\n" + grid },
        { { .format = 4, .trapezoid_nodes = &pairs }, "Mesh format: 2\r\n" + nodes }, // 4 without topography is written as 2
        { { .format = 4, .topo_nodes = &topo, .trapezoid_nodes = &pairs }, "Mesh format: 4\r\n" + grid + nodes },
        { { .format = 5, .drape_top = 120.25F, .drape_bottom = -80, .topo_nodes = &topo },
          "Mesh format: 5\r\nMesh topo drape: 120.3 -80.0\r\n" + grid },
        { { .format = 5, .drape_top = -80, .drape_bottom = -80 }, "Mesh format: 5\r\n" },
    };
    for (const Case & given : cases)
        EXPECT_EQ(written(small_mesh, whole_mesh(small_mesh), false, given.extension), small_text + given.text);
}

TEST(write_mesh_file, given_a_wide_window_of_topography_then_rows_broken_beyond_70_characters)
{
    const UbcMesh mesh = mesh_of({ 0, 0, 0 }, List<double>(11, 1.0), { 1, 1 }, { 1 });
    const List<float> topo = elevations(mesh);
    const MeshExtension extension{ .format = 5, .topo_nodes = &topo };
    const auto grid_of = [&](const NodeWindow & window) {
        const std::string text = written(mesh, window, true, extension);
        return text.substr(text.find("row)\r\n") + 6);
    };
    EXPECT_EQ(grid_of({ 2, 11, 2, 3, 1, 2 }), "202.50  203.50  204.50  205.50  206.50  207.50  208.50  209.50  210.50  \r\n"
                                              "211.50  \r\n"
                                              "302.50  303.50  304.50  305.50  306.50  307.50  308.50  309.50  310.50  \r\n"
                                              "311.50  \r\n");
    // a row that ends just where it is broken leaves no empty line
    EXPECT_EQ(grid_of({ 1, 9, 1, 2, 1, 2 }), "101.50  102.50  103.50  104.50  105.50  106.50  107.50  108.50  109.50  \r\n"
                                             "201.50  202.50  203.50  204.50  205.50  206.50  207.50  208.50  209.50  \r\n");
}

TEST(write_mesh_file, given_a_place_that_takes_nothing_or_a_list_too_short_then_a_fault)
{
    EXPECT_THROW(write_mesh_file("\\dev\\null\\mesh", small_mesh, whole_mesh(small_mesh), false, {}), FileFault);
    const List<float> short_topo(5);
    EXPECT_THROW(written(small_mesh, whole_mesh(small_mesh), false, MeshExtension{ .format = 5, .topo_nodes = &short_topo }),
                 SubscriptFault);
}
