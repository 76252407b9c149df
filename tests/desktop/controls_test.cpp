#include "desktop/driven_window.h"

#include <QToolButton>
#include <QWheelEvent>
#include <array>

TEST(form, given_the_window_then_each_control_has_a_widget_and_each_widget_a_control)
{
    DrivenWindow given;
    EXPECT_EQ(given.window.view().unjoined(), QStringList());
}

/// Whether a widget shows on its page, which may be behind another.
bool shows(DrivenWindow & given, const std::string & name)
{
    QWidget & widget = given.widget(name);
    auto & pages = given.widget<QTabWidget>("Tab_inversion");
    for (int page = 0; page < pages.count(); ++page)
        if (pages.widget(page)->isAncestorOf(&widget)) return widget.isVisibleTo(pages.widget(page));
    throw std::runtime_error("on no page: " + name);
}

TEST(form, given_each_method_when_chosen_then_its_pages_show_what_it_needs)
{
    DrivenWindow given;
    const auto rows = cases_of<3>("../rules/method_controls.cases");
    for (const std::size_t method : { 6, 0, 1, 2, 3, 4, 5, 6, 3, 0 }) {
        SCOPED_TRACE(method);
        const auto name_of = [&given](const std::string & control, const std::string & index) {
            return given.window.view().widget_of(control, number_in(index))->objectName().toStdString();
        };
        std::map<std::string, bool> hidden;
        for (const auto & [control, index, states] : rows)
            hidden[name_of(control, index)] = given.widget(name_of(control, index)).isHidden();
        given.choose_in("Combo_inversion_method", static_cast<int>(method));
        for (const auto & [control, index, states] : rows) {
            const std::string name = name_of(control, index);
            if (states[method] == '-')
                EXPECT_EQ(given.widget(name).isHidden(), hidden[name]) << name;
            else
                EXPECT_EQ(shows(given, name), states[method] == 'V') << name;
        }
    }
    EXPECT_EQ(given.dialogs.said(), Texts());
}

TEST(columns, given_a_line_of_names_when_a_box_is_entered_then_the_list_lies_over_it_and_fills_it)
{
    DrivenWindow given;
    given.type_into("Text_data_locations_0", given.folder.write("a.csv", "line,east,north,height,tmi\r\n1,20,30,4,5\r\n"));
    given.type_into("Text_UBC_locations_name_line_0", "1");
    const std::pair<const char *, int> picks[] = { { "xpos_0", 2 }, { "ypos_0", 3 }, { "zpos_0", 4 }, { "magpos_0", 5 } };
    const char * const names[] = { "east", "north", "height", "tmi" };
    QWidget & list = given.widget("Combo_names_0");
    for (std::size_t i = 0; i < 4; ++i) {
        const std::string box = std::string("Text_UBC_locations_") + picks[i].first;
        given.press(box);
        ASSERT_TRUE(list.isVisible()) << box;
        EXPECT_EQ(QRect(list.mapToGlobal(QPoint()), list.size()),
                  QRect(given.widget(box).mapToGlobal(QPoint()), given.widget(box).size()));
        given.choose_in("Combo_names_0", picks[i].second);
        EXPECT_EQ(given.text(box), names[i]);
        EXPECT_FALSE(list.isVisible()) << box;
        EXPECT_EQ(QApplication::focusWidget(), &given.widget(box));
    }
    const auto & record = given.window.session().setup.definition;
    EXPECT_EQ((std::array{ record.data_x_column[0], record.data_y_column[0], record.data_z_column[0] }), (std::array{ 2, 3, 4 }));
    EXPECT_EQ(record.data_value_column[0], 5);
    QTest::mouseDClick(&given.widget("Text_UBC_locations_magpos_0"), Qt::LeftButton);
    ASSERT_TRUE(list.isVisible());
    given.choose_in("Combo_names_0", 5); // once more the same
    EXPECT_FALSE(list.isVisible());
    given.press("Text_data_locations_0");
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(given.dialogs.said(), Texts());
}

TEST(boxes, given_a_bad_text_then_it_is_marked_while_typed_with_what_the_check_says_and_unmarked_when_mended)
{
    DrivenWindow given;
    given.open_tiny();
    for (const auto & [name, bad, good] :
         { std::array{ "Text_mag_inclination", "5x", "5" }, std::array{ "Text_percent_error", "-", "2" },
           std::array{ "Text_cell_size_0", "0", "100" } }) {
        SCOPED_TRACE(name);
        QWidget & box = given.widget(name);
        const QString tip = box.toolTip();
        const QColor colour = box.palette().color(QPalette::Base);
        given.type(name, bad);
        EXPECT_NE(box.palette().color(QPalette::Base), colour);
        EXPECT_EQ(given.dialogs.said(), Texts());
        const std::string words = box.toolTip().toStdString();
        given.choose_menu("menu_save");
        EXPECT_EQ(given.dialogs.said(), Texts{ words });
        given.type_into(name, good);
        EXPECT_EQ(box.toolTip(), tip);
        EXPECT_EQ(box.palette().color(QPalette::Base), colour);
    }
    EXPECT_EQ(given.dialogs.said(), Texts());
}

TEST(boxes, given_the_button_beside_one_then_its_dialog_opens_and_a_pick_goes_into_the_box)
{
    DrivenWindow given;
    for (auto * const button : given.window.findChildren<QToolButton *>()) {
        const std::string name = button->objectName().toStdString();
        if (!name.starts_with("browse_")) continue;
        given.dialogs.picks = { given.folder.path() };
        button->click(); // some show only with other methods
        EXPECT_EQ(given.dialogs.asked().size(), 1U) << name;
        EXPECT_EQ(given.text(name.substr(7)), given.folder.path()) << name;
    }
    given.press("browse_Dir1"); // and is cancelled
    EXPECT_EQ(given.text("Dir1"), given.folder.path());
}

TEST(lists, given_the_item_that_is_chosen_already_then_what_has_been_typed_since_stays)
{
    DrivenWindow given;
    given.type_into("Text_percent_error", "3");
    given.choose_in("Combo_data_type_0", 1);
    EXPECT_EQ(given.text("Text_percent_error"), "3");
    given.choose_in("Combo_data_type_0", 0);
    EXPECT_EQ(given.text("Text_percent_error"), "0");
}

TEST(lists, given_the_wheel_over_a_page_then_no_list_turns_under_the_pointer)
{
    DrivenWindow given;
    QWidget & list = given.in_sight("Combo_inversion_method");
    const std::string before = given.chosen("Combo_inversion_method");
    QWheelEvent wheel(list.rect().center(), list.mapToGlobal(list.rect().center()), {}, { 0, 120 }, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&list, &wheel);
    EXPECT_EQ(given.chosen("Combo_inversion_method"), before);
    EXPECT_FALSE(given.window.isWindowModified());
}
