#include "support/answers_within.h"

#include <future>
#include <gtest/gtest.h>

TEST(answers_within, given_a_question_that_is_never_answered_then_only_it_has_no_answer)
{
    using Answers = std::vector<std::optional<bool>>;
    std::promise<bool> release;
    const std::shared_future<bool> later = release.get_future();
    const auto answers =
        answers_within(std::chrono::seconds(1), { [] { return true; }, [later] { return later.get(); }, [] { return false; } });
    release.set_value(true);
    EXPECT_EQ(answers, (Answers{ true, std::nullopt, false }));
    EXPECT_EQ(answers_within(std::chrono::hours(1), { [] { return false; } }), Answers{ false }); // at once, not at the limit
}
