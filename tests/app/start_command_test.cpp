#include "app/start_command.h"
#include "app/started_session.h"

TEST(start, given_method_mode_and_variation_then_the_script_of_the_folder_is_started_once)
{
    const struct {
        int method, refinement_mode;
        bool variation;
        const char * script;
    } cases[] = {
        { 0, 0, true, "run_maginv3d.bat" }, { 3, 0, true, "run_maginv3d.bat" },   { 6, 0, true, "run_maginv3d.bat" },
        { 1, 0, true, "run_gzinv3d.bat" },  { 2, 0, true, "run_gzinv3d.bat" },    { 5, 0, true, "run_gzinv3d.bat" },
        { 4, 0, true, "run_qvinv3d.bat" },  { 0, 0, false, "run_inversion.bat" }, { 4, 0, false, "run_inversion.bat" },
        { 4, 1, false, "iter_all.bat" },    { 1, 1, true, "iter_all.bat" },
    };
    const char * scripts[] = { "run_maginv3d.bat", "run_gzinv3d.bat", "run_qvinv3d.bat", "run_inversion.bat", "iter_all.bat" };
    for (const auto & [method, refinement_mode, variation, script] : cases) {
        SCOPED_TRACE(std::string(script) + " " + std::to_string(method));
        StartedSession started;
        make_folder_path(started.folder.file("run"));
        for (const char * name : scripts) started.folder.write(std::string("run\\") + name, "");
        started.session.setup.definition.inversion_method = method;
        started.session.setup.refinement_mode = refinement_mode;
        started.control("Check_generate_inversion_variation").on = variation;
        started.control("Text_directory_name").text = " run ";
        const auto press = [&] { return press_start_inversion(started.session, started.host); };
        EXPECT_EQ(press(), Status::good);
        EXPECT_EQ(started.launcher.started, Texts{ started.folder.file("run\\") + script });
        EXPECT_EQ(started.said(), Texts{ "The 3D inversion process has been started" });
        EXPECT_EQ(current_folder(), started.folder.path());

        delete_file(started.folder.file("run\\") + script);
        EXPECT_EQ(press(), Status::bad);
        EXPECT_EQ(started.said(), Texts{ "The inversion batch file does not exist" });
        EXPECT_EQ(started.launcher.started.size(), 1U);
    }
}

TEST(start, given_the_folder_boxes_then_the_first_that_is_missing_is_named)
{
    const struct {
        const char *drive, *location, *name, *message;
    } cases[] = {
        { " ", "", "", "No drive has been selected" },
        { "\\", " ", "run", "No file location has been selected" },
        { "\\", ".", "gone", "The inversion batch file does not exist" },
        { "\\", ".", "run\\", "The 3D inversion process has been started" },
        { "\\", ".\\run\\", "", "The 3D inversion process has been started" }, // the location itself
    };
    for (const auto & [drive, location, name, message] : cases) {
        SCOPED_TRACE(message);
        StartedSession started;
        make_folder_path(started.folder.file("run"));
        started.folder.write("run\\run_inversion.bat", "");
        started.control("Drive1").text = drive;
        started.control("Dir1").text = location;
        started.control("Text_directory_name").text = name;
        static_cast<void>(press_start_inversion(started.session, started.host));
        EXPECT_EQ(started.said(), Texts{ message });
        for (const std::string & script : started.launcher.started)
            EXPECT_EQ(script, started.folder.file("run\\run_inversion.bat"));
    }
}
