#include "app/start_command.h"
#include "app/started_session.h"
#include "fakes/case_table.h"

TEST(start, given_method_mode_and_variation_then_the_script_of_the_folder_is_started_once)
{
    for (const auto & [method, refinement_mode, variation, script] : cases_of<4>("start_scripts.cases")) {
        SCOPED_TRACE(script + " " + method);
        StartedSession s;
        make_folder_path(s.folder.file("run"));
        s.session.setup.definition.inversion_method = number_in(method);
        s.session.setup.refinement_mode = number_in(refinement_mode);
        s.control("Check_generate_inversion_variation").on = variation == "yes";
        s.control("Text_directory_name").text = " run ";
        EXPECT_EQ(press_start_inversion(s.session, s.host), Status::bad); // the script is not there yet
        s.folder.write("run\\" + script, "");
        EXPECT_EQ(press_start_inversion(s.session, s.host), Status::good);
        EXPECT_EQ(s.launcher.started, Texts{ s.folder.file("run\\") + script });
        EXPECT_EQ(s.said(), (Texts{ "The inversion batch file does not exist", "The 3D inversion process has been started" }));
        EXPECT_EQ(current_folder(), s.folder.path());
    }
}

TEST(start, given_the_folder_boxes_then_the_first_that_is_missing_is_named)
{
    for (const auto & [drive, location, name, message] : cases_of<4>("folder_boxes.cases")) {
        StartedSession s;
        make_folder_path(s.folder.file("run"));
        const std::string script = s.folder.write("run\\run_inversion.bat", "");
        s.control("Drive1").text = drive;
        s.control("Dir1").text = location;
        s.control("Text_directory_name").text = name;
        const Status status = press_start_inversion(s.session, s.host);
        EXPECT_EQ(s.said(), Texts{ message });
        EXPECT_EQ(s.launcher.started, status == Status::good ? Texts{ script } : Texts());
    }
}
