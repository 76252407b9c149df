#include "data/cell_axis.h"
#include "data/observed_processing.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "support/numbers.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace {

List<double> even_nodes(double first, double step, std::int32_t count)
{
    List<double> nodes(count);
    for (std::int32_t i = 1; i <= count; ++i) nodes[i] = first + step * (i - 1);
    return nodes;
}

/// 4 x 4 cells of 10 m from the origin with a flat top at 100 m.
UbcMesh small_mesh(double first = 0)
{
    UbcMesh mesh;
    mesh.total_cells = { 4, 4, 1 };
    mesh.nodes_x = even_nodes(first, 10, 5);
    mesh.nodes_y = even_nodes(0, 10, 5);
    mesh.nodes_z = { 100, 90 };
    return mesh;
}

/// x, y, z, value in columns 1 to 4; fixed sensor elevations over a flat top.
InversionDefinition small_definition()
{
    InversionDefinition definition;
    definition.data_first_line[0] = 1;
    definition.sensor_height_type = 1;
    definition.topo_type = 1;
    definition.add_padding_cells = 0;
    definition.mesh_cell_size = { 10, 10, 10, 1 };
    return definition;
}

struct Processor {
    RecordedHost recorded;
    TemporaryFolder folder;
    ObservedReadings readings;
    TopoSurface topo;

    Status process(InversionDefinition definition, const std::string & content, const UbcMesh & mesh)
    {
        definition.data_file[0] = folder.write("survey.dat", content);
        return process_inversion_data(definition, mesh, topo, readings, recorded.host);
    }
};

/// "cell: x y z value" of the occupied cells.
std::string described(const SelectedData & selected)
{
    const auto number = [](float value) { return value < -1e30F ? std::string("*") : general_text(value); };
    std::string text;
    for (std::int32_t i = 1; i <= selected.occupied.size(); ++i) {
        if (selected.occupied[i] == 0) continue;
        text += (text.empty() ? "" : "; ") + general_text(i) + ": " + number(selected.x[i]) + " " + number(selected.y[i]) + " " +
                number(selected.z[i]) + " " + number(selected.value_1[i]);
    }
    return text;
}

using Change = void (*)(InversionDefinition &);
void unchanged(InversionDefinition &) {}

struct SelectionCase {
    const char * name;
    const char * content;
    Change change;
    const char * selected;
};

// A row per case.
// clang-format off
const SelectionCase selection_cases[] = {
    // the limits: the first node takes readings, the last does not; edges move a hundredth of a cell into theirs
    { "first_node", "0 0 120 7\n", unchanged, "1: 0.1 0.1 120 7" },
    { "last_node", "40 5 120 7\n5 40 120 7\n39.99 5 120 8\n", unchanged, "4: 39.89 5 120 8" },
    { "inner_edge", "10 19.95 120 7\n", unchanged, "6: 10.1 19.85 120 7" },
    // one reading per cell, the nearest to the centre; of two as near the first
    { "nearest", "2 5 120 1\n6 5 120 2\n4 5 120 3\n9 5 120 4\n15 15 120 5\n", unchanged, "1: 6 5 120 2; 6: 15 15 120 5" },
    // dummies and nulls
    { "dummy_z", "5 5 -99999.5 1\n5 5 -9999.05 1\n15 5 -999.05 1\n25 5 -9999.2 1\n5 5 -999.005 1\n", unchanged,
      "2: 15 5 -999.05 1; 3: 25 5 -9999.2 1" },
    { "dummy_values", "5 5 120 -99998.5\n15 5 120 -999\n25 5 120 *\n35 5 120 -998\n", unchanged, "4: 35 5 120 -998" },
    { "nulls_stay_with_an_integration_time", "5 5 120 -99998.5\n15 5 120 *\n", [](auto & d) { d.data_integration_time = 1; },
      "1: 5 5 120 *; 2: 15 5 120 *" },
    { "null_in_the_second_value", "5 5 120 1 -999\n15 5 120 2 3\n", [](auto & d) { d.obs_data_type_count = 2; d.data_value_column[1] = 5; },
      "2: 15 5 120 2" },
    { "base_and_scale", "5 5 120 110\n", [](auto & d) { d.obs_base_value = 100; d.obs_scale_value = -2; }, "1: 5 5 120 -20" },
    // elevations: an offset counts twice on a z from the file
    { "fixed_with_offset", "5 5 120 1\n", [](auto & d) { d.sensor_offset() = 3; }, "1: 5 5 126 1" },
    { "above_ground_with_offset", "5 5 20 1\n", [](auto & d) { d.sensor_offset() = 3; d.sensor_height_type = 0; },
      "1: 5 5 126 1" },
    { "no_z_fixed", "5 5 20 1\n", [](auto & d) { d.sensor_offset() = 130; d.data_z_column[0] = 0; }, "1: 5 5 130 1" },
    { "no_z_above_ground", "5 5 20 1\n", [](auto & d) { d.sensor_offset() = 30; d.data_z_column[0] = 0; d.sensor_height_type = 0; },
      "1: 5 5 130 1" },
    { "not_chosen_adds_no_ground", "5 5 120 1\n", [](auto & d) { d.sensor_height_type = -1; }, "1: 5 5 120 1" },
    { "lifted", "5 5 90 1\n15 5 110 1\n", [](auto & d) { d.sensor_min_height() = 10; }, "1: 5 5 110 1; 2: 15 5 110 1" },
};
// clang-format on

