#include "data/given_grids.h"
#include "data/observed_processing.h"
#include "fakes/definition_values.h"

#include <gtest/gtest.h>
#include <regex>

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
    /// "5 at -20 0 by 10 = 1 2 / 3 4": slot, edges and cell size, and rows.
    void take_grid(const std::string & grid)
    {
        static const std::regex form(R"((\d)(?: at (-?\d+) (-?\d+) by (\d+))? = (.*))");
        std::smatch word;
        if (!std::regex_match(grid, word, form)) throw std::runtime_error("not a grid: " + grid);
        const std::string rows = word[5], first_row = rows.substr(0, rows.find(" / "));
        const std::array<int, 5> head = { static_cast<int>(parts_of(first_row, ' ').size()),
                                          static_cast<int>(parts_of(rows, '/').size()), word[2].matched ? number_in(word[2]) : 0,
                                          word[3].matched ? number_in(word[3]) : 0, word[4].matched ? number_in(word[4]) : 10 };
        definition.data_file.at(number_in<std::size_t>(word[1])) = arc(word.str(1) + ".asc", head, file_of(rows));
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
    std::string text;
    for (std::int32_t i = 1; i <= selected.occupied.size(); ++i) {
        if (selected.occupied[i] == 0) continue;
        text += (text.empty() ? "" : "; ") + general_text(i) + ": " + number_or_star(selected.z[i]) + " " +
                number_or_star(selected.value_1[i]);
        if (value_count > 1) text += " " + number_or_star(selected.value_2[i]);
        if (value_count > 2) text += " " + number_or_star(selected.value_3[i]);
    }
    return text;
}

TEST(process_inversion_data, given_grids_then_a_reading_at_each_cell_with_a_value)
{
    for (const auto & [lines, grids, count, seen, words] : cases_of<5>("observed_grids.cases")) {
        SCOPED_TRACE(lines + " | " + grids);
        GridRun run;
        take_lines(lines, run.definition);
        for (const std::string & grid : parts_of(grids, ';'))
            if (!grid.empty()) run.take_grid(grid);
        EXPECT_EQ(run.process(), Status::good);
        const SelectedData & selected = run.readings.selected;
        EXPECT_EQ(described(selected, run.definition.obs_data_type_count), seen);
        EXPECT_EQ(run.readings.all.point_count, 0);
        EXPECT_EQ(selected.selected_count, number_in(count));
        const std::string warning = "Warning: The number of inversion data defined is only " + count;
        EXPECT_EQ(run.recorded.dialogs.messages, std::vector<std::string>{ warning });
        EXPECT_EQ(run.recorded.progress.lines, std::vector<std::string>(words.empty() ? 0 : 1, words));
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
