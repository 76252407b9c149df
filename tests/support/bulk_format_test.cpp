#include "fakes/case_table.h"
#include "support/bulk_format.h"
#include "support/fault.h"
#include "support/pattern.h"
#include "support/text.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace {

std::string exponent_text(float value)
{
    char text[longest_exponent];
    return { text, put_exponent(text, value) };
}

std::string fixed_text(double value, int decimals)
{
    char text[longest_fixed];
    return { text, put_fixed(text, value, decimals) };
}

std::string field_text(double value)
{
    char text[field_width];
    return { text, put_field(text, value) };
}

/// Counts the values whose text differs from that of the pattern engine; the first few are named.
struct Comparison {
    std::int64_t compared = 0, wrong = 0;

    void add(const std::string & fast, const std::string & exact)
    {
        ++compared;
        if (fast != exact && ++wrong <= 5) ADD_FAILURE() << "'" << fast << "' for '" << exact << "'";
    }
    void exponent(float value) { add(exponent_text(value), format_number(static_cast<double>(value), "0.00000E+00")); }
    void fixed(double value, int decimals)
    {
        add(fixed_text(value, decimals), format_fixed(value, decimals, false));
        add(field_text(value), pad_left(format_number(value, "0.0000"), 14));
    }
};

}

TEST(bulk_formats, given_worked_values_then_their_texts)
{
    for (const auto & [form, number, text] : cases_of<3>("bulk_format.cases")) {
        const double value = number_in<double>(number);
        EXPECT_EQ(form == "exponent" ? exponent_text(static_cast<float>(value))
                  : form == "field"  ? field_text(value)
                                     : fixed_text(value, form.back() - '0'),
                  text)
            << form << " of " << number;
    }
}

TEST(put_exponent, given_values_of_all_sizes_and_halves_then_equal_to_the_pattern_engine)
{
    Comparison comparison;
    std::mt19937 random(1);
    for (std::uint32_t exponent = 0; exponent < 255; ++exponent)
        for (int i = 0; i < 8000; ++i) {
            // a third at the ends of the binade, where the decimal exponent changes for powers of two
            const auto any = static_cast<std::uint32_t>(random());
            const std::uint32_t mantissa = (i % 3 == 0 ? any % 2000 - 1000 : any >> 8) & 0x7FFFFFU;
            comparison.exponent(std::bit_cast<float>((any & 0x80000000U) | (exponent << 23) | mantissa));
        }
    for (int power = -44; power <= 38; ++power)
        for (int i = 0; i < 10000; ++i) { // powers of ten and halves, and their neighbours
            const double six_digits = i % 20 < 5 ? 1e5 : static_cast<double>(100000 + random() % 900000) + 0.5;
            const auto nearest = static_cast<float>(six_digits * std::pow(10.0, power - 5));
            const auto step = static_cast<std::uint32_t>(i % 5);
            if (std::isfinite(nearest))
                comparison.exponent(std::bit_cast<float>(std::bit_cast<std::uint32_t>(nearest) + step - 2));
        }
    EXPECT_GE(comparison.compared, 2'700'000);
}

TEST(put_fixed, given_values_of_all_sizes_and_halves_then_equal_to_the_pattern_engine)
{
    Comparison comparison;
    std::mt19937_64 random(3);
    const auto below = [&random](std::uint64_t limit) { return static_cast<int>(random() % limit); };
    for (int i = 0; i < 150'000; ++i) {
        const int decimals = below(10);
        const double any = static_cast<double>(random() >> 11) * std::pow(10.0, below(26) - 26);
        comparison.fixed(i % 2 == 0 ? any : -any, decimals);
        // what a file with one decimal more holds: a half as nearly as a double can, and its lower neighbours
        const double half = (static_cast<double>(random() >> (20 + below(44))) + 0.5) / std::pow(10.0, decimals);
        comparison.fixed(half, decimals);
        comparison.fixed(std::nextafter(half, 0), decimals);
        comparison.fixed(half * (1 - below(100) * 1e-16), decimals);
        comparison.fixed(std::ldexp(static_cast<double>(below(1U << 30)), -below(40)), decimals); // exact halves
    }
    EXPECT_GE(comparison.compared, 1'500'000);
}

TEST(bulk_formats, given_values_beyond_the_quick_way_then_still_whole)
{
    EXPECT_EQ(fixed_text(-1.7976931348623157e308, 9).size(), longest_fixed); // sign, 309 digits, point, 9 decimals
    char text[longest_fixed];
    for (const double value : { std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN() }) {
        EXPECT_THROW(put_fixed(text, value, 4), OverflowFault);
        EXPECT_THROW(put_field(text, -value), OverflowFault);
        EXPECT_THROW(put_exponent(text, static_cast<float>(value)), OverflowFault);
    }
}
