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

TEST(data_columns, given_names_and_steps_then_boxes_and_fields_follow)
{
    for (const auto & [name_line, file, steps, seen] : cases_of<4>("data_columns.cases")) {
        SCOPED_TRACE(name_line + " " + file + " " + steps);
        NamedColumns columns(name_line, file);
        columns.act(steps);
        columns.expect(seen);
        EXPECT_EQ(columns.text("Text_data_file"), file == "gone.csv" ? "" : survey);
        EXPECT_TRUE(columns.dialogs.messages.empty());
    }
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

TEST(data_columns, given_a_database_then_its_columns_have_names_even_without_a_name_line)
{
    TemporaryFolder folder;
    StartedSetup started;
    const std::string path = folder.write("a.xyz", "/ X Y Alt\r\nLine 7\r\n1 2 3\r\n");
    started.load_lines("Obs data definitions: 1 0 1 4 1 2 9 3 0 0 0; Obs data file: " + path);
    const char * const boxes[] = { "xpos", "ypos", "zpos", "magpos", "lpos" };
    std::string shown;
    for (const std::string box : boxes) shown += started.text(("Text_UBC_locations_" + box).c_str(), 0) + ";";
    EXPECT_EQ(shown, "X;Y;;Alt;Line;");
    EXPECT_EQ(started.setup.column_name_count[0], 4);
    EXPECT_EQ(started.setup.definition.data_z_column[0], 9);

    started.load_lines("Obs data file: " + folder.file("gone.gdb")); // the check of the definition tells of it
    EXPECT_TRUE(started.dialogs.messages.empty());
    load_location_column_names(started.setup, 0, started.host);
    EXPECT_EQ(started.dialogs.messages, std::vector<std::string>{ "The specified data file does not exist" });
    EXPECT_EQ(started.setup.form("Combo_names", 0).items.size(), 1U);
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
