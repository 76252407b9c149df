#include "creation/given_tiles.h"
#include "creation/top_scripts.h"

#include <gtest/gtest.h>

/// As a user would have it who wants the north-eastern tile first, has removed the middle one in the east and asks for more than
/// 5 readings.
TEST(top_scripts, given_tiles_of_all_kinds_then_both_scripts)
{
    GivenTiles tiles("3", "1", "", "Tile X/Y blend: 0; Tile Z blend: 5; Tile min points: 5");
    tiles.refined.tiles.tile_order = { 1, 1, 1 };
    tiles.refined.tiles.tile_skipped[4] = 1;
    const Creation creation = tiles.creation();
    TopScripts scripts = start_top_scripts(creation);
    for (const std::vector<Tile> & group : tiles_in_run_order(creation.tiles())) {
        for (const Tile tile : group) add_tile(scripts, creation, tile, tile == Tile{ 2, 3 } ? 6 : tile == Tile{ 1, 3 } ? 5 : 57);
        end_tile_group(scripts);
    }
    write_top_scripts(scripts, creation);
    EXPECT_EQ(tiles.folder.read("inv\\iter_all.bat"), expected_file("iter_all.bat"));
    EXPECT_EQ(tiles.folder.read("inv\\insert_all.bat"), expected_file("insert_all.bat"));
}

/// They name the own solver's files for every method, and by the data type alone.
TEST(top_scripts, given_a_data_type_then_the_files_of_its_class)
{
    for (const auto & [method, type, data, model] : cases_of<4>("top_scripts.cases")) {
        const GivenTiles tiles(method, type);
        TopScripts scripts = start_top_scripts(tiles.creation());
        write_top_scripts(scripts, tiles.creation());
        EXPECT_EQ(scripts.iter_all, Lines{ "QVerror " + data + ".obs qvinv3d.pre error.dat mesh" }) << method << " " << type;
        EXPECT_EQ(scripts.insert_all.at(6), "@if exist refined." + model + " copy refined." + model + " qvinv3d." + model);
    }
}
