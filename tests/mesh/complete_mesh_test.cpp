#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "mesh/complete_mesh.h"
#include "support/fault.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

List<double> numbers_in(const std::string & text)
{
    List<double> numbers;
    std::istringstream words(text);
    for (double number; words >> number;) numbers.push_back(number);
    return numbers;
}

UbcMesh mesh_of(const List<double> & x, const List<double> & y, const List<double> & z)
{
    UbcMesh mesh;
    mesh.total_cells = { x.size(), y.size(), z.size() };
    mesh.widths_x = x, mesh.widths_y = y, mesh.widths_z = z;
    return mesh;
}

}

TEST(complete_mesh, given_widths_then_padding_at_the_ends_of_each_axis)
{
    for (const auto & [widths, start, end, bottom] : cases_of<4>("complete_mesh.cases")) {
        SCOPED_TRACE(widths);
        UbcMesh mesh = mesh_of(numbers_in(widths), numbers_in(widths), numbers_in(widths));
        RecordedDialogs dialogs;
        mesh.mesh_format = 5;
        EXPECT_EQ(complete_mesh(mesh, dialogs), Status::good);
        EXPECT_EQ(mesh.padding_x_start, number_in(start));
        EXPECT_EQ(mesh.padding_x_end, number_in(end));
        EXPECT_EQ(mesh.padding_y_start, number_in(start));
        EXPECT_EQ(mesh.padding_y_end, number_in(end));
        EXPECT_EQ(mesh.padding_z_top, 0);
        EXPECT_EQ(mesh.padding_z_bottom, number_in(bottom));
    }
}

TEST(complete_mesh, given_a_mesh_with_air_then_nodes_centres_and_core_sizes)
{
    UbcMesh mesh = mesh_of({ 9, 7, 8, 8, 7, 9, 30, 40 }, { 2, 4 }, { 10, 20, 20, 20, 20, 20, 50, 90 });
    mesh.origin_x = -5, mesh.origin_y = 100, mesh.origin_z = 70;
    mesh.mesh_format = 2, mesh.air_cells = 3; // padding is looked for at the bottom of formats 0 and 5 only
    RecordedDialogs dialogs;
    EXPECT_EQ(complete_mesh(mesh, dialogs), Status::good);
    EXPECT_EQ(mesh.nodes_x, (List<double>{ -5, 4, 11, 19, 27, 34, 43, 73, 113 }));
    EXPECT_EQ(mesh.centres_y, (List<double>{ 101, 104 }));
    EXPECT_EQ(mesh.nodes_z, (List<double>{ 70, 60, 40, 20, 0, -20, -40, -90, -180 }));
    EXPECT_EQ(mesh.nodes_z_ascending, (List<double>{ -180, -90, -40, -20, 0, 20, 40, 60, 70 }));
    EXPECT_EQ(mesh.centres_z[8], -135);
    EXPECT_EQ(mesh.padding_z_top, 3);
    EXPECT_EQ(mesh.padding_z_bottom, 0);
    EXPECT_EQ(mesh.padding_x_end, 3);
    EXPECT_EQ(mesh.core_size_x, 7);
    EXPECT_EQ(mesh.core_size_y, 2);
    EXPECT_EQ(mesh.core_size_z, 10);
}

TEST(complete_mesh, given_a_width_that_is_none_then_one_message_and_no_cells_on_its_axis)
{
    const std::tuple<UbcMesh, std::string, std::size_t> cases[] = {
        { mesh_of({ 1, 0, 0 }, { 0 }, { 1 }), "Bad x cell 2 0.00", 0 },
        { mesh_of({ 1 }, { -2.5 }, { 1 }), "Bad y cell 1 -2.50", 1 },
        { mesh_of({ 1 }, { 1 }, { 1, 1, 0 }), "Bad z cell 3 0.00", 2 },
    };
    for (auto [mesh, message, axis] : cases) {
        RecordedDialogs dialogs;
        EXPECT_EQ(complete_mesh(mesh, dialogs), Status::bad);
        EXPECT_EQ(dialogs.messages, std::vector<std::string>{ message });
        EXPECT_EQ(mesh.total_cells[axis], 0);
    }
    UbcMesh endless = mesh_of({ 1e308, 1e308 }, { 1 }, { 1 });
    RecordedDialogs dialogs;
    EXPECT_THROW((void)complete_mesh(endless, dialogs), OverflowFault);
}
