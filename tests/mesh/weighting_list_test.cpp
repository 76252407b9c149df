#include "mesh/weighting_list.h"

#include <gtest/gtest.h>
#include <vector>

TEST(parse_weighting_list, given_a_list_then_its_numbers_or_no_change)
{
    const std::pair<const char *, std::vector<double>> cases[] = {
        { " 1.5 , .25,3 ", { 1.5, 0.25, 3 } },
        { "", {} },
        // faulty: not above 0, no number, a blank that separates nothing, nothing at all, too large
        { "1,0,2", { 7 } },
        { "1,-2", { 7 } },
        { "x", { 7 } },
        { "1 2", { 7 } },
        { "1,,2", { 7 } },
        { "1e999", { 7 } },
    };
    for (const auto & [text, expected] : cases) {
        List<double> items = { 7 };
        EXPECT_EQ(parse_weighting_list(text, items) == Status::bad, expected == std::vector<double>{ 7 }) << text;
        EXPECT_EQ(std::vector<double>(items.items().begin(), items.items().end()), expected) << text;
    }
}
