#include "app/press.h"
#include "app/shell_commands.h"
#include "app/started_session.h"
#include "batch/tiny_survey.h"
#include "rules/change_rules.h"
#include "rules/file_boxes.h"

namespace {

/// A started session with the tiny survey at hand.
struct SessionWithSurvey : StartedSession {
    TinySurvey survey;
    const std::string definition = survey.folder.file("tiny.inp");

    Status read(const std::string & path, int index = 0)
    {
        dialogs.picks = { path };
        return press_read_file(session, index, host);
    }
};

}

TEST(read_file, given_a_definition_picked_then_it_is_shown_and_the_whole_of_one_is_recent)
{
    SessionWithSurvey s;
    EXPECT_EQ(press_read_file(s.session, 0, s.host), Status::stopped); // cancelled
    EXPECT_EQ(s.read(s.folder.file("gone.inp")), Status::bad);
    EXPECT_EQ(s.said(), Texts{ "That file does not exist" });
    EXPECT_EQ(s.control("Form_mag3d").caption, "3D Mag/Gravity Inversion Setup Utility");
    EXPECT_EQ(current_folder(), s.folder.path());

    EXPECT_EQ(s.read(s.definition, 4), Status::good);
    EXPECT_EQ(s.session.recent_files, Texts());
    EXPECT_EQ(s.read(s.definition), Status::good);
    EXPECT_EQ(s.control("Form_mag3d").caption, "3D inversion setup: tiny.inp");
    EXPECT_EQ(s.session.recent_files, Texts{ s.definition });
    EXPECT_EQ(current_folder(), s.survey.folder.path());
}

TEST(recent_file, given_one_that_has_vanished_then_it_is_looked_for)
{
    SessionWithSurvey s;
    add_file_to_MRU(s.session, "tiny.inp", s.host); // in the current folder, where it is not
    EXPECT_EQ(press_recent_file(s.session, 0, s.host), Status::stopped);
    EXPECT_EQ(s.dialogs.questions, Texts{ "Locate the missing file: QVinv3D Input Parameter File" });
    EXPECT_EQ(s.said(), Texts());
    s.dialogs.picks = { s.definition };
    EXPECT_EQ(press_recent_file(s.session, 0, s.host), Status::good);
    EXPECT_EQ(s.said(), Texts{ "The definitions have been loaded" });
    EXPECT_EQ(press_recent_file(s.session, 1, s.host), Status::good); // now the current folder has it
    EXPECT_EQ(s.session.recent_files, (Texts{ s.definition, "tiny.inp" }));
    EXPECT_THROW(static_cast<void>(press_recent_file(s.session, 2, s.host)), SubscriptFault);
}

TEST(save, given_a_definition_then_it_is_checked_before_the_dialog_and_saved_where_picked)
{
    SessionWithSurvey s;
    EXPECT_EQ(press_save(s.session, s.host), Status::bad); // an empty form has no data
    EXPECT_EQ(s.said().size(), 1U);
    EXPECT_EQ(s.dialogs.questions, Texts());
    EXPECT_EQ(s.read(s.definition), Status::good);
    s.dialogs.picks = { s.folder.file("mine"), s.folder.file("mine") };
    EXPECT_EQ(press_save(s.session, s.host), Status::good);
    EXPECT_EQ(s.folder.read("mine.inp").substr(0, 13), "Version 3.0\r\n");
    EXPECT_EQ(s.session.recent_files, (Texts{ s.folder.file("mine.inp"), s.definition }));
    EXPECT_EQ(current_folder(), s.survey.folder.path());
    s.folder.write("mine.inp", "other");
    EXPECT_EQ(press_save(s.session, s.host), Status::bad); // the question is answered No
    EXPECT_EQ(s.folder.read("mine.inp"), "other");
}

