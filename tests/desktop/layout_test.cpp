#include "desktop/driven_window.h"

#include <QToolButton>
#include <QWheelEvent>

namespace {

constexpr int totals_panel = 2, x_panel = 3, y_panel = 4;

/// The layout of the tiny survey: its core is 4 by 4 cells of 100 m from 1000, 2000 with a padding of 1, 2, 4 and 8 cells.
struct TinyLayout : DrivenWindow {
    QWidget & picture = widget("Picture_tiling_layout");

    TinyLayout()
    {
        open_tiny();
        press("Command_view_tiling");
    }
    double coordinate(const QPoint & place, int panel) { return QString::fromStdString(panel_at(place, panel)).toDouble(); }
    /// Presses an arrow of a pair of buttons.
    void clip(int index, bool up)
    {
        for (auto * const button : widget("UpDown_clip_" + std::to_string(index)).findChildren<QToolButton *>())
            if (button->accessibleName() == QLatin1String(up ? "up" : "down")) click(*button);
    }
    std::string limits()
    {
        std::string texts;
        for (const char * const label : { "limit_4", "limit_5", "limit_6", "limit_7" })
            texts += widget<QLabel>(label).text().toStdString() + " ";
        return texts;
    }
};

}

TEST(layout, given_the_view_when_pointed_at_then_it_says_the_position_and_the_cell)
{
    TinyLayout given;
    EXPECT_FALSE(given.widget("Tab_inversion").isVisible());
    EXPECT_EQ(given.panel_at(given.picture.rect().center(), totals_panel), "12,12");
    const QPoint place = given.place_of("5,8 "); // the first cell of the core in x, the last in y
    ASSERT_FALSE(place.isNull());
    const double x = given.coordinate(place, x_panel), y = given.coordinate(place, y_panel);
    EXPECT_TRUE(x >= 1000 && x <= 1100) << x;
    EXPECT_TRUE(y >= 2300 && y <= 2400) << y;
    given.press("Command_done_tiling_layout");
    EXPECT_TRUE(given.widget("Tab_inversion").isVisible());
    EXPECT_FALSE(given.picture.isVisible());
    EXPECT_FALSE(given.window.isWindowModified());
    EXPECT_EQ(given.dialogs.said(), Texts());
}

TEST(layout, given_the_arrows_when_pressed_then_the_limits_and_the_boxes_of_the_mesh_follow)
{
    TinyLayout given;
    const struct {
        int index;
        bool up;
        const char * limits;
    } presses[] = {
        { 0, true, "1100 1400 2000 2400 " },  { 5, true, "1100 1500 2000 2400 " }, { 10, false, "1000 1400 2000 2400 " },
        { 3, false, "1000 1400 2000 2300 " }, { 2, true, "1000 1400 2100 2300 " }, { 11, true, "1000 1400 2200 2400 " },
    };
    for (const auto & row : presses) {
        given.clip(row.index, row.up);
        EXPECT_EQ(given.limits(), row.limits) << row.index;
    }
    EXPECT_EQ(given.panel_at(given.picture.rect().center(), totals_panel), "12,10");
    EXPECT_TRUE(given.window.isWindowModified());
    given.press("Command_done_tiling_layout");
    EXPECT_EQ(given.text("Text_min_val_1") + " " + given.text("Text_max_val_1") + " " + given.text("Text_num_cells_1"),
              "2200 2400 2");
}

TEST(layout, given_wheel_and_drag_then_the_picture_follows_the_pointer_and_is_brought_back)
{
    TinyLayout given;
    const QPoint centre = given.picture.rect().center(), beside = centre + QPoint(60, 40);
    const double x = given.coordinate(centre, x_panel), away = given.coordinate(beside, x_panel) - x;
    QWheelEvent wheel(centre, given.picture.mapToGlobal(centre), {}, { 0, 480 }, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&given.picture, &wheel); // four notches double the scale
    EXPECT_NEAR(given.coordinate(centre, x_panel), x, 0.2);
    EXPECT_NEAR(given.coordinate(beside, x_panel) - x, away / 2, 0.2);

    QWindow * const window = given.window.windowHandle();
    const QPoint from = given.picture.mapTo(&given.window, centre), to = given.picture.mapTo(&given.window, beside);
    QTest::mousePress(window, Qt::LeftButton, {}, from);
    QTest::mouseMove(window, (from + to) / 2);
    QTest::mouseMove(window, to);
    QTest::mouseRelease(window, Qt::LeftButton, {}, to);
    EXPECT_NEAR(given.coordinate(beside, x_panel), x, 0.2);
    given.press("fit_picture");
    EXPECT_NEAR(given.coordinate(centre, x_panel), x, 0.2);
    given.dialogs.picks = { given.folder.file("layout.png") };
    given.press("save_picture_button");
    EXPECT_TRUE(given.folder.read("layout.png").starts_with("\x89PNG"));
    EXPECT_EQ(given.dialogs.said(), Texts());
}
