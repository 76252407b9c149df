#include "fakes/case_table.h"
#include "mesh/weighting_list.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

TEST(parse_weighting_list, given_a_list_then_its_numbers_or_no_change)
{
    for (const auto & [text, numbers] : cases_of<2>("weighting_list.cases")) {
        List<double> items = { 7 };
        const bool faulty = numbers == "faulty";
        EXPECT_EQ(parse_weighting_list(text, items), faulty ? Status::bad : Status::good) << text;
        std::string found;
        for (const double item : items.items()) found += (found.empty() ? "" : " ") + general_text(item);
        EXPECT_EQ(found, faulty ? "7" : numbers) << text;
    }
}
