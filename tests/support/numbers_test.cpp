#include "support/fault.h"
#include "support/numbers.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

TEST(leading_number, given_a_text_then_its_longest_numeric_prefix)
{
    struct Case {
        std::string text;
        double value;
        std::size_t length;
        bool numeric; // the whole of it
    };
    const Case cases[] = {
        { "12", 12, 2, true },      { " \t-1.5 ", -1.5, 6, true }, { "+.5", 0.5, 3, true }, { "5.", 5, 2, true },
        { "1e3", 1000, 3, true },   { "1E-2x", 0.01, 4, false },   { "1e+", 1, 1, false }, // an exponent needs digits
        { "1.2.3", 1.2, 3, false },                                                        //
        { "1,5", 1, 1, false },                                                            // whatever the locale
        { "3*100", 3, 1, false },   { "", 0, 0, false },           { "  ", 0, 0, false },   { "abc", 0, 0, false },
        { "-", 0, 0, false },       { ".", 0, 0, false },          { "nan", 0, 0, false },  { "inf", 0, 0, false },
        { "0x10", 0, 1, false },    { "1e-400", 0, 6, true },
    };
    for (const Case & given : cases) {
        const NumberPrefix prefix = number_prefix(given.text);
        EXPECT_EQ(prefix.value, given.value) << given.text;
        EXPECT_EQ(prefix.length, given.length) << given.text;
        EXPECT_EQ(is_numeric(given.text), given.numeric) << given.text;
    }
    EXPECT_THROW(leading_number("1e400"), OverflowFault);
    EXPECT_FALSE(is_numeric("1e400"));
    EXPECT_EQ(leading_number("0." + std::string(400, '0') + "1"), 0);
}

TEST(counts, given_halves_then_even_and_beyond_32_bits_an_overflow)
{
    EXPECT_EQ(round_to_count(0.5), 0);
    EXPECT_EQ(round_to_count(1.5), 2);
    EXPECT_EQ(round_to_count(-2.5), -2);
    EXPECT_EQ(leading_count("2.5 cells"), 2);
    EXPECT_EQ(round_to_count(2147483647.4), 2147483647);
    for (const double beyond : { 2147483647.5, -2147483648.6, std::numeric_limits<double>::quiet_NaN() })
        EXPECT_THROW(round_to_count(beyond), OverflowFault);
    EXPECT_EQ(multiply_counts(46340, 46340), 2147395600);
    EXPECT_THROW(multiply_counts(46341, 46341), OverflowFault);
    EXPECT_THROW(add_counts(2147483647, 1), OverflowFault);
    EXPECT_THROW(to_f32(3.5e38), OverflowFault);
    EXPECT_EQ(to_f32(0.1), 0.1F);
}

TEST(general_text, given_numbers_then_shortest_text_of_15_or_7_digits)
{
    struct Case {
        double value;
        std::string text, str;
    };
    const Case doubles[] = {
        { 0, "0", " 0" },
        { 100, "100", " 100" },
        { -0.5, "-0.5", "-.5" }, // the sign's place, and no zero before the point
        { 0.1 + 0.2, "0.3", " .3" },
        { 1.0 / 3, "0.333333333333333", " .333333333333333" },
        { 0.0001, "0.0001", " .0001" },
        { 0.00001, "1E-05", " 1E-05" },
        { 123456789012345, "123456789012345", " 123456789012345" },
        { 1e15, "1E+15", " 1E+15" },
        { 999999999999999.5, "1E+15", " 1E+15" }, // by what is left after rounding
        { -1e-30, "-1E-30", "-1E-30" },
        { 1.5e300, "1.5E+300", " 1.5E+300" },
    };
    for (const Case & given : doubles) {
        EXPECT_EQ(general_text(given.value), given.text);
        EXPECT_EQ(str_text(given.value), given.str);
    }
    EXPECT_EQ(general_text(0.02F), "0.02");
    EXPECT_EQ(general_text(1234567.0F), "1234567");
    EXPECT_EQ(general_text(12345678.0F), "1.234568E+07");
    EXPECT_EQ(str_text(-1e32F), "-1E+32");
    EXPECT_EQ(general_text(std::int32_t{ -7 }), "-7");
    EXPECT_THROW(general_text(std::numeric_limits<double>::infinity()), OverflowFault);
}

TEST(compress_value, given_values_beyond_one_then_the_root_with_the_sign)
{
    EXPECT_EQ(compress_value(0.25), 0.25);
    EXPECT_EQ(compress_value(-1), -1);
    EXPECT_EQ(compress_value(100), 10);
    EXPECT_EQ(compress_value(-100), -10);
}
