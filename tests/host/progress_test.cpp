#include "fakes/recorded_host.h"

#include <gtest/gtest.h>
#include <numeric>

TEST(percentage, given_any_count_of_items_then_each_whole_percent_is_told_once_and_in_order)
{
    RecordedProgress many;
    Percentage all(many, 100'000);
    for (int done = 1; done <= 100'000; ++done) all.report(done);
    std::vector<int> each(101);
    std::iota(each.begin(), each.end(), 0);
    EXPECT_EQ(many.percents, each);

    RecordedProgress few;
    Percentage some(few, 3);
    for (int done = 1; done <= 3; ++done) some.report(done);
    EXPECT_EQ(few.percents, (std::vector<int>{ 0, 33, 67, 100 }));

    RecordedProgress none;
    Percentage(none, 0).report(1);
    EXPECT_EQ(none.percents, std::vector<int>{ 0 });
}
