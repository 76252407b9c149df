#include "creation/given_tiles.h"
#include "creation/solver_inputs.h"
#include "creation/tile_scripts.h"

#include <gtest/gtest.h>

namespace {

/// Writes the run files of all tiles, as far as the user goes on.
bool write_tiles(const GivenTiles & tiles, RecordedDialogs & dialogs)
{
    RecordedHost parts;
    Host host{ dialogs, parts.progress, parts.settings, parts.launcher, parts.debug };
    Creation creation = tiles.creation();
    write_sensitivity_inputs(creation);
    write_inversion_inputs(creation);
    CoarseMatrix matrix;
    for (const Tile tile : all_tiles(creation.tiles()))
        if (!write_tile_run_files(creation, tile, matrix, host)) return false;
    return true;
}

}

TEST(tile_scripts, given_a_run_then_the_whole_script_or_lines_that_follow_each_other)
{
    for (const auto & [method, type, run, changes, script, lines] : cases_of<6>("tile_scripts.cases")) {
        SCOPED_TRACE(method + " " + type + " " + run + " " + changes);
        const GivenTiles tiles(method, type, run, changes);
        for (const char * matrix : { "qvinv3d.mtx", "QVinv3D_Gzz.mtx" }) // as the first of a script's matrices is called
            tiles.folder.write(std::string("base\\") + matrix, "");
        RecordedDialogs dialogs;
        EXPECT_TRUE(write_tiles(tiles, dialogs));
        EXPECT_EQ(dialogs.questions, Lines());
        const std::string text = tiles.folder.read("inv\\" + script + ".bat");
        if (lines.ends_with(".bat"))
            EXPECT_EQ(text, expected_file(lines));
        else if (lines.starts_with("no "))
            EXPECT_EQ(text.find(lines.substr(3)), text.npos) << text;
        else
            EXPECT_NE(("\n" + text).find("\n" + file_of(lines)), text.npos) << text;
    }
}

TEST(tile_scripts, given_an_earlier_run_then_new_inputs_and_no_restart)
{
    const GivenTiles tiles("4", "1");
    make_folder_path(tiles.folder.file("inv\\tile0203"));
    for (const char * name : { "qvinv3d.kap", "qvinv3d.rho", "qvsen3d.inp", "qvinv3d.restart" })
        tiles.folder.write(std::string("inv\\tile0203\\") + name, "old");
    RecordedDialogs dialogs;
    ASSERT_TRUE(write_tiles(tiles, dialogs));
    EXPECT_FALSE(tiles.folder.has("inv\\tile0203\\qvinv3d.kap"));
    EXPECT_TRUE(tiles.folder.has("inv\\tile0203\\qvinv3d.rho")); // not of a magnetic run
    EXPECT_EQ(tiles.folder.read("inv\\tile0203\\qvsen3d.inp"), tiles.folder.read("inv\\qvsen3d.inp"));
    EXPECT_TRUE(tiles.folder.read("inv\\tile0203\\qvinv3d.inp").starts_with("0 1\r\n2 "));
    EXPECT_TRUE(tiles.folder.read("inv\\tile0203\\qvinv3d.restart").starts_with("1 1\r\n2 "));
}

TEST(tile_scripts, given_a_solver_then_its_inputs_lie_at_the_top_and_in_each_tile)
{
    for (const auto & [method, names] : cases_of<2>("tile_files.cases")) {
        const GivenTiles tiles(method, "1");
        RecordedDialogs dialogs;
        ASSERT_TRUE(write_tiles(tiles, dialogs));
        for (const char * place : { "inv", "inv\\tile0101", "inv\\tile0203" }) {
            std::vector<std::string> found;
            for (const auto & entry : std::filesystem::directory_iterator(host_path(tiles.folder.file(place))))
                if (entry.path().extension() != ".bat" && entry.is_regular_file())
                    found.push_back(entry.path().filename().string());
            std::ranges::sort(found);
            EXPECT_EQ(found, parts_of(names, ' ')) << method << " " << place;
        }
    }
}

TEST(tile_scripts, given_a_user_who_finds_the_coarse_matrix_then_its_folder)
{
    const GivenTiles tiles("4", "1", "", "Tile coarse model: 1");
    RecordedDialogs dialogs;
    dialogs.picks = { tiles.folder.file("else where\\any.mtx") };
    EXPECT_TRUE(write_tiles(tiles, dialogs));
    EXPECT_EQ(dialogs.questions, Lines{ "Select the location of the coarse model MTX file" });
    EXPECT_NE(tiles.folder.read("inv\\tile0203.bat").find("\nqvpre3d \"..\\..\\else where\\qvinv3d.mtx\" tilenull.sus "),
              std::string::npos);
}
