#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "rules/igrf_rules.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

constexpr const char * field_boxes[] = { "Text_IGRF_intensity",    "Text_IGRF_inclination",    "Text_IGRF_declination",
                                         "Text_IGRF_intensity_SV", "Text_IGRF_inclination_SV", "Text_IGRF_declination_SV" };

struct OpenDialog : RecordedHost {
    IgrfSetup setup = open_igrf({}, std::nullopt, host);

    void type(const std::string & box, const std::string & text)
    {
        setup.form["Text_IGRF_" + box].text = text;
        change_igrf(setup, "Text_IGRF_" + box, host);
    }
    void type_place(const char * date, const char * latitude, const char * longitude)
    {
        type("date", date);
        type("latitude", latitude);
        type("longitude", longitude);
    }
    Status press(const char * command) { return press_igrf(setup, command, host); }
    std::string text(const std::string & box) { return setup.form["Text_IGRF_" + box].text; }
    bool can_save() { return setup.form["Command_save_igrf"].enabled; }
    Texts field()
    {
        Texts texts;
        for (const char * box : field_boxes) texts.push_back(setup.form[box].text);
        return texts;
    }
    Texts names()
    {
        Texts names;
        for (const ListItem & item : setup.form["Combo_IGRF"].items) names.push_back(item.text);
        return names;
    }
    void pick(int position)
    {
        setup.form["Combo_IGRF"].position = position;
        change_igrf(setup, "Combo_IGRF", host);
    }
    Status save_as(const char * name)
    {
        dialogs.picks = { name };
        return press("Command_save_igrf");
    }
};

}

TEST(calculate_igrf_dialog, given_a_fault_then_one_message_and_the_results_before_it_stay)
{
    for (const auto & [box, typed, message] : cases_of<3>("igrf_faults.cases")) {
        OpenDialog dialog;
        EXPECT_FALSE(dialog.can_save());
        dialog.type_place("1/7/1990", "22 0 0 S", "140.5");
        ASSERT_EQ(dialog.press("Command_calculate_IGRF"), Status::good);
        const Texts before = dialog.field();
        const IgrfRecord record = dialog.setup.record;
        EXPECT_NEAR(std::stod(before[0]), 52055, 60);
        EXPECT_TRUE(dialog.can_save());
        dialog.type(box, typed);
        EXPECT_FALSE(dialog.can_save()) << "the field is not that of the boxes";
        for (const char * command : { "Command_calculate_IGRF", "Command_done" }) {
            EXPECT_EQ(dialog.press(command), Status::bad);
            EXPECT_EQ(std::exchange(dialog.dialogs.messages, {}), Texts{ message }) << typed;
        }
        EXPECT_EQ(dialog.field(), before);
        EXPECT_EQ(dialog.setup.record.latitude, record.latitude);
        EXPECT_EQ(dialog.text(box), typed);
    }
}

TEST(save_igrf, given_names_then_the_list_grows_and_one_that_exists_is_written_over_only_when_the_user_says_so)
{
    OpenDialog dialog;
    EXPECT_EQ(dialog.names(), Texts());
    dialog.type_place("2003.5", "-22.0504", "140.5252");
    dialog.type("elevation", "312");
    ASSERT_EQ(dialog.press("Command_calculate_IGRF"), Status::good);
    for (const auto & [name, status] :
         { std::pair("", Status::stopped), { "Mt, \"Isa\" \\ \xC3\x9F", Status::good }, { "b", Status::good } })
        EXPECT_EQ(dialog.save_as(name), status) << name;
    EXPECT_EQ(dialog.names(), Texts({ "Mt, \"Isa\" \\ \xC3\x9F", "b" }));
    EXPECT_EQ(chosen_text(dialog.setup.form["Combo_IGRF"]), "b");
    EXPECT_EQ(dialog.dialogs.questions, Texts({ 3, "Specify Name" }));

    const Texts first = dialog.field();
    dialog.type("date", "1/2/2021");
    ASSERT_EQ(dialog.press("Command_done"), Status::good); // what has been typed is computed first
    const Texts second = dialog.field();
    EXPECT_NE(first, second);
    for (const bool yes : { false, true }) {
        dialog.dialogs.yes = yes;
        EXPECT_EQ(dialog.save_as(" B "), yes ? Status::good : Status::stopped);
        EXPECT_EQ(dialog.dialogs.questions.back(), "That name already exists. Overwrite?");
    }
    EXPECT_EQ(dialog.names().size(), 2U);

    dialog.pick(0);
    EXPECT_EQ(dialog.field(), first);
    EXPECT_EQ(Texts({ dialog.text("date"), dialog.text("latitude"), dialog.text("longitude"), dialog.text("elevation") }),
              Texts({ "2003.5", "-22  3  1.440", "140 31 30.720", "312.0" }));
    dialog.pick(1);
    EXPECT_EQ(dialog.field(), second);
    EXPECT_EQ(dialog.text("date"), "01/02/2021");
    ASSERT_EQ(dialog.press("Command_calculate_IGRF"), Status::good); // what is shown can be read again
    EXPECT_EQ(dialog.field(), second);
    EXPECT_EQ(dialog.dialogs.messages, Texts());
}

TEST(open_igrf, given_a_record_an_earlier_run_or_damaged_settings_then_the_latest_that_can_be_read_is_shown)
{
    OpenDialog dialog;
    dialog.type_place("2020", "45 N", "87 30 W");
    ASSERT_EQ(dialog.press("Command_done"), Status::good);
    EXPECT_EQ(open_igrf(dialog.setup.record, std::nullopt, dialog.host).record.longitude, -87.5);
    IgrfSetup next_run = open_igrf({}, SurveyPlace{ -22, 140.5, 300, IgrfDate{ 1990.5 } }, dialog.host);
    EXPECT_EQ(next_run.form["Text_IGRF_date"].text, "2020");
    EXPECT_EQ(next_run.form["Text_IGRF_intensity"].text, dialog.text("intensity"));
    ASSERT_EQ(press_igrf(next_run, "Command_survey_centre", dialog.host), Status::good);
    EXPECT_EQ(next_run.form["Text_IGRF_date"].text + next_run.form["Text_IGRF_elevation"].text, "1990.5300.0");
    EXPECT_FALSE(next_run.form["Frame_IGRF_results"].enabled); // they are those of the other place

    dialog.settings.kept = { { "IGRF\\odd", "x,1,2" }, { "ZEB_QVinv3d_setup\\LatestIGRF", "2020,1,2" } };
    IgrfSetup damaged = open_igrf({}, std::nullopt, dialog.host);
    EXPECT_FALSE(damaged.record.computed || damaged.form["Command_survey_centre"].visible);
    EXPECT_EQ(damaged.form["Text_IGRF_elevation"].text, "0");
    damaged.form["Combo_IGRF"].position = 0;
    change_igrf(damaged, "Combo_IGRF", dialog.host);
    EXPECT_EQ(dialog.dialogs.messages, Texts{ "The saved location cannot be read: odd" });
    EXPECT_EQ(damaged.form["Combo_IGRF"].position, -1);
}
