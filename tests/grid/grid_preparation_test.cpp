#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "grid/grid_files.h"
#include "grid/grid_preparation.h"
#include "grid/grid_sampler.h"
#include "grid/grid_statistics.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

/// 10 by 8 cells of 1 unit from 0, 0: the value is 10 * row from the south + column, both from 0.
std::string ten_by_eight()
{
    std::string text = "DSAA\n10 8\n0.5 9.5\n0.5 7.5\n0 79\n";
    for (int value = 0; value < 80; ++value) text += std::to_string(value) + (value % 10 == 9 ? "\n" : " ");
    return text;
}

/// A copy of a grid in a file, with what was said of it.
struct Prepared {
    RecordedDialogs dialogs;
    WorkGrid grid;
    GridLimits limits;
    Status status;

    explicit Prepared(const std::string & path, const GridLimits & wanted = {})
        : grid(path), limits(wanted), status(grid.prepare(limits, dialogs))
    {
    }
    const GridHeader & header() { return grid.header(); }
};

double sample_at(const GridSampler & sampler, double x, double y)
{
    double value = 0;
    sampler.sample({ &x, 1 }, { &y, 1 }, { &value, 1 });
    return value;
}

}

TEST(prepare_grid, given_limits_then_the_copy_covers_them_with_one_cell_more_where_there_is_one)
{
    const TemporaryFolder folder;
    const std::tuple<GridLimits, GridLimits, double, double> cases[] = {
        { { 3, 5, 2, 4 }, { 2, 6, 1, 5 }, 12, 45 },                   // on cell edges
        { { 3.2, 3.4, 2.2, 2.4 }, { 2, 5, 1, 4 }, 12, 34 },           // within one cell
        { { -5, 0.5, 7.9, 100 }, { 0, 2, 6, 8 }, 60, 71 },            // over a corner
        { { -1e300, 1e300, -1e300, 1e300 }, { 0, 10, 0, 8 }, 0, 79 }, // far over all edges
    };
    for (const auto & [wanted, copied, minimum, maximum] : cases) {
        Prepared given(folder.write("a.grd", ten_by_eight()), wanted);
        ASSERT_EQ(given.status, Status::good);
        const GridHeader & header = given.header();
        const auto as_list = [](const GridLimits & l) { return std::array{ l.west, l.east, l.south, l.north }; };
        EXPECT_EQ(as_list(header.limits), as_list(copied));
        EXPECT_EQ(as_list(given.limits), as_list(wanted));
        EXPECT_EQ((std::array{ header.minimum, header.maximum }), (std::array{ minimum, maximum }));
        EXPECT_EQ(header.columns, copied.east - copied.west);
        EXPECT_EQ(sample_at(GridSampler(header), copied.west + 0.5, copied.south + 0.5), minimum);
    }
}

TEST(prepare_grid, given_limits_beside_the_grid_then_the_message_names_it_and_no_copy_is_left)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("a.grd", ten_by_eight());
    for (const GridLimits & beside : { GridLimits{ 10, 20, 0, 8 }, GridLimits{ 0, 10, -8, 0 } }) {
        Prepared given(path, beside);
        EXPECT_EQ(given.status, Status::bad);
        ASSERT_EQ(given.dialogs.messages.size(), 1U);
        EXPECT_TRUE(given.dialogs.messages[0].starts_with("The grid does not cover any part of the wanted area: " + path +
                                                          ": it spans 0 to 10 by 0 to 8, wanted are "));
        EXPECT_EQ(given.header().work_name, "");
    }
}

TEST(prepare_grid, given_values_that_end_early_then_the_file_is_named_and_no_copy_is_left)
{
    const TemporaryFolder folder;
    const std::tuple<const char *, std::string, const char *> cases[] = {
        { "a.gxf", gxf("4 5 6\n1 2\n"), "it is cut short: it holds fewer values than its header says" },
        { "b.gxf", gxf("4 5 6\n1 2 x3\n"), "among its values stands \"x3\"" },
        { "c.grd", surfer_6.substr(0, surfer_6.size() - 1), "" },
        { "d.asc", arc_text.substr(0, arc_text.size() - 4), "" },
    };
    for (const auto & [file, content, reason] : cases) {
        const Prepared given(folder.write(file, content));
        EXPECT_EQ(given.status, Status::bad);
        const std::string message = given.dialogs.messages.at(0), expected = "cannot read " + folder.file(file) + ": " + reason;
        EXPECT_TRUE(*reason == '\0' ? message.starts_with(expected) : message == expected) << message;
        EXPECT_EQ(given.dialogs.messages.size(), 1U);
    }
}

