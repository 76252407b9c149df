#include "data/layout_backdrop.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "support/missing.h"

#include <gtest/gtest.h>

namespace {

/// A definition with four readings, and a ground of 3 by 2 cells that are 10 m wide and 20 m high, at 1 2 none over 4 5 6.
struct Given : RecordedHost {
    TemporaryFolder folder;
    InversionDefinition definition;
    std::string grid = folder.write("ground.grd", "DSAA\r\n3 2\r\n100 120\r\n200 220\r\n1 6\r\n4 5 6\r\n1 2 1.70141e+038\r\n");
    LayoutBackdrop backdrop;

    Given()
    {
        definition.data_file[0] = folder.write("mag.dat", "x y z v\r\n1 10 5 7\r\n2 20 5 7\r\n* 30 5 7\r\n4 40 * 7\r\n");
        definition.data_file[1] = grid;
        definition.data_kind[1] = 1;
        definition.topo_offset() = 0.5F;
        definition.coordinate_transform.rotation = 90;
        normalise_point_transform(definition.coordinate_transform);
    }
    void read(const std::string & image = "") { read_backdrop(backdrop_sources(definition, image), backdrop, host); }
};

}

TEST(read_backdrop, given_a_definition_then_readings_and_ground_stay_in_coordinates_of_the_map)
{
    Given given;
    given.read(given.grid);
    EXPECT_TRUE(given.dialogs.messages.empty());
    EXPECT_EQ(given.backdrop.reading_x, (std::vector<double>{ 1, 2, 4 }));
    EXPECT_EQ(given.backdrop.reading_y, (std::vector<double>{ 10, 20, 40 }));
    const BackdropRaster & ground = given.backdrop.ground;
    EXPECT_EQ(ground.values, (std::vector<float>{ 1.5F, 2.5F, missing_value_f32, 4.5F, 5.5F, 6.5F }));
    EXPECT_EQ(given.backdrop.grid.values[4], 5); // the same grid as an image has no offset
    EXPECT_TRUE(ground.limits.west == 95 && ground.limits.east == 125 && ground.limits.south == 190 &&
                ground.limits.north == 230);
    EXPECT_TRUE(ground.low == 1.5F && ground.high == 6.5F);
}

TEST(read_backdrop, given_files_that_cannot_be_shown_then_a_message_each_and_the_rest)
{
    Given given;
    given.definition.data_kind[1] = 0;
    given.definition.data_file[1] = given.folder.file("gone.xyz");
    given.read(given.folder.file("gone.png"));
    ASSERT_EQ(given.dialogs.messages.size(), 2U);
    EXPECT_EQ(given.dialogs.messages[0], "The image file does not exist: " + given.folder.file("gone.png"));
    EXPECT_NE(given.dialogs.messages[1].find("gone.xyz"), std::string::npos);
    EXPECT_EQ(given.backdrop.reading_x.size(), 3U);
    EXPECT_EQ(given.backdrop.ground.columns, 0);

    given.dialogs.messages.clear();
    given.definition.topo_type = 1; // the top of the mesh: whatever the file
    given.definition.data_file_type = 1;
    given.backdrop = {};
    given.read(given.definition.data_file[0]);
    EXPECT_EQ(given.dialogs.messages.size(), 1U); // a point file is no image
    EXPECT_TRUE(given.backdrop.reading_x.empty() && given.backdrop.ground.columns == 0);
}

TEST(same_backdrop, given_a_change_then_only_one_of_the_files_counts)
{
    Given given;
    const BackdropSources sources = backdrop_sources(given.definition, "");
    given.definition.mesh_min[0] = 5;
    EXPECT_TRUE(same_backdrop(sources, backdrop_sources(given.definition, "")));
    EXPECT_FALSE(same_backdrop(sources, backdrop_sources(given.definition, "a.ers")));
    given.definition.data_x_column[0] = 2;
    EXPECT_FALSE(same_backdrop(sources, backdrop_sources(given.definition, "")));
}

TEST(raster_of_points, given_points_on_a_plane_then_cells_hold_its_elevations_and_narrow_gaps_are_filled)
{
    List<double> x, y, z;
    for (int column = 0; column <= 40; ++column)
        for (int row = 0; row <= 20; ++row) {
            if (column == 20) continue; // a line that is missing
            x.push_back(1000 + 10 * column);
            y.push_back(5000 + 10 * row);
            z.push_back(column == 0 && row == 0 ? missing_value : 100 + 10 * column);
        }
    const BackdropRaster raster = raster_of_points(x, y, z);
    ASSERT_TRUE(raster.columns > 20 && raster.columns < 40 && raster.rows > 10 && raster.rows < 20);
    EXPECT_TRUE(raster.limits.west == 1000 && raster.limits.east == 1400 && raster.limits.north == 5200);
    const double width = 400.0 / raster.columns;
    for (std::int32_t row = 0; row < raster.rows; ++row)
        for (std::int32_t column = 0; column < raster.columns; ++column)
            EXPECT_NEAR(raster.values[static_cast<std::size_t>(row * raster.columns + column)], 100 + (column + 0.5) * width,
                        2 * width);
    EXPECT_EQ(raster_of_points({ 1, 2 }, { 3, 3 }, { 4, 5 }).columns, 0); // no area
    EXPECT_EQ(raster_of_points({}, {}, {}).columns, 0);
}
