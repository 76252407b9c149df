#include "fakes/recorded_host.h"
#include "host/progress.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

std::vector<int> percents_of(std::int64_t total, const std::vector<std::int64_t> & done)
{
    RecordedProgress progress;
    Percentage percentage(progress, total);
    for (const std::int64_t count : done) percentage.report(count);
    return progress.percents;
}

}

TEST(percentage, given_counts_then_each_whole_percent_once_halves_to_even)
{
    EXPECT_EQ(percents_of(200, { 1, 2, 3, 4, 5, 6 }), (std::vector<int>{ 0, 1, 2, 3 })); // 0.5 is 0, 1.5 is 2, 2.5 is 2
    EXPECT_EQ(percents_of(3, { 1, 2, 3 }), (std::vector<int>{ 0, 33, 67, 100 }));
    EXPECT_EQ(percents_of(10, { 5, 4, 5, 10 }), (std::vector<int>{ 0, 50, 100 })); // never back
    EXPECT_EQ(percents_of(2, { 3 }), (std::vector<int>{ 0, 100 }));
    EXPECT_EQ(percents_of(0, { 1 }), (std::vector<int>{ 0 }));
}

TEST(percentage, given_any_total_then_as_if_each_count_were_worked_out)
{
    for (const std::int64_t total : { 1, 7, 99, 100, 101, 400, 999, 12345 }) {
        std::vector<std::int64_t> counts;
        std::vector<int> expected = { 0 };
        for (std::int64_t done = 0; done <= total; ++done) {
            counts.push_back(done);
            const std::int64_t twice = 200 * done / total, rest = 200 * done % total; // in half percents, cut
            std::int64_t percent = (twice + 1) / 2;
            if (twice % 2 == 1 && rest == 0) percent = (twice / 2 + 1) / 2 * 2; // a half: the even neighbour
            if (percent > expected.back()) expected.push_back(static_cast<int>(percent));
        }
        EXPECT_EQ(percents_of(total, counts), expected) << total;
    }
}
