#include "fakes/recorded_host.h"
#include "mesh/weighting_list.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

TEST(parse_weighting_list, given_a_list_then_its_numbers_or_the_number_of_the_faulty_item)
{
    struct Case {
        std::string text;
        std::vector<double> items;
        int faulty; ///< from 1; 0 for none
    };
    const Case cases[] = {
        { "16,8,4,2,1", { 16, 8, 4, 2, 1 }, 0 },
        { " 1.5 , .25", { 1.5, 0.25 }, 0 },
        { "3", { 3 }, 0 },
        { "", {}, 0 },
        { "1,0,2", {}, 2 }, // not above 0
        { "1,2,-4", {}, 3 },
        { "x,2", {}, 1 },
        { "1,2 3", {}, 2 }, // a blank separates nothing
        { "1,,2", {}, 2 },
        { "1,2,", {}, 3 },
        { "1,1e999", {}, 2 },
    };
    for (const Case & given : cases) {
        const std::vector<double> kept = { 7 };
        const std::vector<double> & expected = given.faulty == 0 ? given.items : kept;
        const Status status = given.faulty == 0 ? Status::good : Status::bad;
        RecordedDialogs dialogs;
        for (const bool quiet : { true, false }) {
            List<double> items = { 7 };
            EXPECT_EQ(quiet ? parse_weighting_list(given.text, items) : parse_weighting_list(given.text, items, dialogs), status);
            EXPECT_EQ(std::vector<double>(items.items().begin(), items.items().end()), expected) << given.text;
        }
        std::vector<std::string> messages;
        if (given.faulty > 0)
            messages = { "The weighting definitions are not valid for weight " +
                         std::string(1, static_cast<char>('0' + given.faulty)) };
        EXPECT_EQ(dialogs.messages, messages) << given.text;
    }
}
