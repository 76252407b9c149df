#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "rules/transform_rules.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

/// Two points a quarter turn apart: 100 m to the east become 100 m to the north, clockwise -90 degrees.
PointTransform quarter_turn()
{
    PointTransform t;
    EXPECT_TRUE(define_transform_from_points({ 0, 0, 10, 20 }, { 100, 0, 10, 120 }, 0, 1, t));
    return t;
}

struct OpenDialog : RecordedHost {
    TransformSetup setup;
    explicit OpenDialog(const PointTransform & start) : setup(open_transform(start)) {}
    std::string & text(const char * control) { return setup.form[control].text; }
};

}

TEST(apply_transform_page, given_a_bad_text_then_one_message_and_no_change)
{
    for (const auto & [page, control, typed, message] : cases_of<4>("transform_rules.cases")) {
        OpenDialog dialog(page == "1" ? quarter_turn() : PointTransform());
        const PointTransform before = dialog.setup.transform;
        dialog.text(control.c_str()) = typed;
        const bool good = message.empty();
        EXPECT_EQ(change_transform_page(dialog.setup, 1 - std::stoi(page), dialog.host), good ? Status::good : Status::bad);
        EXPECT_EQ(dialog.dialogs.messages, good ? Texts() : Texts{ message }) << control << " " << typed;
        EXPECT_EQ(dialog.setup.page == std::stoi(page), !good) << message;
        if (!good) {
            EXPECT_EQ(dialog.setup.transform, before) << message;
        }
    }
}

TEST(apply_transform_page, given_values_then_the_record_takes_them_and_the_other_page_shows_them)
{
    OpenDialog dialog{ PointTransform() };
    dialog.text("Text_rotang") = "30";
    dialog.text("Text_xorigin") = "500000.125";
    dialog.text("Text_yoffset") = "-2.5";
    dialog.text("Text_yscale") = "0.9996";
    dialog.text("Text_elevation_shift") = "12";
    ASSERT_EQ(change_transform_page(dialog.setup, 1, dialog.host), Status::good);
    const PointTransform & t = dialog.setup.transform;
    EXPECT_EQ(Texts({ dialog.text("Text_original_x1"), dialog.text("Text_new_y1"), dialog.text("Text_yscale") }),
              Texts({ "500000.1250", "-2.5000", "0.99960000" }));
    EXPECT_EQ(std::vector({ t.rotation, t.y_scale, t.elevation_shift }), std::vector({ 30.0, 0.9996, 12.0 }));
    EXPECT_NEAR(t.rotation_sin, 0.5, 1e-7);
    EXPECT_TRUE(t.in_use);
}

TEST(apply_transform_page, given_more_digits_than_are_shown_then_an_untouched_box_keeps_them)
{
    PointTransform fine;
    fine.rotation = 12.3456789;
    normalise_point_transform(fine);
    OpenDialog dialog(fine);
    EXPECT_EQ(dialog.text("Text_rotang"), "12.3457");
    ASSERT_EQ(apply_transform_page(dialog.setup, dialog.host), Status::good);
    EXPECT_EQ(dialog.setup.transform, fine);
}

TEST(change_transform_page, given_parameters_then_a_look_at_the_points_changes_nothing_or_is_refused)
{
    // the scale, the second x of the new points, 1000 m to the south of 30, 40, and the way back
    for (const auto & [y_scale, second_x, back] : { std::tuple(1.0, "30.0000", Status::good), { 3.0, "5.0000", Status::bad } }) {
        PointTransform start;
        start.rotation = 90, start.y_scale = y_scale;
        start.x_origin = 5, start.y_origin = 7, start.new_x_origin = 30, start.new_y_origin = 40;
        normalise_point_transform(start);
        OpenDialog dialog(start);
        ASSERT_EQ(change_transform_page(dialog.setup, 1, dialog.host), Status::good);
        EXPECT_EQ(dialog.text("Text_new_x2"), second_x);
        EXPECT_EQ(change_transform_page(dialog.setup, 0, dialog.host), back);
        EXPECT_EQ(dialog.setup.transform.y_scale, y_scale);
        EXPECT_NEAR(dialog.setup.transform.rotation, 90, 1e-5);
    }
}

TEST(press_transform, given_invert_or_reset_then_the_boxes_show_it)
{
    OpenDialog dialog(quarter_turn());
    ASSERT_EQ(press_transform(dialog.setup, "Command_invert_transform", dialog.host), Status::good);
    EXPECT_EQ(Texts({ dialog.text("Text_original_y2"), dialog.text("Text_new_x2") }), Texts({ "120.0000", "100.0000" }));
    ASSERT_EQ(change_transform_page(dialog.setup, 0, dialog.host), Status::good);
    EXPECT_EQ(dialog.text("Text_rotang"), "90.0000"); // back to the east, clockwise
    ASSERT_EQ(change_transform_page(dialog.setup, 1, dialog.host), Status::good);
    ASSERT_EQ(press_transform(dialog.setup, "Command_reset", dialog.host), Status::good);
    EXPECT_EQ(dialog.setup.transform, PointTransform());
    EXPECT_EQ(dialog.text("Text_xscale"), "1.00000000");
    EXPECT_EQ(apply_transform_page(dialog.setup, dialog.host), Status::good); // no transform can be taken from either page
}

TEST(press_transform, given_a_file_then_it_is_saved_as_typed_and_loaded_on_the_page_of_points)
{
    const TemporaryFolder folder;
    const std::string title = "Specify the name of Coordinate transformation file";
    OpenDialog writer(quarter_turn());
    writer.text("Text_elevation_shift") = "2.5";
    writer.dialogs.picks = { folder.file("a"), folder.file("a.crd") };
    ASSERT_EQ(press_transform(writer.setup, "Command_save_transform_file", writer.host), Status::good);
    const std::string written = folder.read("a.crd");
    EXPECT_EQ(written.substr(written.find('\n') + 1), "0 0 10 20\r\n100 0 10 120\r\n2.5 1\r\n");

    writer.text("Text_elevation_shift") = "99"; // a file that exists is written over only when the user says so
    EXPECT_EQ(press_transform(writer.setup, "Command_save_transform_file", writer.host), Status::stopped);
    EXPECT_EQ(writer.dialogs.questions, Texts({ title, title, "That file already, exists, overwrite?" }));
    EXPECT_EQ(folder.read("a.crd"), written);

    OpenDialog reader{ PointTransform() };
    reader.dialogs.picks = { folder.file("a.crd") };
    ASSERT_EQ(press_transform(reader.setup, "Command_load_transform_file", reader.host), Status::good);
    EXPECT_EQ(reader.setup.page, 1);
    EXPECT_EQ(Texts({ reader.text("Text_new_y2"), reader.text("Text_elevation_shift") }), Texts({ "120.0000", "2.5000" }));
}
