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
    struct {
        const char * text;
        double value;
        bool numeric;
    } const cases[] = {
        { "", 0, false },        { "  ", 0, false },    { ".", 0, false },    { "-", 0, false },       { "abc", 0, false },
        { " 12abc", 12, false }, { "1 2", 1, false },   { "1,5", 1, false },  { "1e", 1, false },      { "2e+x", 2, false },
        { "1d5", 1, false },     { "0x10", 0, false },  { "inf", 0, false },  { "nan", 0, false },     { "--1", 0, false },
        { "5.", 5, true },       { "-.5", -0.5, true }, { "+7", 7, true },    { "\t3 ", 3, true },     { "1.5e3", 1500, true },
        { "1E-2", 0.01, true },  { "1e-400", 0, true }, { "0e999", 0, true }, { "1.2.3", 1.2, false },
    };
    for (const auto & row : cases) {
        EXPECT_EQ(leading_number(row.text), row.value) << row.text;
        EXPECT_EQ(is_numeric(row.text), row.numeric) << row.text;
    }
    EXPECT_THROW(leading_number("-1e400"), OverflowFault);
    EXPECT_FALSE(is_numeric("1e400"));
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

/// The text of each number, "|" between them.
template <class Number>
std::string texts(std::string (*text)(Number), std::initializer_list<Number> numbers)
{
    std::string all;
    for (const Number number : numbers) all += (all.empty() ? "" : "|") + text(number);
    return all;
}

TEST(numbers, given_a_number_then_its_text_has_the_digits_of_its_kind_and_an_exponent_only_beyond_them)
{
    EXPECT_EQ(texts<float>(&general_text, { 0, -0.0F, 0.02F, -0.5F, 1 / 3.0F, 0.0001F, 1e-5F, -1.25e-12F }),
              "0|0|0.02|-0.5|0.3333333|0.0001|1E-05|-1.25E-12");
    EXPECT_EQ(texts<float>(&general_text, { -1234.5F, 9999999, 1e7F, 16777216, -1e32F }),
              "-1234.5|9999999|1E+07|1.677722E+07|-1E+32");
    EXPECT_EQ(texts<double>(&general_text, { 0.1 + 0.2, -7654321.123456789, 999999999999999, 1e15, 0.9999999999999999 }),
              "0.3|-7654321.12345679|999999999999999|1E+15|1");
    EXPECT_EQ(texts<float>(&str_text, { 0, 0.02F, -0.5F, 3, -1e-5F, 10.5F }), " 0| .02|-.5| 3|-1E-05| 10.5");
    EXPECT_EQ(texts<double>(&str_text, { 1.5e-100, -0.25 }), " 1.5E-100|-.25");
    EXPECT_THROW(general_text(std::numeric_limits<double>::infinity()), OverflowFault);
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