TEST(prepare_grid, given_it_is_used_again_or_stopped_then_earlier_copies_are_gone)
{
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    std::string first, second;
    try {
        WorkGrid grid(folder.write("a.grd", ten_by_eight()));
        GridLimits limits;
        ASSERT_EQ(grid.prepare(limits, dialogs), Status::good);
        first = grid.header().work_name;
        EXPECT_TRUE(file_name_of_path(first).starts_with("~WD"));
        ASSERT_EQ(grid.prepare(limits, dialogs), Status::good);
        second = grid.header().work_name;
        EXPECT_EQ((std::array{ find_file(first).empty(), find_file(second).empty() }), (std::array{ true, false }));
        throw Stopped();
    } catch (const Stopped &) {
        EXPECT_TRUE(find_file(second).empty());
    }
    std::string kept = folder.write("mine.grd", "");
    delete_work_file(kept);
    EXPECT_EQ((std::array{ kept.empty(), folder.has("mine.grd") }), (std::array{ true, true }));
}

TEST(prepare_grid, given_a_grid_of_nulls_then_it_is_good_and_has_no_values)
{
    const TemporaryFolder folder;
    Prepared given(folder.write("a.grd", "DSAA\n2 2\n0 10\n0 10\n0 0\n1.70141e38 1.70141e38\n1.8e38 -1e30\n"));
    ASSERT_EQ(given.status, Status::good);
    EXPECT_EQ((std::array{ given.header().minimum, given.header().maximum }), (std::array{ -1e32, -1e32 }));
    GridStatistics statistics;
    ASSERT_EQ(grid_statistics(given.header(), Median::wanted, statistics, given.dialogs), Status::good);
    EXPECT_EQ((std::array{ statistics.mean, statistics.deviation, statistics.median }), (std::array{ -1e32, -1e32, -1e32 }));
    EXPECT_EQ((std::array{ statistics.count, statistics.null_count }), (std::array<std::int64_t, 2>{ 0, 4 }));
}

TEST(grid_statistics, given_values_then_what_is_worked_by_hand)
{
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    GridHeader header;
    header.file_name =
        folder.write("a.asc", "ncols 5\nnrows 1\nxllcorner 0\nyllcorner 0\ncellsize 1\nNODATA_value -1\n1 9 -1 2 4\n");
    GridStatistics statistics;
    ASSERT_EQ(grid_statistics(header, Median::wanted, statistics, dialogs), Status::good);
    // 1, 2, 4, 9: mean 4, squares of differences 9 + 4 + 0 + 25 = 38
    EXPECT_EQ((std::array{ statistics.minimum, statistics.maximum, statistics.mean, statistics.median }),
              (std::array{ 1.0, 9.0, 4.0, 3.0 }));
    EXPECT_DOUBLE_EQ(statistics.deviation, std::sqrt(38.0 / 4));
    EXPECT_EQ((std::array{ statistics.count, statistics.null_count }), (std::array<std::int64_t, 2>{ 4, 1 }));
}

TEST(grid_statistics, given_packed_grids_of_others_then_what_their_makers_say)
{
    const std::tuple<const char *, std::int64_t, std::int64_t, double, double, double, double, double> cases[] = {
        { "om_compress.grd", 1795, 655, -0.9928663, 45.2592621, 9.7829342, 0.5, 24.5 }, // as its header has them
        { "small2.gxf", 21, 59, 5, 972, 5389.0 / 21, 1749993.75, 4343.75 },             // unpacked by GDAL
    };
    for (const auto & [file, count, null_count, minimum, maximum, mean, west, north] : cases) {
        SCOPED_TRACE(file);
        Prepared given(definition_path(DATA_FOLDER) + "\\" + file);
        ASSERT_EQ(given.status, Status::good);
        GridStatistics found;
        ASSERT_EQ(grid_statistics(given.header(), Median::left_out, found, given.dialogs), Status::good);
        EXPECT_EQ((std::array{ found.count, found.null_count }), (std::array{ count, null_count }));
        EXPECT_NEAR(found.minimum, minimum, 5e-8);
        EXPECT_NEAR(found.maximum, maximum, 5e-8);
        EXPECT_NEAR(found.mean, mean, 1e-6);
        EXPECT_EQ((std::array{ given.limits.west, given.limits.north }), (std::array{ west, north }));
    }
}

TEST(GridSampler, given_positions_between_beside_and_beyond_cell_centres_then_what_is_worked_by_hand)
{
    const TemporaryFolder folder;
    Prepared given(folder.write("a.grd", surfer_text)); // edges 95, 125, 190, 230
    ASSERT_EQ(given.status, Status::good);
    const GridSampler sampler(given.header());
    for (const auto & [x, y, value] : cases_of<3>("grid_sampler.cases"))
        EXPECT_DOUBLE_EQ(sample_at(sampler, number_in<double>(x), number_in<double>(y)),
                         value == "null" ? -1e32 : number_in<double>(value))
            << x << " " << y;
}
