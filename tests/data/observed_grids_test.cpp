#include "data/given_grids.h"
#include "data/observed_processing.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

namespace {

/// 3 by 2 cells; the ground of the columns is 51 to 56 where it is not the flat top at 100.
struct GridRun : GivenGrids {
    GridRun()
    {
        definition.data_file_type = 1;
        definition.data_file[2] = arc("one.asc", { 3, 2, 0, 0, 10 }, "4 5 6\n1 2 3");
        definition.sensor_height_type = 0;
        definition.topo_type = 1;
        definition.add_padding_cells = 0;
        topo.cell_topo = { 51, 52, 53, 54, 55, 56 };
    }
    void name(std::size_t slot, const std::string & values)
    {
        definition.data_file.at(slot) = arc(std::to_string(slot) + ".asc", { 3, 2, 0, 0, 10 }, values);
    }
    Status process() { return process_inversion_data(definition, mesh, topo, readings, recorded.host); }

    InversionDefinition definition;
    UbcMesh mesh = even_mesh(3, 2, { 100, 90 });
    TopoSurface topo;
    ObservedReadings readings;
};

/// "cell: z values" of the occupied cells.
std::string described(const SelectedData & selected, int value_count)
{
    const auto number = [](float value) { return value < -1e30F ? std::string("*") : general_text(value); };
    std::string text;
    for (std::int32_t i = 1; i <= selected.occupied.size(); ++i) {
        if (selected.occupied[i] == 0) continue;
        text += (text.empty() ? "" : "; ") + general_text(i) + ": " + number(selected.z[i]) + " " + number(selected.value_1[i]);
        if (value_count > 1) text += " " + number(selected.value_2[i]);
        if (value_count > 2) text += " " + number(selected.value_3[i]);
    }
    return text;
}

struct GridCase {
    const char * name;
    void (*change)(GridRun &);
    std::int32_t count;
    const char * selected;
    const char * words = ""; ///< in the log of progress
};

// A row per case.
// clang-format off
const GridCase grid_cases[] = {
    { "south_row_first", [](auto &) {}, 6, "1: 100 1; 2: 100 2; 3: 100 3; 4: 100 4; 5: 100 5; 6: 100 6" },
    { "base_and_scale_on_the_first_only", [](auto & r) { r.definition.obs_base_value = 2; r.definition.obs_scale_value = -10;
        r.definition.obs_data_type_count = 2; r.name(3, "4 5 6\n1 2 3"); }, 6,
      "1: 100 10 1; 2: 100 0 2; 3: 100 -10 3; 4: 100 -20 4; 5: 100 -30 5; 6: 100 -40 6" },
    { "null_in_the_first_leaves_out", [](auto & r) { r.definition.obs_data_type_count = 3; r.name(2, "4 * 6\n* 2 3");
        r.name(3, "* 5 *\n1 2 *"); r.name(4, "7 8 9\n1 * *"); }, 4, "2: 100 2 2 *; 3: 100 3 * *; 4: 100 4 * 7; 6: 100 6 * 9" },
    { "values_between_centres", [](auto & r) { // nodes 20 m apart, at 0, 20 and 40; a quarter or three of the way
        r.definition.data_file[2] = r.folder.write("one.grd", "DSAA\n3 2\n0 40\n0 20\n0 160\n0 40 80\n80 120 160\n"); }, 6,
      "1: 100 30; 2: 100 50; 3: 100 70; 4: 100 70; 5: 100 90; 6: 100 110" },
    { "off_the_edge", [](auto & r) { r.definition.data_file[2] = r.arc("one.asc", { 2, 2, 10, 0, 10 }, "5 6\n2 3"); }, 4,
      "2: 100 2; 3: 100 3; 5: 100 5; 6: 100 6" },
    { "turned", [](auto & r) { r.definition.coordinate_transform = quarter_turn();
        r.definition.data_file[2] = r.arc("one.asc", { 2, 3, -20, 0, 10 }, "1 2\n3 4\n5 6"); }, 6,
      "1: 100 6; 2: 100 4; 3: 100 2; 4: 100 5; 5: 100 3; 6: 100 1" },
    { "fixed_height", [](auto & r) { r.definition.sensor_height_type = 1; r.definition.sensor_offset() = 130;
        r.name(2, "* * *\n1 * *"); }, 1, "1: 130 1" },
    { "above_the_top", [](auto & r) { r.definition.sensor_offset() = 30; r.name(2, "* * *\n1 * *"); }, 1, "1: 130 1" },
    { "above_the_ground", [](auto & r) { r.definition.sensor_offset() = 30; r.definition.topo_type = 0; r.name(2, "4 * *\n1 * *"); }, 2,
      "1: 81 1; 4: 84 4" },
    { "not_chosen_is_above_the_ground", [](auto & r) { r.definition.sensor_height_type = -1; r.definition.sensor_offset() = 30;
        r.definition.topo_type = 0; r.name(2, "4 * *\n1 * *"); }, 2, "1: 81 1; 4: 84 4" },
    { "no_least_height_without_a_sensor_grid", [](auto & r) { r.definition.sensor_min_height() = 30; r.name(2, "4 * *\n* * *"); }, 1,
      "4: 100 4" },
    { "sensor_grid", [](auto & r) { r.definition.topo_type = 0; r.definition.sensor_offset() = 2; r.name(2, "4 * 6\n1 2 3");
        r.name(5, "20 30 *\n40.5 50 60"); }, 5, "1: 93.5 1; 2: 104 2; 3: 115 3; 4: 76 4" },
    { "sensor_grid_and_least_height", [](auto & r) { r.definition.topo_type = 0; r.definition.sensor_min_height() = 30;
        r.name(5, "29.5 30 25\n* 31 20"); }, 6, "2: 83 2; 3: 83 3; 4: 84 4; 5: 85 5; 6: 86 6",
      "Number of data points shifted: 3 average shift: 5.2" },
    { "fixed_height_least_above_the_top", [](auto & r) { r.definition.sensor_height_type = 1; r.definition.sensor_min_height() = 30;
        r.name(2, "* * *\n1 2 *"); r.name(5, "1 1 1\n140 125 1"); }, 2, "1: 140 1; 2: 130 2",
      "Number of data points shifted: 1 average shift: 5.0" },
};
// clang-format on

TEST(process_inversion_data, given_grids_then_a_reading_at_each_cell_with_a_value)
{
    for (const GridCase & c : grid_cases) {
        SCOPED_TRACE(c.name);
        GridRun run;
        c.change(run);
        EXPECT_EQ(run.process(), Status::good);
        const SelectedData & selected = run.readings.selected;
        EXPECT_EQ(described(selected, run.definition.obs_data_type_count), c.selected);
        EXPECT_EQ(selected.selected_count, c.count);
        EXPECT_EQ(run.readings.all.point_count, 0);
        const std::string warning = "Warning: The number of inversion data defined is only " + std::to_string(c.count);
        EXPECT_EQ(run.recorded.dialogs.messages, std::vector<std::string>{ warning });
        EXPECT_EQ(run.recorded.progress.lines, std::vector<std::string>(*c.words == 0 ? 0 : 1, c.words));
        EXPECT_FALSE(run.has_working_copies());
    }
}

TEST(process_inversion_data, given_grids_and_padding_then_the_outermost_four_cells_stay_clear)
{
    for (const std::int32_t cells : { 11, 8 }) {
        GridRun run;
        run.mesh = even_mesh(10, cells, { 100, 90 });
        run.definition.add_padding_cells = 1;
        run.definition.data_file[2] = run.arc("one.asc", { 1, 1, -50, -50, 300 }, "7");
        run.definition.data_file[5] = run.definition.data_file[2];
        EXPECT_EQ(run.process(), Status::good);
        EXPECT_EQ(described(run.readings.selected, 1),
                  cells == 8 ? "" : "45: 107 7; 46: 107 7; 55: 107 7; 56: 107 7; 65: 107 7; 66: 107 7");
        if (cells != 11) continue;
        EXPECT_EQ(run.readings.selected.x[46], 55);
        EXPECT_EQ(run.readings.selected.y[65], 65);
        // of 11 rows only 5 to 7 count: 4/11, 5/11 and 6/11; the sensor grid goes over all
        const std::vector<int> percents = { 0, 36, 45, 55, 0, 9, 18, 27, 36, 45, 55, 64, 73, 82, 91 };
        EXPECT_EQ(run.recorded.progress.percents, percents);
    }
}

TEST(process_inversion_data, given_a_grid_that_fails_or_a_stop_then_no_working_copy_stays)
{
    for (const std::size_t slot : { 2U, 4U, 5U }) {
        GridRun run;
        run.definition.obs_data_type_count = 3;
        run.definition.data_file[3] = run.definition.data_file[4] = run.definition.data_file[2];
        const std::string lost = run.definition.data_file.at(slot) = run.folder.file("lost.asc");
        EXPECT_EQ(run.process(), Status::bad);
        const std::string message = "Failed to determine grid format: " + lost + ": there is no such file";
        EXPECT_EQ(run.recorded.dialogs.messages, std::vector<std::string>{ message });
        EXPECT_FALSE(run.has_working_copies());
    }
    GridRun unnamed;
    unnamed.definition.obs_data_type_count = 2;
    EXPECT_EQ(unnamed.process(), Status::bad);
    EXPECT_EQ(unnamed.recorded.dialogs.messages.at(0), "Failed to determine grid format: no grid is named for data component 2");
    GridRun run;
    run.definition.data_file[5] = run.definition.data_file[2];
    run.recorded.progress.stop_at_percent = 50;
    EXPECT_THROW((void)run.process(), Stopped);
    EXPECT_TRUE(run.recorded.dialogs.messages.empty());
    EXPECT_FALSE(run.has_working_copies());
}

}
