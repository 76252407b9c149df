#include "support/text.h"

#include <gtest/gtest.h>

namespace {

TEST(tokens, given_a_text_then_each_goes_with_one_delimiter)
{
    std::string tokens;
    for (std::string_view text = "  a\t b , c,,it's;\"d, e\" ;\"open, f"; !text.empty();)
        tokens += std::string(next_token(text)) + "|";
    EXPECT_EQ(tokens, "a|b|c||it|s|\"d, e\"|\"open, f|"); // the quotes stay
}

/// The fields with "|" behind each, and their count.
std::string split(std::int32_t count, const char * text, char delimiter = ',')
{
    List<std::string> fields{ "old" };
    split_fields(count, text, delimiter, fields);
    std::string joined;
    for (const std::string & field : fields.items()) joined += field + "|";
    return joined + std::to_string(count);
}

TEST(fields, given_a_text_then_it_splits_at_the_delimiter_or_into_tokens)
{
    EXPECT_EQ(split(0, " East , North alt,,\"T,MI\","), "East|North alt||T,MI|4");
    EXPECT_EQ(split(0, "a b\t'c"), "a|b|c|3");         // no comma: tokens
    EXPECT_EQ(split(0, "a;b,c", ' '), "a;b|c|2");      // a blank stands for the comma
    EXPECT_EQ(split(0, "5\", \"x\"", ','), "5\"|x|2"); // one quote is no pair
    EXPECT_EQ(split(2, "1,2,3") + split(3, "1") + split(0, "  "), "1|2|21|||30");
    for (auto [text, parts] : { std::pair<std::string, const char *>(" key : a:b ", "key|a:b"), { " all ", "all|" } })
        EXPECT_EQ(take_field(text, ':') + "|" + text, parts);
}

TEST(keys, given_a_list_of_values_then_each_runs_to_its_end)
{
    std::string text = "a=\"x = 1\" b = (2 = 3) c=4, d = 5 6 ", value, pairs;
    while (!text.empty()) {
        pairs += next_key_value('=', text, value);
        pairs += "|" + value + "|";
    }
    EXPECT_EQ(pairs, "a|x = 1|b|2 = 3|c|4|d|5 6|");
    text = "=7";
    EXPECT_EQ(next_key_value('=', text, value) + value, "7");
}

TEST(texts, given_a_width_or_a_nul_then_the_text_is_cut_or_filled)
{
    EXPECT_EQ(pad_text("abc", 5) + pad_text("abc", 2) + pad_left("abc", 5), "abc  ab  abc");
    EXPECT_EQ(text_before_nul(std::string_view(" a \0b", 5)), "a");
    EXPECT_TRUE(same_text(" Null ", "NULL"));
}

}
