#include "support/text.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

TEST(next_token, given_a_text_then_the_first_token_goes_off_it)
{
    struct Case {
        std::string text, token, rest;
    };
    const Case cases[] = {
        { "10 20", "10", "20" },
        { " \t 10\t , 20", "10", "20" },     // blanks and one comma behind the token go too
        { "10,,20", "10", ",20" },           // but only one
        { ",20", "", "20" },                 // an empty token
        { "a;b", "a", "b" },                 //
        { "a'b", "a", "b" },                 //
        { "\"a b\" c", "\"a b\"", "c" },     // quotes stay on the token
        { "\"a, b\" , c", "\"a, b\"", "c" }, //
        { "\"never closed 1", "\"never closed 1", "" },
        { "", "", "" },
        { " \t", "", "" },
    };
    for (const Case & given : cases) {
        std::string_view text = given.text;
        EXPECT_EQ(next_token(text), given.token) << given.text;
        EXPECT_EQ(text, given.rest) << given.text;
    }
}

TEST(split_fields, given_a_line_then_its_fields)
{
    struct Case {
        std::string text;
        char delimiter;
        std::int32_t wanted, found;
        std::vector<std::string> fields;
    };
    const Case cases[] = {
        { " 1, 2 ,3 ", ',', 0, 3, { "1", "2", "3" } },
        { "1 2\t3", ',', 0, 3, { "1", "2", "3" } },   // without the delimiter by tokens
        { "a b, c", ',', 0, 2, { "a b", "c" } },      // with it a blank separates nothing
        { "a,,b", ',', 0, 3, { "a", "", "b" } },      //
        { "a,b,", ',', 0, 2, { "a", "b" } },          // nothing is left behind the last comma
        { "1,2,3", ' ', 0, 3, { "1", "2", "3" } },    // a blank delimiter stands for a comma
        { "1:2 3", ':', 0, 2, { "1", "2 3" } },       //
        { "\" a,b \",c", ',', 0, 2, { "a,b", "c" } }, // quotes hide the delimiter
        { "x,\" y \"", ',', 0, 2, { "x", "y" } },     //
        { "5\",6", ',', 0, 2, { "5\"", "6" } },       // one quote is no pair
        { "1,2,3", ',', 2, 2, { "1", "2" } },         // no more than wanted
        { "1", ',', 3, 3, { "1", "", "" } },          // and no fewer
        { "", ',', 0, 0, {} },
    };
    for (const Case & given : cases) {
        std::int32_t count = given.wanted;
        List<std::string> fields = { "old" };
        split_fields(count, given.text, given.delimiter, fields);
        EXPECT_EQ(count, given.found) << given.text;
        EXPECT_EQ(std::vector<std::string>(fields.items().begin(), fields.items().end()), given.fields) << given.text;
    }
}

TEST(take_field, given_a_text_then_head_and_trimmed_rest)
{
    std::string text = " label : 1 : 2 ";
    EXPECT_EQ(take_field(text, ':'), "label");
    EXPECT_EQ(text, "1 : 2");
    text = " all of it ";
    EXPECT_EQ(take_field(text, ':'), "all of it");
    EXPECT_EQ(text, "");
    std::string tail = "old";
    EXPECT_EQ(split_at_first(':', "C:\\x:y", tail), "C");
    EXPECT_EQ(tail, "\\x:y");
}

TEST(next_key_value, given_pairs_then_key_value_and_rest)
{
    struct Case {
        std::string text, key, value, rest;
    };
    const Case cases[] = {
        { " key = 12 b=3", "key", "12", "b=3" },
        { "key=all the rest", "key", "all the rest", "" }, // no further "=": all of it
        { "key=\"a = b\" c=1", "key", "a = b", "c=1" },
        { "key=(1, 2) c=1", "key", "1, 2", "c=1" },
        { "=5", "", "5", "" },
        { "no pair", "", "no pair", "" },
    };
    for (const Case & given : cases) {
        std::string text = given.text, value;
        EXPECT_EQ(next_key_value('=', text, value), given.key) << given.text;
        EXPECT_EQ(value, given.value) << given.text;
        EXPECT_EQ(text, given.rest) << given.text;
    }
}

TEST(padding, given_short_and_long_texts_then_exactly_the_width)
{
    EXPECT_EQ(pad_text("ab", 4), "ab  ");
    EXPECT_EQ(pad_text("abcde", 4), "abcd");
    EXPECT_EQ(pad_left("ab", 4), "  ab");
    EXPECT_EQ(pad_left("abcde", 4), "abcd"); // the right end goes, not the left
}

TEST(trimming, given_other_white_space_then_only_blanks_go)
{
    EXPECT_EQ(trim("  a b\t "), "a b\t");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(text_before_nul(std::string_view(" a \0b", 5)), "a");
    EXPECT_TRUE(same_text(" Null", "NULL "));
    EXPECT_EQ(upper_case("a\xC3\xA4z"), "A\xC3\xA4Z"); // letters beyond ASCII stay
}
