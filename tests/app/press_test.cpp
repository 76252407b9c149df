#include "app/press.h"
#include "app/started_session.h"

TEST(press, given_a_control_of_the_form_then_buttons_and_menu_items_and_nothing_else_have_a_command)
{
    StartedSession s;
    for (const auto & [name, count] : s.session.setup.form.names())
        EXPECT_EQ(has_command(name), name.starts_with("Command_") || (name.starts_with("menu_") && name != "menu_sep_file"))
            << name;
    for (const auto & [control, index] : { std::pair("Command_nothing", 0), { "Text_min_val", 0 }, { "menu_read_file", 5 } })
        EXPECT_THROW(static_cast<void>(press(s.session, control, index, s.host)), SubscriptFault) << control;
    EXPECT_EQ(s.said(), Texts());
}

TEST(press, given_a_fault_within_a_command_then_it_is_shown_once)
{
    StartedSession s;
    s.folder.write("file", "");
    s.control("Text_directory_name").text = "file\\b";
    EXPECT_EQ(press(s.session, "Command_make_folder", 0, s.host), Status::bad);
    EXPECT_EQ(s.said().size(), 1U);
    EXPECT_FALSE(s.session.busy);
}

TEST(press, given_a_command_under_way_then_only_leaving_and_the_check_list_are_open)
{
    StartedSession s;
    s.session.busy = true;
    EXPECT_EQ(press(s.session, "Command_make_folder", 0, s.host), Status::stopped);
    EXPECT_EQ(s.said(), Texts());
    EXPECT_EQ(press(s.session, "Command_checklist", 0, s.host), Status::good);
    EXPECT_TRUE(s.control("Frame_checklist").visible);
    EXPECT_EQ(press(s.session, "menu_exit", 0, s.host), Status::good);
    EXPECT_TRUE(s.session.done && s.session.busy);
}
