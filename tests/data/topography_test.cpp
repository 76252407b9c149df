#include "data/given_mesh.h"
#include "data/topography.h"
#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

UbcMesh small_mesh() { return even_mesh(4, 3, { 100, 90, 70, 40 }); }

struct Point {
    double x, y, z;
};

ObservedData data_of(const std::vector<Point> & points)
{
    ObservedData data;
    for (const Point & point : points) {
        data.xyz[0].push_back(point.x);
        data.xyz[1].push_back(point.y);
        data.xyz[2].push_back(point.z);
    }
    data.point_count = data.xyz[0].size();
    return data;
}

InversionDefinition definition_of(std::int32_t method, std::int32_t shift = 1)
{
    InversionDefinition definition;
    definition.inversion_method = method;
    definition.topo_shift_option = shift;
    return definition;
}

std::vector<Point> points_of(const std::string & text)
{
    std::vector<Point> points;
    for (const std::string & part : parts_of(text, ';')) {
        const auto words = parts_of(part, ' ');
        const double z = number_in<double>(words.back());
        if (words[0] == "corners")
            points.insert(points.end(), { { 1, 1, z }, { 39, 1, z }, { 1, 29, z }, { 39, 29, z } });
        else
            points.push_back({ number_in<double>(words.at(0)), number_in<double>(words.at(1)), z });
    }
    return points;
}

}

TEST(topography, given_points_then_those_that_count_make_a_surface_or_are_refused)
{
    for (const auto & [method, text, outcome, air] : cases_of<4>("topo_points.cases")) {
        SCOPED_TRACE(method + " | " + text);
        RecordedHost host;
        TopoSurface topo;
        topo.cell_topo = { 7 };
        const auto points = points_of(text);
        const Status status =
            interpolate_topo_points(data_of(points), definition_of(number_in(method)), small_mesh(), topo, host.host);
        const bool good = outcome == "good";
        EXPECT_EQ(status, good ? Status::good : Status::bad);
        EXPECT_EQ(host.dialogs.messages, refusals_of(outcome));
        EXPECT_EQ(topo.frame_count, good ? 21 : 0); // (5 + 4) * 2 + 3
        EXPECT_EQ(topo.point_count, good ? static_cast<std::int32_t>(points.size()) + 21 : 0);
        EXPECT_EQ(topo.cell_topo.size(), good ? 12 : 1); // an earlier surface stays
        EXPECT_EQ(topo.node_topo.size(), good && method == "4" ? 20 : 0);
        EXPECT_TRUE(air.empty() || topo.air_cells == List<std::int32_t>(12, number_in(air)));
    }
}

TEST(topography, given_points_on_a_slope_then_every_cell_and_node_lies_on_it_and_beyond_them_the_mean_counts)
{
    std::vector<Point> slope;
    for (int x = -10; x <= 50; x += 5)
        for (int y = -10; y <= 40; y += 5) slope.push_back({ double(x), double(y), 60 + 0.5 * x - 0.25 * y });
    RecordedHost host;
    TopoSurface topo;
    ASSERT_EQ(interpolate_topo_points(data_of(slope), definition_of(4), small_mesh(), topo, host.host), Status::good);
    EXPECT_EQ(host.progress.steps, std::vector<std::string>{ "Interpolate topo values" });
    EXPECT_FLOAT_EQ(topo.cell_topo[1], 61.25F);  // at 5, 5
    EXPECT_FLOAT_EQ(topo.cell_topo[2], 66.25F);  // at 15, 5: x fastest
    EXPECT_FLOAT_EQ(topo.cell_topo[12], 71.25F); // at 35, 25
    EXPECT_FLOAT_EQ(topo.node_topo[1], 60);
    EXPECT_FLOAT_EQ(topo.node_topo[5], 80); // at 40, 0: the data count there, not the ring
    EXPECT_FLOAT_EQ(topo.node_topo[20], 72.5F);

    // five points in one corner of the mesh; far from them the ground is their mean, within every cell
    const auto corner = data_of({ { 1, 1, 10 }, { 4, 1, 20 }, { 1, 4, 30 }, { 4, 4, 40 }, { 2, 2, 50 } });
    ASSERT_EQ(interpolate_topo_points(corner, definition_of(3), small_mesh(), topo, host.host), Status::good);
    EXPECT_NEAR(topo.cell_topo[12], 30, 5);
    for (const float z : topo.cell_topo.items()) EXPECT_TRUE(z >= 10 && z <= 50) << z;
    EXPECT_TRUE(topo.node_topo.empty());
}

TEST(topography, given_a_stop_then_it_passes_without_a_message)
{
    RecordedHost host;
    TopoSurface topo;
    host.progress.stop_at_percent = 0;
    EXPECT_THROW((void)interpolate_topo_points(data_of({}), definition_of(3), small_mesh(), topo, host.host), Stopped);
    EXPECT_TRUE(host.dialogs.messages.empty());
}

TEST(topography, given_air_cells_then_the_layers_above_are_marked_and_readings_lie_a_tenth_above_the_solid_ones)
{
    const UbcMesh mesh = even_mesh(5, 1, { 100, 90, 70, 40 });
    for (const auto & [method, points, z, air] : cases_of<4>("air_cells.cases")) {
        RecordedHost host;
        TopoSurface topo;
        topo.point_count = number_in(points);
        topo.air_cells = { 0, 1, 1, 3, 1 };
        SelectedData selected;
        selected.cells_x = 5, selected.cells_y = 1;
        selected.occupied = { 1, 1, 1, 1, 0 };
        selected.z = { 100.05F, 20, 90.2F, 20, -5 };
        List<float> model(15);
        ASSERT_EQ(process_inversion_topo(definition_of(number_in(method)), mesh, topo, selected, model, host.host), Status::good);
        std::string heights, marks;
        for (std::int32_t i = 1; i <= 4; ++i) heights += (i > 1 ? " " : "") + general_text(selected.z[i]);
        for (std::int32_t i = 1; i <= 15; ++i)
            marks += std::string(i % 5 == 1 && i > 1 ? " " : "") + (model[i] == -1 ? "1" : model[i] == 0 ? "0" : "?");
        EXPECT_EQ(heights, z) << method;
        EXPECT_EQ(selected.z[5], -5) << method;
        EXPECT_EQ(marks, air) << method;
    }
}

TEST(topography, given_a_mesh_of_two_columns_then_topo_dat_is_as_the_solvers_read_it)
{
    UbcMesh mesh = even_mesh(2, 1, { 100, 90, 70 });
    mesh.centres_x = { 1005, 1020 }, mesh.centres_y = { 0 };
    TopoSurface topo;
    topo.point_count = 30;
    topo.cell_topo = { 95.25F, -72.00005F }; // the second as it stands in a float: -72.0000534
    topo.air_cells = { 1, 2 };
    const TemporaryFolder folder;
    for (const auto & [method, shift, lines] : cases_of<3>("topo_file.cases")) {
        RecordedHost host;
        write_topo_file(folder.file("topo.dat"), definition_of(number_in(method), number_in(shift)), mesh, topo,
                        whole_topography(mesh), host.host);
        EXPECT_EQ(folder.read("topo.dat"), file_of(lines)) << method << " " << shift;
    }
}
