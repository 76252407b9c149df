#include "desktop/driven_window.h"

#include <QCheckBox>

namespace {

/// The files of the folder `made` against those that the batch program makes, in a folder of the same name, of a definition.
FileNames differing_from_batch(DrivenWindow & given, const std::string & made, const std::string & definition,
                               std::vector<std::string> more = {})
{
    const std::filesystem::path out = host_path(given.folder.file(made)), clicked = out.string() + "_clicked";
    std::filesystem::rename(out, clicked);
    std::vector<std::string> arguments = { "create", host_file(given.folder, definition), "--output", out.string() };
    arguments.insert(arguments.end(), more.begin(), more.end());
    const BatchRun run = run_batch(arguments);
    EXPECT_EQ(run.status, 0) << run.errors;
    const Files files = tree_of(out);
    EXPECT_GT(files.size(), 10U);
    return differing(tree_of(clicked), files);
}

/// The window with the bundled survey open, ready to be created in the folder "out".
struct Osborne : DrivenWindow {
    Osborne()
    {
        for (const char * const file : { "osborne.inp", "osborne_10km_mag.csv", "osborne_10km_topo_estimated.xyz" })
            take(std::string("examples/osborne/") + file);
        window.open_definition(folder.file("osborne.inp"));
        type_into("Text_directory_name", "out");
    }
    bool is_whole() { return folder.has("out\\topo.dat") && folder.has("out\\run_inversion.bat") && folder.has("out\\mag.obs"); }
    void create() { press("Command_create_inversion_0"); }
};

}

TEST(creation, given_an_empty_form_when_a_survey_is_filled_in_then_the_folder_is_that_of_the_batch_program)
{
    DrivenWindow given;
    given.take("examples/osborne/osborne_10km_mag.csv");
    given.take("examples/osborne/osborne_10km_topo_estimated.xyz");
    given.dialogs.picks = { given.folder.path(), given.folder.file("osborne_10km_mag.csv"),
                            given.folder.file("osborne_10km_topo_estimated.xyz"), given.folder.file("saved") };
    given.choose_menu("menu_working_directory");
    given.choose_in("Combo_data_type_0", 1);
    given.press("browse_Text_data_locations_0");
    given.type_into("Text_UBC_locations_name_line_0", "1");
    for (const auto & [box, column] : { std::pair("xpos_0", 2), { "ypos_0", 3 }, { "zpos_0", 6 }, { "magpos_0", 7 } }) {
        given.press(std::string("Text_UBC_locations_") + box);
        given.choose_in("Combo_names_0", column);
    }
    given.choose_in("Combo_UBC_elevation_offset", 1);
    given.press("browse_Text_data_locations_1");
    given.type_into("Text_UBC_locations_nhead_1", "1");
    given.press("Command_set_limits_from_file_0");
    for (const auto & [box, text] : { std::pair("Text_max_val_2", "350"),
                                      { "Text_min_val_2", "-1650" },
                                      { "Text_percent_error", "2" },
                                      { "Text_error_floor", "5" },
                                      { "Text_mag_inclination", "-53.31" },
                                      { "Text_mag_declination", "6.66" },
                                      { "Text_mag_intensity", "52055" } })
        given.type_into(box, text);
    given.press("Command_update_3");
    given.type_into("Text_directory_name", "osborne");
    given.press("Command_create_inversion_0");
    EXPECT_EQ(given.dialogs.said(), Texts{ "Output complete" });
    EXPECT_FALSE(given.window.isWindowModified());
    given.choose_menu("menu_save");
    EXPECT_EQ(given.dialogs.said(), Texts());
    EXPECT_EQ(differing_from_batch(given, "osborne", "saved.inp"), FileNames());
    EXPECT_EQ(given.folder.read("saved.inp"), given.folder.read("osborne_clicked\\inversion.inp"));
}