TEST(process_inversion_data, given_points_then_one_reading_per_cell)
{
    for (const SelectionCase & c : selection_cases) {
        SCOPED_TRACE(c.name);
        Processor p;
        InversionDefinition definition = small_definition();
        c.change(definition);
        EXPECT_EQ(p.process(definition, c.content, small_mesh()), Status::good);
        EXPECT_EQ(described(p.readings.selected), c.selected);
        EXPECT_EQ(p.readings.all.point_count, 0);
    }
}

TEST(process_inversion_data, given_large_coordinates_then_the_snap_is_a_metre)
{
    Processor p;
    EXPECT_EQ(p.process(small_definition(), "2000000.5 5 120 1\n", small_mesh(2000000)), Status::good);
    EXPECT_EQ(p.readings.selected.x[1], 2000001.5F);
}

TEST(process_inversion_data, given_padding_then_four_cells_at_each_end_stay_clear)
{
    Processor p;
    UbcMesh mesh = small_mesh();
    mesh.total_cells = { 10, 10, 1 };
    mesh.nodes_x = mesh.nodes_y = even_nodes(0, 10, 11);
    InversionDefinition definition = small_definition();
    definition.add_padding_cells = 1;
    EXPECT_EQ(p.process(definition, "39.9 45 120 1\n40.5 45 120 2\n59.5 45 120 3\n60 45 120 4\n", mesh), Status::good);
    EXPECT_EQ(described(p.readings.selected), "45: 40.5 45 120 2; 46: 59.5 45 120 3");
}

TEST(process_inversion_data, given_more_readings_per_cell_then_all_are_kept_with_their_distances)
{
    Processor p;
    InversionDefinition definition = small_definition();
    definition.data_values_per_cell = 2;
    definition.obs_data_type_count = 3;
    definition.data_value_column = { 4, 5, 6 };
    definition.data_line_column = 7;
    EXPECT_EQ(p.process(definition, "5 9 120 1 2 3 a\n5 5 121 4 5 6 b\n-1 5 0 1 2 3 c\n", small_mesh()), Status::good);
    EXPECT_EQ(p.readings.read_count, 3);
    ASSERT_EQ(p.readings.all.point_count, 2);
    EXPECT_EQ(p.readings.all.points[1].distance, 4);
    EXPECT_EQ(p.readings.all.points[2].value_2, 5);
    EXPECT_EQ(p.readings.selected.value_3[1], 0);
    EXPECT_EQ(p.readings.selected.value_2[1], 5);
    EXPECT_EQ(p.readings.selected.line_name[p.readings.selected.line[1]], "b");
    EXPECT_TRUE(p.readings.selected.extra_value.empty());
}

