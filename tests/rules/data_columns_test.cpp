#include "fakes/temporary_folder.h"
#include "rules/data_columns.h"
#include "started_setup.h"

#include <gtest/gtest.h>

namespace {

/// A started setup whose slot 0 is a file with names in its second line.
struct NamedColumns : StartedSetup {
    TemporaryFolder folder;
    InversionDefinition record;

    explicit NamedColumns(std::int32_t name_line = 2)
    {
        record.data_file[0] = folder.write("survey.csv", "made in 2020\r\n/East, North,Alt,\"TMI\",Line\r\n1,2,3,4,5\r\n");
        record.data_name_line[0] = name_line;
        record.data_z_column[0] = 9;
        record.data_line_column = 5;
        load(record);
    }
};

TEST(data_columns, given_a_line_of_names_then_the_boxes_show_names_and_the_fields_keep_their_numbers)
{
    NamedColumns columns;
    EXPECT_EQ(columns.text("Text_UBC_locations_xpos"), "East");
    EXPECT_EQ(columns.text("Text_UBC_locations_zpos"), ""); // beyond the names
    EXPECT_EQ(columns.text("Text_UBC_locations_magpos"), "TMI");
    EXPECT_EQ(columns.setup.definition.data_z_column[0], 9);
    EXPECT_EQ(columns.text("Text_data_file"), "made in 2020\r\n/East, North,Alt,\"TMI\",Line\r\n1,2,3,4,5\r\n");
}

TEST(data_columns, given_a_name_line_beyond_the_end_then_the_last_line_holds_the_names)
{
    EXPECT_EQ(NamedColumns(50).text("Text_UBC_locations_magpos"), "4");
    NamedColumns without_file;
    without_file.record.data_file[0] = without_file.folder.file("gone.csv");
    without_file.load(without_file.record);
    EXPECT_EQ(without_file.text("Text_UBC_locations_xpos"), "");
    EXPECT_EQ(without_file.setup.definition.data_x_column[0], 1);
    EXPECT_TRUE(without_file.dialogs.messages.empty());
}

TEST(data_columns, given_a_name_picked_then_the_open_box_takes_it)
{
    NamedColumns columns;
    open_column_names(columns.setup, "Text_UBC_locations_zpos", 0);
    EXPECT_TRUE(columns.setup.form("Combo_names", 0).visible);
    EXPECT_EQ(columns.setup.form("Combo_names", 0).position, 0);
    columns.pick("Combo_names", 3);
    EXPECT_FALSE(columns.setup.form("Combo_names", 0).visible);
    EXPECT_EQ(columns.text("Text_UBC_locations_zpos"), "Alt");
    EXPECT_EQ(columns.setup.definition.data_z_column[0], 3);
    EXPECT_EQ(columns.setup.definition.data_x_column[0], 1);
}

TEST(data_columns, given_typing_then_only_a_slot_without_names_takes_positive_numbers)
{
    NamedColumns columns;
    columns.type("Text_UBC_locations_xpos", "7");
    EXPECT_EQ(columns.setup.definition.data_x_column[0], 1);

    columns.type("Text_UBC_locations_name_line", "0");
    EXPECT_EQ(columns.text("Text_UBC_locations_xpos"), "1");
    EXPECT_EQ(columns.text("Text_UBC_locations_zpos"), "9");
    columns.type("Text_UBC_locations_xpos", "7");
    for (const char * text : { "0", "-1", "", "East" }) columns.type("Text_UBC_locations_xpos", text);
    EXPECT_EQ(columns.setup.definition.data_x_column[0], 7);
    columns.type("Text_UBC_locations_magpos", "8", 2);
    EXPECT_EQ(columns.setup.definition.data_value_column, (std::array<std::int32_t, 3>{ 4, 0, 8 }));

    columns.type("Text_UBC_locations_name_line", "2");
    EXPECT_EQ(columns.text("Text_UBC_locations_ypos"), "North");
}

TEST(data_columns, given_a_line_number_that_is_none_then_its_message_and_no_change)
{
    StartedSetup started;
    for (const char * control : { "Text_UBC_locations_nhead", "Text_UBC_locations_nstep" })
        for (const char * text : { "5", "x", "0" }) started.type(control, text, 1);
    const std::vector<std::string> expected = { "The number of the first data line is not numeric",
                                                "The number of the first data line must be positive",
                                                "The data read increment is not numeric",
                                                "The data read increment must be positive" };
    EXPECT_EQ(started.dialogs.messages, expected);
    EXPECT_EQ(started.setup.definition.data_first_line[1], 5);
    EXPECT_EQ(started.setup.definition.data_read_step[1], 5);
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

}
