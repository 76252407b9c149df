#include "support/fault.h"
#include "support/pattern.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

TEST(format_number, given_values_and_patterns_then_the_text_of_the_files)
{
    struct Case {
        double value;
        std::string pattern, text;
    };
    const Case cases[] = {
        // whole numbers, and digits asked for
        { 7, "0", "7" },
        { 7, "00", "07" },
        { 123, "00", "123" },
        { 0, "0", "0" },
        { 0.4, "#0.000", "0.400" },
        // halves go away from zero
        { 0.5, "0", "1" },
        { 2.5, "0", "3" },
        { -2.5, "0", "-3" },
        { 0.125, "0.00", "0.13" },
        { 1.005, "0.00", "1.01" }, // the double lies below the half, its 15 digits on it
        { 2.675, "0.00", "2.68" }, // likewise
        { 1.00499999999999, "0.00", "1.00" },
        { 9.995, "0.00", "10.00" },
        { 0.05, "0", "0" },
        { static_cast<double>(0.005F), "0.00", "0.00" }, // a float widened: 0.00499999988824129
        // a negative value that rounds to zero keeps its sign
        { -0.001, "0.00", "-0.00" },
        { -0.0, "0.00", "0.00" },
        // beyond 15 digits come zeros
        { 123456789012345678.0, "0", "123456789012346000" },
        { 1e20, "0.0", "100000000000000000000.0" },
        // exponent form
        { 0, "0.0000E+00", "0.0000E+00" },
        { 1234.5, "0.0000E+00", "1.2345E+03" },
        { -0.00012345, "0.000E+00", "-1.235E-04" },
        { 9.9999996, "0.00000E+00", "1.00000E+01" },
        { -1e32, "0.0000E+00", "-1.0000E+32" },
        { 1e-300, "0.0E+00", "1.0E-300" },
        // an E without a sign is a letter
        { 12.34567, "0.0000E", "12.3457E" },
        // a minus takes the place of a leading blank
        { -1, " 0", "-1" },
        { 1, " 0", " 1" },
        // two parts
        { -1.5, "  0.00; -0.00", " -1.50" },
        { 1.5, "  0.00; -0.00", "  1.50" },
        { -0.00005, "0.0000E+00;-0.0000E+00", "-5.0000E-05" },
    };
    for (const Case & given : cases) EXPECT_EQ(format_number(given.value, given.pattern), given.text) << given.pattern;
    EXPECT_THROW(format_number(std::numeric_limits<double>::infinity(), "0"), OverflowFault);
    EXPECT_THROW(format_number(std::numeric_limits<double>::quiet_NaN(), "0"), OverflowFault);
}

TEST(format_fixed, given_strip_then_trailing_zeros_go_but_one)
{
    EXPECT_EQ(format_fixed(1.5, 3, false), "1.500");
    EXPECT_EQ(format_fixed(1.5, 3, true), "1.5");
    EXPECT_EQ(format_fixed(2, 3, true), "2.0");
    EXPECT_EQ(format_fixed(100, 0, true), "100"); // without a point nothing is stripped
}

TEST(format_pattern_for_value, given_sizes_then_six_digits_or_an_exponent)
{
    const std::string exponent = "  0.000000E+00; -0.000000E+00";
    EXPECT_EQ(format_pattern_for_value(0, 6), "  0.00; -0.00");
    EXPECT_EQ(format_pattern_for_value(5, 6), "  0.00000; -0.00000");
    EXPECT_EQ(format_pattern_for_value(-25, 6), "  00.0000; -00.0000");
    EXPECT_EQ(format_pattern_for_value(123456, 6), "  000000.; -000000.");
    EXPECT_EQ(format_pattern_for_value(1234567, 6), exponent);
    EXPECT_EQ(format_pattern_for_value(0.05, 6), exponent);
}

TEST(format_pattern_for_magnitude, given_sizes_then_more_decimals_for_smaller_ones)
{
    EXPECT_EQ(format_pattern_for_magnitude(0), "0.00");
    EXPECT_EQ(format_pattern_for_magnitude(-0.00005), "0.0000E+00;-0.0000E+00");
    EXPECT_EQ(format_pattern_for_magnitude(0.0001), "0.000000");
    EXPECT_EQ(format_pattern_for_magnitude(0.001), "0.00000");
    EXPECT_EQ(format_pattern_for_magnitude(-0.01), "0.0000");
    EXPECT_EQ(format_pattern_for_magnitude(0.1), "0.000");
    EXPECT_EQ(format_pattern_for_magnitude(1), "0.00");
}
