#include "support/fault.h"
#include "support/pattern.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

TEST(patterns, given_a_number_then_the_text_follows_the_pattern)
{
    struct {
        const char * pattern;
        std::vector<double> values;
        const char * texts;
    } const cases[] = {
        // halves go away from zero, on the decimal text of 15 digits and not on the binary value
        { "0", { 0.5, 2.5, -2.5, 123456789012345678.0 }, "1|3|-3|123456789012346000|" },
        { "0.00", { 0.125, 1.005, 9.996, 0.285F }, "0.13|1.01|10.00|0.28|" }, // the float lies below
        { "0.0000", { 0.00005, 0.000049, 0.99996 }, "0.0001|0.0000|1.0000|" },
        // a negative number keeps its sign when nothing else is left of it
        { "0.00", { 0, -0.0, -0.001 }, "0.00|0.00|-0.00|" },
        // exponents; without a sign behind it the E is a letter
        { "0.0000E+00", { 12345.678, 9.99996, 0, -1.5e-100 }, "1.2346E+04|1.0000E+01|0.0000E+00|-1.5000E-100|" },
        { "0.0000E", { 1.25, -0.25 }, "1.2500E|-0.2500E|" },
        // the sign takes the place of a blank; a second part brings its own
        { " 0", { 1, -1 }, " 1|-1|" },
        { "  0.00; -0.00", { 0.5, -0.5 }, "  0.50| -0.50|" },
        { "0.0000E+00;-0.0000E+00", { -1e-5 }, "-1.0000E-05|" },
        { "000000.", { 123456 }, "123456.|" },
    };
    for (const auto & row : cases) {
        std::string texts;
        for (const double value : row.values) texts += format_number(value, row.pattern) + "|";
        EXPECT_EQ(texts, row.texts) << row.pattern;
    }
    EXPECT_THROW(format_number(std::numeric_limits<double>::quiet_NaN(), "0"), OverflowFault);
}

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
