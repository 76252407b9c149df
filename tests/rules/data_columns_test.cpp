#include "rules/data_columns.h"
#include "rules/started_setup.h"

#include <gtest/gtest.h>

namespace {

const char * const survey = "made in 2020\r\n/East, North,Alt,\"TMI\",Line\r\n1,2,3,4,5\r\n";

/// A started setup whose slot 0 is a file with names in its second line.
struct NamedColumns : StartedSetup {
    TemporaryFolder folder;

    explicit NamedColumns(const std::string & name_line = "2", const std::string & file = "survey.csv")
    {
        folder.write("survey.csv", survey);
        load_lines("Obs data definitions: 2 " + name_line + " 1 5 1 2 9 4 0 0 0; Obs data file: " + folder.file(file));
    }
};

}

TEST(data_columns, given_a_line_of_names_then_the_boxes_show_names_and_the_fields_keep_their_numbers)
{
    NamedColumns columns;
    columns.expect("Text_UBC_locations_xpos = East; Text_UBC_locations_magpos = TMI");
    columns.expect("Text_UBC_locations_zpos =; Obs data definitions: 2 2 1 5 1 2 9 4 0 0 0"); // beyond the names
    EXPECT_EQ(columns.text("Text_data_file"), survey);
    NamedColumns("50").expect("Text_UBC_locations_magpos = 4"); // beyond the end: the last line holds the names
    NamedColumns without_file("2", "gone.csv");
    without_file.expect("Text_UBC_locations_xpos =; Obs data definitions: 2 2 1 5 1 2 9 4 0 0 0");
    EXPECT_TRUE(without_file.dialogs.messages.empty());
}

TEST(data_columns, given_a_name_picked_then_the_open_box_takes_it)
{
    NamedColumns columns;
    open_column_names(columns.setup, "Text_UBC_locations_zpos", 0);
    EXPECT_EQ(columns.setup.form["Combo_names"].position, 0);
    columns.expect("Combo_names shown");
    columns.act("Combo_names = 3");
    columns.expect("Combo_names hidden; Text_UBC_locations_zpos = Alt; Obs data definitions: 2 2 1 5 1 2 3 4 0 0 0");
}

TEST(data_columns, given_typing_then_only_a_slot_without_names_takes_positive_numbers)
{
    NamedColumns columns;
    columns.act("Text_UBC_locations_xpos = 7");
    columns.expect("Obs data definitions: 2 2 1 5 1 2 9 4 0 0 0");
    columns.act("Text_UBC_locations_name_line = 0");
    columns.expect("Text_UBC_locations_xpos = 1; Text_UBC_locations_zpos = 9");
    columns.act("Text_UBC_locations_xpos = 7");
    for (const char * text : { "= 0", "= -1", "=", "= East" }) columns.act(std::string("Text_UBC_locations_xpos ") + text);
    columns.act("Text_UBC_locations_magpos 2 = 8");
    columns.expect("Obs data definitions: 2 0 1 5 7 2 9 4 0 0 8");
    columns.act("Text_UBC_locations_name_line = 2");
    columns.expect("Text_UBC_locations_ypos = North");
}

TEST(data_columns, given_a_line_number_that_is_none_then_its_message_and_no_change)
{
    StartedSetup started;
    for (const std::string box : { "Text_UBC_locations_nhead 1", "Text_UBC_locations_nstep 1" })
        for (const char * text : { " = 5", " = x", " = 0" }) started.act(box + text);
    EXPECT_EQ(started.dialogs.messages,
              (std::vector<std::string>{ "The number of the first data line is not numeric",
                                         "The number of the first data line must be positive",
                                         "The data read increment is not numeric", "The data read increment must be positive" }));
    started.expect("Topo data definitions: 5 0 5 1 2 3");
}

TEST(data_file, given_its_name_then_its_kind_is_settled)
{
    TemporaryFolder folder;
    StartedSetup started;
    auto & record = started.setup.definition;
    record.data_file[0] = folder.write("a.gdb", "x");
    record.data_file[1] = folder.write("t.xyz", "1 2 3\n");
    record.data_file[2] = folder.write("g.grd", "DSAA\n2 2\n0 1\n0 1\n0 1\n1 1\n1 1\n");
    for (int slot : { 0, 1, 2 }) display_data_file(started.setup, slot);
    EXPECT_EQ(record.data_kind, (std::array<std::int32_t, 6>{ 2, 0, 1, 0, 0, 0 }));
    EXPECT_EQ(started.text("Text_data_file", 0), "");
    EXPECT_EQ(started.text("Text_data_file", 1), "1 2 3\r\n");
}
