#include "rules/file_boxes.h"
#include "rules/form_events.h"
#include "rules/mesh_boxes.h"
#include "rules/mesh_events.h"
#include "rules/started_setup.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

/// x 0..400, y 0..200, z 0..100 with cells of 100, 50 and 10, taken into the record and built; files in the folder "@".
struct Filled : StartedSetup {
    TemporaryFolder folder;

    Filled()
    {
        load_lines(
            "X Range: 0 400 100 4; Y Range: 0 200 50 4; Z Range: 0 100 10 10 1 0; Obs data definitions: 2 1 1 0 1 2 3 4 0 0 0;"
            "Topo type: 1");
        EXPECT_EQ(unload_mesh_from_form(setup, -1, false, host), Status::good);
        folder.write("a.csv", "East,North,Alt,TMI\r\n1,2,3,4\r\n");
        folder.write("b.csv", "X,Y\r\n1,2\r\n");
        folder.write("g.grd", "DSAA\n2 2\n0 1\n0 1\n1 4\n1 2\n3 4\n");
    }
    std::string here(std::string text) const
    {
        for (auto at = text.find('@'); at != text.npos; at = text.find('@')) text.replace(at, 1, folder.path());
        return text;
    }
    /// "left NAME INDEX", also "picked ... = FILE", "entered" and "update INDEX"; anything else is a step of `act`.
    void run(const std::string & steps)
    {
        static const std::regex event(R"((left|picked|entered|update) ?([A-Z]\w+)?( \d)?( = (.*))?)");
        for (const std::string & step : parts_of(steps, ';')) {
            std::smatch word;
            if (!std::regex_match(step, word, event)) {
                act(here(step));
                continue;
            }
            const int index = word[3].matched ? word.str(3)[1] - '0' : 0;
            if (word[4].matched) dialogs.picks = { here(word[5]) };
            if (word[1] == "left") form_left(setup, word.str(2), index, host);
            if (word[1] == "picked") pick_file(setup, word.str(2), index, host);
            if (word[1] == "entered") form_entered(setup, word.str(2), index);
            if (word[1] == "update") (void)press_update(setup, index, host);
        }
    }
};

}

TEST(form_events, given_what_the_user_does_then_form_and_record_follow)
{
    for (const auto & [steps, message, seen] : cases_of<3>("form_events.cases")) {
        SCOPED_TRACE(steps);
        Filled form;
        form.run(steps);
        EXPECT_EQ(form.dialogs.messages, message.empty() ? Texts{} : Texts{ message });
        if (!seen.empty()) form.expect(form.here(seen));
    }
}

TEST(file_boxes, given_each_then_its_dialog_starts_at_the_name_in_it_and_a_cancelled_one_changes_nothing)
{
    for (const auto & [box, text, title, filter, start] : cases_of<5>("file_boxes.cases")) {
        SCOPED_TRACE(box);
        Filled form;
        form.act(box + " := " + text);
        form.run("picked " + box);
        EXPECT_TRUE(is_file_box(box.substr(0, box.find(' '))));
        EXPECT_EQ(form.dialogs.last_file.title, title);
        EXPECT_EQ(form.dialogs.last_file.filter, filter);
        EXPECT_EQ(form.dialogs.last_file.start, start);
        form.expect(box + " = " + text);
    }
    EXPECT_FALSE(is_file_box("Text_description"));
}