TEST(creation, given_stop_in_mid_run_then_it_ends_and_says_so_and_the_window_can_be_used)
{
    Osborne given;
    meanwhile([&given] {
        if (!given.stop().isVisible()) return false;
        EXPECT_FALSE(given.widget("Command_create_inversion_0").isEnabled());
        EXPECT_FALSE(given.widget("Text_directory_name").isEnabled());
        click(given.stop());
        return true;
    });
    given.create();
    EXPECT_EQ(given.dialogs.said(), Texts());
    EXPECT_TRUE(given.words().starts_with("Stopped")) << given.words();
    EXPECT_FALSE(given.is_whole());
    EXPECT_FALSE(given.stop().isVisible());
    given.create();
    EXPECT_EQ(given.dialogs.said(), Texts{ "Output complete" });
    EXPECT_TRUE(given.words().starts_with("Created the inversion in ")) << given.words();
    EXPECT_EQ(differing_from_batch(given, "out", "osborne.inp"), FileNames());
}

TEST(creation, given_the_window_closed_in_mid_run_then_it_stops_and_closes_only_when_the_answer_is_yes)
{
    Osborne given;
    for (const bool yes : { false, true }) {
        given.dialogs.yes = yes;
        meanwhile([&given] {
            if (!given.stop().isVisible()) return false;
            given.window.close();
            EXPECT_TRUE(given.window.isVisible());
            return true;
        });
        given.create();
        EXPECT_EQ(given.dialogs.asked(), Texts{ "Work is under way. Stop it and close?" });
        EXPECT_EQ(given.dialogs.said(), yes ? Texts() : Texts{ "Output complete" });
        EXPECT_EQ(given.is_whole(), !yes);
        EXPECT_EQ(given.window.isVisible(), !yes);
        std::filesystem::remove_all(host_path(given.folder.file("out")));
    }
}

TEST(creation, given_a_base_mesh_when_the_tiles_are_looked_at_in_the_pause_then_the_folder_is_that_of_the_batch_program)
{
    DrivenWindow given;
    for (const auto & input : std::filesystem::directory_iterator(PROJECT_FOLDER "/tests/worked/tiles/input"))
        given.take("tests/worked/tiles/input/" + input.path().filename().string());
    given.dialogs.picks = { given.folder.file("base.msh"), given.folder.file("base.sus"), given.folder.file("own.inp") };
    given.choose_menu("menu_define_inversion_mode_1");
    given.choose_menu("menu_read_file_0");
    EXPECT_EQ(given.dialogs.said(), Texts{ "The mesh/model files have been loaded and refinement mode is enabled" });
    given.type_into("Text_directory_name", "out");
    given.press("Command_create_inversion_0");
    EXPECT_FALSE(given.widget("Tab_inversion").isVisible());
    EXPECT_FALSE(given.widget("Command_done_tiling_layout").isVisible());
    EXPECT_FALSE(given.folder.has("out\\mag.obs"));

    const QPoint tile = given.place_of("T0201 ");
    ASSERT_FALSE(tile.isNull());
    click(given.widget("Picture_tiling_layout"), tile);
    auto & skipped = given.widget<QCheckBox>("Check_do_tile");
    EXPECT_FALSE(skipped.isChecked());
    click(skipped, { 10, skipped.height() / 2 });
    EXPECT_TRUE(skipped.isChecked());
    given.choose_in("Combo_tile_order_0", 1);
    given.choose_in("Combo_tile_order_2", 1);
    given.dialogs.asked();
    given.dialogs.yes = true;
    given.press("Command_continue_tile");
    EXPECT_EQ(given.dialogs.asked().front(), "Select the location of the coarse model MTX file");
    EXPECT_EQ(given.dialogs.said(), Texts{ "Output complete" });
    EXPECT_TRUE(given.widget("Tab_inversion").isVisible());
    EXPECT_FALSE(given.folder.has("out\\T0201\\mesh"));
    EXPECT_EQ(
        differing_from_batch(given, "out", "own.inp",
                             { "--base-mesh", host_file(given.folder, "base.msh"), "--base-model",
                               host_file(given.folder, "base.sus"), "--skip-tile", "02,01", "--tile-order", "1,0,1", "--yes" }),
        FileNames());
}