TEST(folder_boxes, given_what_is_done_with_them_then_folders_are_made_and_the_boxes_follow_the_current_one)
{
    StartedSession s;
    Control &drive = s.control("Drive1"), &location = s.control("Dir1");
    s.control("Text_directory_name").text = "a\\z";
    for (int time = 0; time < 2; ++time) EXPECT_EQ(press_make_folder(s.session, s.host), Status::good); // one that is there stays
    s.folder.write("a\\file", "");
    s.dialogs.picks = { s.folder.file("a") };
    EXPECT_EQ(press_working_directory(s.session, s.host), Status::good);
    EXPECT_EQ(location.text, s.folder.file("a"));
    ASSERT_EQ(location.items.size(), 1U);
    EXPECT_EQ(location.items[0].text, "z");
    location.text = s.folder.path();
    EXPECT_EQ(press_set_current_folder(s.session, s.host), Status::good);
    EXPECT_EQ(current_folder(), s.folder.path());

    drive.text = "D:";
    form_changed(s.session.setup, "Drive1", 0, s.host);
    EXPECT_EQ(location.text, "D:\\");
    s.dialogs.picks = { s.folder.file("a") };
    pick_file(s.session.setup, "Dir1", 0, s.host);
    EXPECT_EQ(location.text, s.folder.file("a"));
    s.control("Text_directory_name").text = " ";
    for (Control * box : { &location, &drive, &drive }) {
        EXPECT_EQ(press_make_folder(s.session, s.host), Status::bad);
        box->text = " ";
    }
    EXPECT_EQ(s.said(), (Texts{ "No output directory name has been specified", "No file location has been selected",
                                "No drive has been selected" }));
}

TEST(define_transform, given_one_defined_then_the_record_and_the_button_follow)
{
    StartedSession s;
    EXPECT_EQ(press_define_transform(s.session, s.host), Status::stopped);
    for (const double origin : { 5.0, 0.0 }) {
        s.dialogs.defined_transform = PointTransform{ .x_origin = origin };
        EXPECT_EQ(press_define_transform(s.session, s.host), Status::good);
        EXPECT_EQ(s.session.setup.definition.coordinate_transform.x_origin, origin);
        EXPECT_EQ(s.control("Command_define_coordinate_transform").back_colour, origin > 0 ? 255 : Control::window_colour);
    }
}

TEST(calculate_igrf, given_the_answer_then_a_computed_field_is_copied_or_the_record_is_as_it_was)
{
    StartedSession s;
    InversionDefinition & definition = s.session.setup.definition;
    const InversionDefinition before = definition;
    EXPECT_EQ(press(s.session, "Command_calculate_IGRF", 0, s.host), Status::stopped); // cancelled
    IgrfRecord field;
    s.dialogs.defined_field = field; // closed with nothing computed
    EXPECT_EQ(press(s.session, "Command_calculate_IGRF", 0, s.host), Status::stopped);
    EXPECT_EQ(s.dialogs.questions, Texts());

    s.session.igrf.name = "before";
    field.name = "after", field.computed = true;
    field.inclination = -53.3149, field.declination = 6.6585, field.intensity = 52055.1236;
    s.dialogs.defined_field = field;
    EXPECT_EQ(press(s.session, "Command_calculate_IGRF", 0, s.host), Status::stopped);
    EXPECT_EQ(s.dialogs.questions, Texts{ "Copy the IGRF values?" });
    EXPECT_EQ(s.session.igrf.name, "before");
    EXPECT_EQ(definition, before);

    s.dialogs.yes = true;
    EXPECT_EQ(press(s.session, "Command_calculate_IGRF", 0, s.host), Status::good);
    EXPECT_EQ(s.session.igrf.name, "after");
    EXPECT_EQ(Texts({ s.control("Text_mag_inclination").text, s.control("Text_mag_declination").text,
                      s.control("Text_mag_intensity").text }),
              Texts({ "-53.31", "6.659", "52055.124" }));
    EXPECT_EQ(definition.mag_inclination, -53.3149F);
    EXPECT_EQ(definition.mag_declination, 6.6585F);
    EXPECT_EQ(definition.mag_intensity, 52055.1236F);
    EXPECT_EQ(s.said(), Texts());
}
