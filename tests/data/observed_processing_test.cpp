#include "data/cell_axis.h"
#include "data/given_mesh.h"
#include "data/observed_processing.h"
#include "fakes/definition_values.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace {

/// 4 x 4 cells of 10 m with a flat top at 100 m.
UbcMesh small_mesh(double west = 0) { return even_mesh(4, 4, { 100, 90 }, west); }

/// x, y, z, value in columns 1 to 4; fixed sensor elevations over a flat top.
InversionDefinition small_definition(const std::string & changes = "")
{
    InversionDefinition definition;
    take_lines("Obs data definitions: 1 0 1 0 1 2 3 4 0 0 0; Sensor height definitions: 1 0 0; Topo type: 1;"
               "X Range: 0 0 10 0; Y Range: 0 0 10 0; Z Range: 0 0 10 0 1 0; Add mesh padding: 0 1",
               definition);
    take_lines(changes, definition);
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
    std::string text;
    for (std::int32_t i = 1; i <= selected.occupied.size(); ++i) {
        if (selected.occupied[i] == 0) continue;
        text += (text.empty() ? "" : "; ") + general_text(i) + ": " + number_or_star(selected.x[i]) + " " +
                number_or_star(selected.y[i]) + " " + number_or_star(selected.z[i]) + " " + number_or_star(selected.value_1[i]);
    }
    return text;
}

TEST(process_inversion_data, given_points_then_one_reading_per_cell)
{
    for (const auto & [cells, lines, text, selected] : cases_of<4>("observed_processing.cases")) {
        SCOPED_TRACE(lines + " | " + text);
        Processor p;
        const UbcMesh mesh = even_mesh(number_in(cells), number_in(cells), { 100, 90 });
        EXPECT_EQ(p.process(small_definition(lines), text, mesh), Status::good);
        EXPECT_EQ(described(p.readings.selected), selected);
        EXPECT_EQ(p.readings.all.point_count, 0);
    }
}

TEST(process_inversion_data, given_large_coordinates_then_the_snap_is_a_metre)
{
    Processor p;
    EXPECT_EQ(p.process(small_definition(), "2000000.5 5 120 1\n", small_mesh(2000000)), Status::good);
    EXPECT_EQ(p.readings.selected.x[1], 2000001.5F);
}

TEST(process_inversion_data, given_more_readings_per_cell_then_all_are_kept_with_their_distances)
{
    Processor p;
    const InversionDefinition definition = small_definition(
        "Number of Obs data per cell: 2 0; Obs data types: 20 21 22; Obs data definitions: 1 0 1 7 1 2 3 4 5 0 6");
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
    const std::string third = "Obs data types: 1 2 3; Obs data definitions: 1 0 1 0 1 2 3 4 4 0 5";
    EXPECT_EQ(location_source(small_definition(third), 0).value_column[2], 5);
    EXPECT_EQ(p.process(small_definition("Obs data definitions: 1 0 1 0 1 2 3 4 0 6 5"), "5 5 120 1 2 3\n", small_mesh()),
              Status::good);
    EXPECT_EQ(p.readings.selected.extra_value[1], 3);
}

TEST(process_inversion_data, given_shifts_or_few_readings_then_words)
{
    Processor p;
    InversionDefinition definition = small_definition("Sensor height definitions: 1 0 10");
    EXPECT_EQ(p.process(definition, "5 5 90 1\n15 5 109.5 1\n25 5 300 1\n", small_mesh()), Status::good);
    EXPECT_EQ(p.recorded.progress.lines, std::vector<std::string>{ "Number of data points shifted: 2 average shift: 10.3" });
    EXPECT_EQ(p.recorded.dialogs.messages, std::vector<std::string>{ "Warning: The number of inversion data defined is only 3" });
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
