#include "support/pattern.h"

#include <gtest/gtest.h>

namespace {

TEST(patterns, given_decimals_or_a_size_then_the_text_or_pattern)
{
    EXPECT_EQ(format_fixed(2, 3, false) + "|" + format_fixed(1.5, 3, true) + "|" + format_fixed(2, 3, true), "2.000|1.5|2.0");
    EXPECT_EQ(format_fixed(100, 0, true), "100"); // no digit in front of the point goes
    EXPECT_EQ(format_pattern_for_value(0, 6), "  0.00; -0.00");
    EXPECT_EQ(format_pattern_for_value(-50, 6), "  00.0000; -00.0000");
    EXPECT_EQ(format_pattern_for_value(123456, 6), "  000000.; -000000.");
    for (const double value : { 1e6, 0.001 }) EXPECT_EQ(format_pattern_for_value(value, 6), "  0.000000E+00; -0.000000E+00");
    std::string magnitudes;
    for (const double x : { 0.0, -0.0001, 0.001, 0.01, -0.1, 1.0 }) magnitudes += format_pattern_for_magnitude(x) + "|";
    EXPECT_EQ(magnitudes, "0.00|0.000000|0.00000|0.0000|0.000|0.00|");
    EXPECT_EQ(format_pattern_for_magnitude(-0.00009), "0.0000E+00;-0.0000E+00");
}

}
