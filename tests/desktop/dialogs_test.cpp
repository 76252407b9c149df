#include "desktop/driven_window.h"
#include "desktop/igrf_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <type_traits>

namespace {

/// Does `steps` in the dialog that opens next over the window, or over another dialog.
template <class Dialog = QDialog>
void in_next_dialog(const std::type_identity_t<std::function<void(Dialog &)>> & steps)
{
    meanwhile([steps, over = QApplication::activeModalWidget()] {
        auto * const dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == over || !dialog->isActiveWindow()) return false;
        steps(*dialog);
        return true;
    });
}

template <class Widget = QWidget>
Widget & part(QDialog & dialog, const char * name)
{
    auto * const found = dialog.findChild<Widget *>(QString::fromLatin1(name));
    if (found == nullptr) throw std::runtime_error(std::string("no widget ") + name);
    return *found;
}

void answer(QMessageBox & box, const std::string & text, QMessageBox::StandardButton button)
{
    EXPECT_EQ(box.text().toStdString(), text);
    click(*box.button(button));
}

}

TEST(transform_dialog, given_a_bad_scale_then_it_stays_and_a_good_one_is_taken_over_and_cancel_changes_nothing)
{
    DrivenWindow given(nullptr, DrivenWindow::Boxes::real);
    const PointTransform & transform = given.window.session().setup.definition.coordinate_transform;
    in_next_dialog([](QDialog & dialog) {
        type_over(part(dialog, "Text_rotang"), "30");
        type_over(part(dialog, "Text_xscale"), "0");
        in_next_dialog<QMessageBox>(
            [](QMessageBox & box) { answer(box, "Scale for current x axis must be non-zero", QMessageBox::Ok); });
        click(part(dialog, "Command_done"));
        EXPECT_TRUE(dialog.isVisible());
        type_over(part(dialog, "Text_xscale"), "2");
        click(part(dialog, "Command_done"));
    });
    given.press("Command_define_coordinate_transform");
    EXPECT_EQ(transform.rotation, 30);
    EXPECT_EQ(transform.x_scale, 2);
    EXPECT_TRUE(transform.in_use && given.window.isWindowModified());

    in_next_dialog([](QDialog & dialog) {
        EXPECT_EQ(part<QLineEdit>(dialog, "Text_xscale").text().toStdString(), "2.00000000");
        auto & pages = *part<QTabWidget>(dialog, "Tab_transform_type").tabBar();
        in_next_dialog<QMessageBox>([](QMessageBox & box) { answer(box, "Rotation angle must be numeric", QMessageBox::Ok); });
        type_over(part(dialog, "Text_rotang"), "east");
        click(pages, pages.tabRect(1).center());
        EXPECT_EQ(pages.currentIndex(), 0);
        type_over(part(dialog, "Text_rotang"), "40");
        click(pages, pages.tabRect(1).center());
        EXPECT_EQ(pages.currentIndex(), 1);
        click(part(dialog, "Command_cancel"));
    });
    given.press("Command_define_coordinate_transform");
    EXPECT_EQ(transform.rotation, 30);
}

TEST(igrf_dialog, given_a_place_then_its_field_is_saved_under_a_name_and_copied_and_every_control_has_a_widget)
{
    DrivenWindow given(nullptr, DrivenWindow::Boxes::real);
    in_next_dialog([](QDialog & dialog) {
        EXPECT_EQ(dynamic_cast<IgrfDialog &>(dialog).view().unjoined(), QStringList());
        EXPECT_FALSE(part(dialog, "Command_save_igrf").isEnabled());
        EXPECT_FALSE(part(dialog, "Command_survey_centre").isVisible());
        EXPECT_TRUE(part(dialog, "Text_IGRF_date").hasFocus());
        type_over(part(dialog, "Text_IGRF_date"), "1/7/1990");
        type_over(part(dialog, "Text_IGRF_latitude"), "-22.09");
        type_over(part(dialog, "Text_IGRF_longitude"), "190.5");
        in_next_dialog<QMessageBox>([](QMessageBox & box) { answer(box, "The longitude is invalid", QMessageBox::Ok); });
        QTest::keyClick(&part(dialog, "Text_IGRF_longitude"), Qt::Key_Return);
        EXPECT_EQ(part<QLineEdit>(dialog, "Text_IGRF_intensity").text(), QString());
        type_over(part(dialog, "Text_IGRF_longitude"), "140 34 12 E");
        QTest::keyClick(&part(dialog, "Text_IGRF_longitude"), Qt::Key_Return);
        EXPECT_TRUE(part<QLineEdit>(dialog, "Text_IGRF_intensity").text().startsWith(QStringLiteral("520")));
        in_next_dialog([](QDialog & box) {
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Specify Name"));
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Osborne"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        });
        click(part(dialog, "Command_save_igrf"));
        EXPECT_EQ(part<QComboBox>(dialog, "Combo_IGRF").currentText(), QStringLiteral("Osborne"));
        in_next_dialog<QMessageBox>([](QMessageBox & box) { answer(box, "Copy the IGRF values?", QMessageBox::Yes); });
        click(part(dialog, "Command_done"));
    });
    given.press("Command_calculate_IGRF");
    EXPECT_EQ(given.text("Text_mag_inclination").substr(0, 5), "-53.3");
    EXPECT_TRUE(given.window.isWindowModified());
    EXPECT_EQ(given.own_settings.names("IGRF"), Texts{ "Osborne" });
}

TEST(option_dialog, given_options_then_what_is_ticked_comes_back_unless_it_is_cancelled)
{
    DrivenWindow given(nullptr, DrivenWindow::Boxes::real);
    std::vector<CheckOption> options = { { "Shift", "", false }, { "Turn", "", true } };
    for (const auto button : { QDialogButtonBox::Cancel, QDialogButtonBox::Ok }) {
        const bool ok = button == QDialogButtonBox::Ok;
        in_next_dialog([button](QDialog & dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Options"));
            for (auto * const box : dialog.findChildren<QCheckBox *>()) click(*box, { 8, box->height() / 2 });
            click(*dialog.findChild<QDialogButtonBox *>()->button(button));
        });
        EXPECT_EQ(given.window.host().dialogs.check_options("Options", options), ok);
        EXPECT_EQ(options[0].on, ok);
        EXPECT_EQ(options[1].on, !ok);
    }
}

TEST(boxes_of_the_program, given_unsaved_changes_then_the_answer_counts_and_escape_is_no)
{
    DrivenWindow given(nullptr, DrivenWindow::Boxes::real);
    given.type_into("Text_percent_error", "3");
    in_next_dialog<QMessageBox>([](QMessageBox & box) { QTest::keyClick(&box, Qt::Key_Escape); });
    given.choose_menu("menu_exit");
    EXPECT_TRUE(given.window.isVisible());
    in_next_dialog<QMessageBox>([](QMessageBox & box) {
        answer(box, "The definition has changes that have not been saved. Go on without them?", QMessageBox::Yes);
    });
    given.choose_menu("menu_exit");
    EXPECT_FALSE(given.window.isVisible());
}
