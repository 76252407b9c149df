#include "support/text.h"

#include <gtest/gtest.h>

namespace {

TEST(tokens, given_a_text_then_its_first_token_goes_with_one_delimiter)
{
    struct {
        const char *text, *token, *rest;
    } const cases[] = {
        { "  a\t b", "a", "b" },
        { "a , b", "a", "b" },
        { "a,,b", "a", ",b" },
        { ",b", "", "b" },
        { "a;b", "a", "b" },
        { "it's", "it", "s" },
        { "", "", "" },
        { " \t", "", "" },
        { "\"a, b\" ;c", "\"a, b\"", "c" },
        { "\"open, b", "\"open, b", "" }, // the quotes stay
    };
    for (const auto & row : cases) {
        std::string_view text = row.text;
        EXPECT_EQ(next_token(text), row.token) << row.text;
        EXPECT_EQ(text, row.rest) << row.text;
    }
}

TEST(fields, given_a_text_then_it_splits_at_the_delimiter_or_into_tokens)
{
    using Fields = List<std::string>;
    struct {
        std::int32_t count;
        const char * text;
        char delimiter;
        Fields fields;
    } const cases[] = {
        { 0, " East , North alt,\"T,MI\",", ',', Fields{ "East", "North alt", "T,MI" } },
        { 0, "a,,c", ',', Fields{ "a", "", "c" } },
        { 0, "a b\t'c", ',', Fields{ "a", "b", "c" } }, // no comma: tokens
        { 0, "a;b,c", ' ', Fields{ "a;b", "c" } },      // a blank stands for the comma
        { 0, "5\", \"x\"", ',', Fields{ "5\"", "x" } }, // one quote is no pair
        { 2, "1,2,3", ',', Fields{ "1", "2" } },
        { 3, "1", ',', Fields{ "1", "", "" } },
        { 0, "  ", ',', Fields{} },
    };
    for (const auto & row : cases) {
        std::int32_t count = row.count;
        Fields fields{ "old" };
        split_fields(count, row.text, row.delimiter, fields);
        EXPECT_EQ(fields, row.fields) << row.text;
        EXPECT_EQ(count, row.fields.size()) << row.text;
    }
    std::string text = " key : a:b ";
    EXPECT_EQ(take_field(text, ':'), "key");
    EXPECT_EQ(text, "a:b");
    text = " all ";
    EXPECT_EQ(take_field(text, ':'), "all");
    EXPECT_EQ(text, "");
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
    EXPECT_EQ(pad_text("abc", 5), "abc  ");
    EXPECT_EQ(pad_text("abc", 2), "ab");
    EXPECT_EQ(pad_left("abc", 5), "  abc");
    EXPECT_EQ(text_before_nul(std::string_view(" a \0b", 5)), "a");
    EXPECT_TRUE(same_text(" Null ", "NULL"));
}

}
