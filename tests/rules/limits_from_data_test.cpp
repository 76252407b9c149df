#include "rules/limits_from_data.h"
#include "rules/started_setup.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

namespace {

/// A mesh of 1000 to 1400 by 2000 to 2400, -10 to 10, with cells of 100 x 100 x 10 m, over two points and over a small grid with
/// one null.
struct LimitsRun : StartedSetup {
    LimitsRun()
    {
        take_lines("X Range: 1000 1400 100 4; Y Range: 2000 2400 100 4; Z Range: -10 10 10 2 1 0; Data file type: 0;"
                   "Obs data definitions: 1 0 1 0 1 2 3 4 0 0 0; Topo data definitions: 1 0 1 1 2 3; Topo offset: 1.5",
                   record);
        points("1040,2010,-480.5,10\n1360,2395,-396,21\n");
        record.data_file[2] = folder.write("grid.asc", "ncols 3\nnrows 2\nxllcorner 1005\nyllcorner 2007\ncellsize 30\n"
                                                       "NODATA_value -7777\n-480.5 -396 -400\n-440 -7777 -450\n");
    }
    void points(const std::string & lines) { record.data_file[0] = record.data_file[1] = folder.write("points.csv", lines); }
    void turn(double rotation, double elevation_shift)
    {
        record.coordinate_transform.rotation = rotation;
        record.coordinate_transform.elevation_shift = elevation_shift;
        normalise_point_transform(record.coordinate_transform);
    }
    Status set(int index)
    {
        load(record);
        return set_limits_from_file(setup, index, host);
    }

    TemporaryFolder folder;
    InversionDefinition record;
};

struct LimitsCase {
    const char * name;
    int index;
    void (*change)(LimitsRun &);
    std::array<double, 6> limits; ///< west, east, south, north, bottom, top
    const char * base_value = "0";
};

// A row per case. Where the offset of the ground takes the top off the cells, the mesh keeps whole cells from the bottom.
// clang-format off
const LimitsCase limits_cases[] = {
    { "points", 0, [](auto &) {}, { 1000, 1400, 2000, 2400, -10, 10 }, "15.5" },
    { "ties_grow_outward", 0, [](auto & r) { r.points("1150,2050,0,1\n1250,2350,0,3\n"); },
      { 1100, 1300, 2000, 2400, -10, 10 }, "2.0" },
    { "on_a_multiple_stays", 0, [](auto & r) { r.points("1100,-300,0,1\n1300,-200,0,3\n"); },
      { 1100, 1300, -300, -200, -10, 10 }, "2.0" },
    { "single_precision", 0, [](auto & r) { take_lines("Y Range: 0 4 1 4", r.record);
      r.points("1100,0,0,1\n1300,16777217,0,3\n"); },
      { 1100, 1300, 0, 16777216, -10, 10 }, "2.0" },
    { "quarter_turn", 0, [](auto & r) { r.turn(90, 0); }, { 2000, 2400, -1400, -1000, -10, 10 }, "15.5" },
    { "grid_edges_and_its_cell_in_x", 0, [](auto & r) { r.record.data_file_type = 1;
      take_lines("X Range: 1000 1400 20 20", r.record); },
      { 990, 1110, 2000, 2100, -10, 10 }, "-433.3" },
    { "topography", 1, [](auto &) {}, { 1000, 1400, 2000, 2400, -488.5, -388.5 } },
    { "topography_grid", 1, [](auto & r) { r.record.data_file[1] = r.record.data_file[2]; r.turn(90, -1000); },
      { 1000, 1400, 2000, 2400, -488.5, -388.5 } },
    { "elevations_of_points_are_shifted", 1, [](auto & r) { r.turn(0, -1000); }, { 1000, 1400, 2000, 2400, -1488.5, -1388.5 } },
    { "depths", 1, [](auto & r) { r.record.inversion_mode = 4; }, { 1000, 1400, 2000, 2400, -100, 0 } },
    { "default_depth_ties_to_even", 1, [](auto & r) { take_lines("Z Range: 0 80 40 2 1 0", r.record);
        r.points("0,0,0,1\n1,1,70,1\n"); }, { 1000, 1400, 2000, 2400, -80, 80 } }, // 100 m are 2.5 cells
    { "default_depth_of_the_shorter_side", 1, [](auto & r) { take_lines("Y Range: 0 200 100 2", r.record);
        r.points("0,0,0,1\n1,1,70,1\n"); }, { 1000, 1400, 0, 200, -50, 70 } },
    { "deepest_default", 1, [](auto & r) { take_lines("X Range: 0 20000 100 200; Y Range: 0 20000 100 200", r.record); },
      { 0, 20000, 0, 20000, -3000, -390 } },
};
// clang-format on

TEST(set_limits_from_file, given_a_file_then_limits_on_multiples_of_the_cells_around_it)
{
    for (const LimitsCase & c : limits_cases) {
        SCOPED_TRACE(c.name);
        LimitsRun run;
        c.change(run);
        ASSERT_EQ(run.set(c.index), Status::good);
        const auto &low = run.setup.definition.mesh_min, &high = run.setup.definition.mesh_max;
        EXPECT_EQ((std::array{ low[0], high[0], low[1], high[1], low[2], high[2] }), c.limits);
        EXPECT_EQ(run.text("Text_min_val", 2), general_text(c.limits[4]));
        EXPECT_EQ(run.text("Text_max_val", 0), general_text(c.limits[1]));
        EXPECT_EQ(run.text("Text_UBC_regional_field"), c.base_value);
        EXPECT_TRUE(run.dialogs.messages.empty());
    }
}

TEST(set_limits_from_file, given_a_file_that_tells_nothing_then_one_message_and_the_limits_stay)
{
    const auto refused = [](int index, void (*change)(LimitsRun &)) {
        LimitsRun run;
        change(run);
        EXPECT_EQ(run.set(index), Status::bad);
        EXPECT_EQ(run.setup.definition.mesh_min[0], 1000);
        EXPECT_EQ(run.setup.definition.mesh_max[2], 10);
        return run.dialogs.messages.size() == 1 ? run.dialogs.messages[0].substr(0, run.dialogs.messages[0].find(" in the file"))
                                                : "not one message";
    };
    EXPECT_EQ(refused(0, [](auto & r) { r.points("east,north\n"); }), "No points were found");
    EXPECT_EQ(refused(1, [](auto & r) { r.points("1,2,*\n"); }), "No elevations were found");
    EXPECT_EQ(refused(0, [](auto & r) { r.record.data_file[0] = ""; }), "No data location file has been specified");
}

}
