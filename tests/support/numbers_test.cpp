#include "fakes/case_table.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/pattern.h"

#include <clocale>
#include <gtest/gtest.h>
#include <limits>
#include <locale>

namespace {

TEST(numbers, given_a_text_then_its_longest_prefix_counts_and_only_a_whole_number_is_numeric)
{
    for (const auto & [text, value, numeric] : cases_of<3>("numbers_read.cases")) {
        EXPECT_EQ(leading_number(text), number_in<double>(value)) << text;
        EXPECT_EQ(is_numeric(text), numeric == "yes") << text;
    }
    const std::string zeros(400, '0');
    for (const std::string & large : { std::string("-1e400"), "01" + zeros, "1" + zeros + "e-5", "0.0000001e" + zeros + "400" }) {
        EXPECT_THROW(leading_number(large), OverflowFault) << large;
        EXPECT_FALSE(is_numeric(large)) << large;
    }
    for (const std::string & tiny : { "." + zeros + "1", "0." + zeros + "1e50", "10e-" + zeros + "400", "1e-9" + zeros })
        EXPECT_EQ(leading_number(tiny), 0) << tiny;
}

TEST(numbers, given_a_conversion_then_halves_go_to_even_and_nothing_wraps_round)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto & [value, count] : { std::pair(0.5, 0), { 1.5, 2 }, { -2.5, -2 } }) EXPECT_EQ(round_to_count(value), count);
    EXPECT_EQ(leading_count("2147483647.4"), 2147483647);
    for (const double value : { 2147483647.5, -2147483649.0, nan }) EXPECT_THROW(round_to_count(value), OverflowFault) << value;
    EXPECT_EQ(to_f32(0.1), 0.1F);
    for (const double value : { 1e39, -1e39, nan }) EXPECT_THROW(to_f32(value), OverflowFault) << value;
    EXPECT_THROW(add_counts(2147483647, 1), OverflowFault);
    EXPECT_THROW(multiply_counts(65536, 32768), OverflowFault);
    EXPECT_EQ(multiply_counts(65536, -32768), -2147483647 - 1);
}

TEST(numbers, given_a_number_then_its_text_by_form_or_pattern)
{
    const auto text_of = [](const std::string & form, const std::string & number) {
        if (form == "plain 32") return general_text(number_in<float>(number));
        if (form == "plain 64") return general_text(number_in<double>(number));
        if (form == "signed 32") return str_text(number_in<float>(number));
        if (form == "signed 64") return str_text(number_in<double>(number));
        return format_number(number_in<double>(number), form);
    };
    for (const auto & [form, number, text] : cases_of<3>("numbers_written.cases"))
        EXPECT_EQ(text_of(form, number), text) << form << " of " << number;
    EXPECT_THROW(general_text(std::numeric_limits<double>::infinity()), OverflowFault);
    EXPECT_THROW(format_number(std::numeric_limits<double>::quiet_NaN(), "0"), OverflowFault);
}

/// Decimal commas and marks between thousands, for C++ and, where the computer has such a locale, for C.
struct DecimalCommas {
    struct Marks : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale before = std::locale::global(std::locale(std::locale(), new Marks));
    DecimalCommas()
    {
        for (const char * name : { "de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8" })
            if (std::setlocale(LC_ALL, name) != nullptr) break;
    }
    ~DecimalCommas()
    {
        std::locale::global(before);
        std::setlocale(LC_ALL, "C");
    }
};

TEST(numbers, given_a_locale_with_decimal_commas_then_texts_stay_as_they_are)
{
    const DecimalCommas commas;
    EXPECT_EQ(leading_number("1234.5"), 1234.5);
    EXPECT_FALSE(is_numeric("1,5"));
    EXPECT_EQ(general_text(1234567.5) + general_text(std::int32_t{ 1234567 }) + str_text(0.02F), "1234567.51234567 .02");
    EXPECT_EQ(format_number(1234567.5, "0.00"), "1234567.50");
    EXPECT_EQ(format_number(1e-5, "0.0000E+00"), "1.0000E-05");
}

}
