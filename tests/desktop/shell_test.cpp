#include "app/file_settings.h"
#include "desktop/driven_window.h"

#include <QDropEvent>
#include <QMimeData>

namespace {

const std::string unsaved = "The definition has changes that have not been saved. Go on without them?";

/// Drags a file over a widget of the window and lets it go there.
void drop(DrivenWindow & given, QWidget & widget, const std::string & path)
{
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile(QString::fromStdString(host_path(path).string())) });
    const QPoint place = widget.mapTo(&given.window, widget.rect().center());
    ASSERT_FALSE(widget.acceptDrops()) << "the widget itself would take the address for a text";
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&given.window, &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&given.window, &event);
}

/// What the recent files in the menu are.
Texts recent_files(DrivenWindow & given)
{
    Texts files;
    for (int i = 0; i < 6; ++i) {
        const QAction & item = given.widget<QAction>("menu_file_list_" + std::to_string(i));
        if (item.isVisible()) files.push_back(item.text().toStdString());
    }
    return files;
}

}

TEST(settings, given_a_restart_then_recent_files_and_folder_and_size_are_as_they_were)
{
    const TemporaryFolder kept;
    const TinySurvey survey;
    FileSettings settings(kept.file("settings.json"));
    const QSize size(1110, 720);
    {
        DrivenWindow given(&settings);
        EXPECT_EQ(recent_files(given), Texts());
        given.window.open_definition(survey.folder.file("tiny.inp"));
        given.window.resize(size);
        ASSERT_TRUE(comes_true([&] { return given.window.size() == size; }));
        ASSERT_TRUE(given.window.close());
    }
    DrivenWindow given(&settings);
    EXPECT_EQ(given.window.size(), size);
    EXPECT_EQ(recent_files(given), Texts{ "1: " + survey.folder.file("tiny.inp") });
    EXPECT_EQ(current_folder(), survey.folder.path());
    given.choose_menu("menu_file_list_0");
    EXPECT_EQ(given.dialogs.said(), Texts{ "The definitions have been loaded" });
    EXPECT_EQ(given.text("Text_data_locations_0"), "data.csv");
}

TEST(debug_log, given_one_then_it_tells_where_the_program_runs_and_what_it_does)
{
    const TemporaryFolder folder;
    KeptSettings settings;
    RecordedLauncher launcher;
    RecordedDialogs dialogs;
    MainWindow window(settings, launcher, &dialogs, { 1, folder.file("log.txt") });
    const std::string log = folder.read("log.txt");
    const std::size_t computer = log.find("\r\n2 : computer name: ");
    EXPECT_TRUE(log.starts_with("Debug for ") && log.find("\r\n1 : user name: ") < computer && computer < log.size()) << log;
    EXPECT_EQ(dialogs.messages, Texts{ "Debug started: " + folder.file("log.txt") });
}

TEST(changes, given_some_that_are_not_saved_then_closing_and_opening_ask_and_a_save_ends_it)
{
    DrivenWindow given;
    given.open_tiny();
    EXPECT_EQ(given.dialogs.asked(), Texts());
    for (const char * const item : { "menu_read_file_0", "menu_file_list_0", "menu_define_inversion_mode_1", "menu_exit" }) {
        given.type_into("Text_percent_error", "3");
        given.choose_menu(item);
        EXPECT_EQ(given.dialogs.asked(), Texts{ unsaved }) << item;
        EXPECT_TRUE(given.window.isVisible());
        EXPECT_EQ(given.text("Text_percent_error"), "3");
    }
    given.dialogs.picks = { given.folder.file("saved") };
    given.choose_menu("menu_save");
    given.dialogs.asked();
    given.choose_menu("menu_read_file_0"); // and is cancelled
    EXPECT_EQ(given.dialogs.asked(), Texts{ "Select the inversion definition file" });

    given.press("Command_set_limits_from_file_0");
    EXPECT_TRUE(given.window.isWindowModified());
    given.dialogs.yes = true;
    given.press("Command_done_mag3d");
    EXPECT_EQ(given.dialogs.asked(), Texts{ unsaved });
    EXPECT_FALSE(given.window.isVisible());
}

TEST(dropped_files, given_a_definition_then_it_is_opened_and_any_other_goes_into_the_box_below_or_the_page)
{
    const TinySurvey survey;
    DrivenWindow given;
    drop(given, given.in_sight("Combo_inversion_method"), survey.folder.file("tiny.inp"));
    EXPECT_EQ(given.text("Text_data_locations_0"), "data.csv");
    EXPECT_FALSE(given.window.isWindowModified());
    const std::string file = given.folder.write("other.csv", "1 2 3 4\r\n");
    drop(given, given.in_sight("Text_percent_error"), file);
    EXPECT_EQ(given.text("Text_data_locations_0"), file);
    drop(given, given.in_sight("Text_UBC_locations_nhead_1"), file);
    EXPECT_EQ(given.text("Text_data_locations_1"), file);
    drop(given, given.in_sight("Text_initial_file"), file);
    EXPECT_EQ(given.text("Text_initial_file"), file);
    EXPECT_TRUE(given.window.isWindowModified());
    EXPECT_EQ(given.dialogs.said(), Texts());
}