TEST(select_point_readings, given_many_points_then_the_nearest_stays_the_first_of_equals_and_all_are_in_order)
{
    std::mt19937 random(5);
    ObservedData points;
    std::map<std::int32_t, std::pair<int, int>> nearest; // by cell: squared distance and number
    for (int i = 1; i <= 100000; ++i) {
        const int ix = static_cast<int>(random() % 4), iy = static_cast<int>(random() % 4);
        const int right = 1 + static_cast<int>(random() % 7), up = i < 60000 ? 1 : 1 + static_cast<int>(random() % 7);
        points.xyz[0].push_back(10 * ix + right);
        points.xyz[1].push_back(10 * iy + up);
        points.xyz[2].push_back(90);
        points.value[0].push_back(static_cast<float>(i));
        const std::pair here{ (right - 5) * (right - 5) + (up - 5) * (up - 5), i };
        auto & best = nearest.try_emplace(4 * iy + ix + 1, here).first->second;
        best = std::min(best, here);
    }
    points.point_count = points.xyz[0].size();
    InversionDefinition definition = small_definition();
    definition.data_values_per_cell = 2;
    definition.sensor_min_height() = 10;
    Processor p;
    select_point_readings(points, definition, small_mesh(), p.topo, p.readings, p.recorded.host);
    EXPECT_EQ(p.recorded.progress.lines, std::vector<std::string>{ "Number of data points shifted: 100000 average shift: 20.0" });
    for (const auto & [cell, best] : nearest) EXPECT_EQ(p.readings.selected.value_1[cell], static_cast<float>(best.second));
    EXPECT_EQ(p.readings.selected.selected_count, 16);
    ASSERT_EQ(p.readings.all.point_count, 100000);
    for (int i = 1; i <= 100000; ++i) ASSERT_EQ(p.readings.all.points[i].value_1, i);
}

TEST(process_inversion_data, given_the_third_column_then_the_extra_value_comes_before_the_component)
{
    Processor p;
    InversionDefinition definition = small_definition();
    definition.data_value_column = { 4, 0, 5 };
    EXPECT_EQ(location_source(definition, 0).value_column[2], 5);
    definition.data_extra_value_column = 6;
    EXPECT_EQ(p.process(definition, "5 5 120 1 2 3\n", small_mesh()), Status::good);
    EXPECT_EQ(p.readings.selected.extra_value[1], 3);
}

TEST(location_source, given_topography_then_places_alone)
{
    InversionDefinition definition;
    definition.data_line_column = 5;
    definition.topo_offset() = 2;
    definition.data_kind[1] = 2;
    const LocationSource source = location_source(definition, 1);
    EXPECT_EQ(source.line_column, -1);
    EXPECT_EQ(source.value_column, (std::array<std::int32_t, 3>{ 0, 0, 0 }));
    EXPECT_EQ(source.elevation_offset, 2);
    EXPECT_EQ(source.file_type, 2);
}

TEST(process_inversion_data, given_shifts_few_readings_or_grids_then_words)
{
    Processor p;
    InversionDefinition definition = small_definition();
    definition.sensor_min_height() = 10;
    EXPECT_EQ(p.process(definition, "5 5 90 1\n15 5 109.5 1\n25 5 300 1\n", small_mesh()), Status::good);
    EXPECT_EQ(p.recorded.progress.lines, std::vector<std::string>{ "Number of data points shifted: 2 average shift: 10.3" });
    EXPECT_EQ(p.recorded.dialogs.messages, std::vector<std::string>{ "Warning: The number of inversion data defined is only 3" });

    p.recorded.dialogs.messages.clear();
    definition.data_file_type = 1;
    definition.data_file[2] = "C:\\my grid.grd";
    EXPECT_EQ(p.process(definition, "", small_mesh()), Status::bad);
    EXPECT_EQ(p.recorded.dialogs.messages, std::vector<std::string>{ "Gridded data are not available yet: C:\\my grid.grd" });
}

TEST(cell_axis, given_any_position_then_the_cell_of_the_search)
{
    const List<double> nodes = { -70, -30, -10, 0, 10.1, 20.2, 30.3, 40.4, 60, 100 };
    const CellAxis axis(nodes, 4, 10.1, false);
    std::mt19937 random(4);
    for (int i = 0; i < 100000; ++i) {
        const std::int32_t near = static_cast<std::int32_t>(1 + random() % 9);
        const double position = random() % 2 == 0 ? nodes[near] : -70 + static_cast<double>(random() % 1700000) / 1e4;
        if (axis.takes(position)) {
            ASSERT_EQ(axis.cell_of(position), interval_of(nodes, position)) << position;
        }
    }
    EXPECT_FALSE(axis.takes(100));
}

}
