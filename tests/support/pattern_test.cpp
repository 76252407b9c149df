#include "support/fault.h"
#include "support/pattern.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(patterns, given_a_number_then_the_text_follows_the_pattern)
{
    struct {
        double value;
        const char *pattern, *text;
    } const cases[] = {
        // halves go away from zero, on the decimal text of 15 digits and not on the binary value
        { 0.5, "0", "1" },
        { 2.5, "0", "3" },
        { -2.5, "0", "-3" },
        { 0.125, "0.00", "0.13" },
        { 1.005, "0.00", "1.01" },
        { 0.285F, "0.00", "0.28" }, // the float lies below
        { 9.996, "0.00", "10.00" },
        { 0.96, "0.0", "1.0" },
        { 0.00005, "0.0000", "0.0001" },
        { 0.000049, "0.0000", "0.0000" },
        { 123456789012345678.0, "0", "123456789012346000" },
        // a negative number keeps its sign when nothing else is left of it
        { -0.001, "0.00", "-0.00" },
        { -0.0, "0.00", "0.00" },
        { 0, "0.00", "0.00" },
        // exponents; without a sign behind it the E is a letter
        { 12345.678, "0.00000E+00", "1.23457E+04" },
        { 9.99996, "0.0000E+00", "1.0000E+01" },
        { 0, "0.0000E+00", "0.0000E+00" },
        { -1.5e-100, "0.0000E+00", "-1.5000E-100" },
        { 1.25, "0.0000E", "1.2500E" },
        { -0.25, "0.0000E", "-0.2500E" },
        // the sign takes the place of a blank; a second part brings its own
        { 1, " 0", " 1" },
        { -1, " 0", "-1" },
        { 0.5, "  0.00; -0.00", "  0.50" },
        { -0.5, "  0.00; -0.00", " -0.50" },
        { -1e-5, "0.0000E+00;-0.0000E+00", "-1.0000E-05" },
        { 7, "#0.000", "7.000" },
        { 123456, "  000000.; -000000.", "  123456." },
    };
    for (const auto & row : cases) EXPECT_EQ(format_number(row.value, row.pattern), row.text) << row.pattern;
    EXPECT_THROW(format_number(std::numeric_limits<double>::quiet_NaN(), "0"), OverflowFault);
}

TEST(patterns, given_decimals_then_stripping_leaves_one_and_no_whole_digit_goes)
{
    EXPECT_EQ(format_fixed(2, 3, false), "2.000");
    EXPECT_EQ(format_fixed(1.5, 3, true), "1.5");
    EXPECT_EQ(format_fixed(2, 3, true), "2.0");
    EXPECT_EQ(format_fixed(100, 0, true), "100");
}

TEST(patterns, given_a_size_then_its_pattern)
{
    EXPECT_EQ(format_pattern_for_value(0, 6), "  0.00; -0.00");
    EXPECT_EQ(format_pattern_for_value(-50, 6), "  00.0000; -00.0000");
    EXPECT_EQ(format_pattern_for_value(123456, 6), "  000000.; -000000.");
    EXPECT_EQ(format_pattern_for_value(1e6, 6), "  0.000000E+00; -0.000000E+00");
    EXPECT_EQ(format_pattern_for_value(0.001, 6), "  0.000000E+00; -0.000000E+00");
    const std::pair<double, const char *> magnitudes[] = {
        { 0, "0.00" },           { 0.00009, "0.0000E+00;-0.0000E+00" },
        { -0.0001, "0.000000" }, { 0.001, "0.00000" },
        { 0.01, "0.0000" },      { -0.1, "0.000" },
        { 1, "0.00" },
    };
    for (const auto & [x, pattern] : magnitudes) EXPECT_EQ(format_pattern_for_magnitude(x), pattern) << x;
}

}
