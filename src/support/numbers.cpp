#include "support/numbers.h"

#include "support/fault.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_blank(char c) { return c == ' ' || c == '\t'; }

std::size_t count_digits(std::string_view text, std::size_t from)
{
    std::size_t end = from;
    while (end < text.size() && is_digit(text[end])) ++end;
    return end - from;
}

/// The end of the exponent that starts at `from`, or `from` itself when there is none with digits.
std::size_t exponent_end(std::string_view text, std::size_t from)
{
    if (from >= text.size() || (text[from] != 'e' && text[from] != 'E')) return from;
    std::size_t digits = from + 1;
    if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
    const std::size_t count = count_digits(text, digits);
    return count == 0 ? from : digits + count;
}

/// Of a number, without its sign, that a double cannot hold: whether it is too small for that, not too large.
bool is_tiny(std::string_view number)
{
    const std::size_t mantissa_end = std::min(number.find_first_of("eE"), number.size());
    const std::size_t point = std::min(number.find('.'), mantissa_end);
    const std::size_t leading = number.find_first_not_of("0.");
    const double order = static_cast<double>(point) - static_cast<double>(leading);
    const std::size_t digits = number.find_first_of("0123456789", mantissa_end);
    if (digits == std::string_view::npos) return order < 0;
    std::int64_t exponent = 0;
    const auto read = std::from_chars(number.data() + digits, number.data() + number.size(), exponent);
    if (read.ec != std::errc()) exponent = std::numeric_limits<std::int32_t>::max();
    return order + static_cast<double>(number[mantissa_end + 1] == '-' ? -exponent : exponent) < 0;
}

std::string general_text_of(std::string_view scientific, int significant_digits)
{
    const std::size_t e = scientific.find('e');
    std::string digits;
    const bool negative = scientific[0] == '-';
    for (const char c : scientific.substr(0, e))
        if (is_digit(c)) digits += c;
    int exponent = 0;
    const std::string_view exponent_text = scientific.substr(e + (scientific[e + 1] == '+' ? 2 : 1));
    std::from_chars(exponent_text.data(), exponent_text.data() + exponent_text.size(), exponent);
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
    if (digits == "0") return "0";

    std::string text = negative ? "-" : "";
    if (exponent <= -5 || exponent >= significant_digits) {
        text += digits[0];
        if (digits.size() > 1) text += "." + digits.substr(1);
        const std::string size = std::to_string(std::abs(exponent));
        return text + (exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
    }
    if (exponent < 0) return text + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole) return text + digits + std::string(whole - digits.size(), '0');
    return text + digits.substr(0, whole) + "." + digits.substr(whole);
}

template <class Number>
std::string general_text_with(Number value, int significant_digits)
{
    if (!std::isfinite(value)) throw OverflowFault("a number without a finite value cannot be written");
    char buffer[48];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, significant_digits - 1);
    return general_text_of(std::string_view(buffer, static_cast<std::size_t>(end.ptr - buffer)), significant_digits);
}

std::string with_sign_place(std::string text)
{
    const bool negative = text[0] == '-';
    const std::string size = text.substr(negative ? 1 : 0);
    const std::string pointed = size.starts_with("0.") ? size.substr(1) : size;
    return (negative ? "-" : " ") + pointed;
}

}

NumberPrefix number_prefix(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size() && is_blank(text[at])) ++at;
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;

    const std::size_t first = at;
    std::size_t digits = count_digits(text, at);
    at += digits;
    if (at < text.size() && text[at] == '.') {
        const std::size_t decimals = count_digits(text, at + 1);
        digits += decimals;
        at += decimals + 1;
    }
    if (digits == 0) return {};
    at = exponent_end(text, at);

    double value = 0;
    const auto read = std::from_chars(text.data() + first, text.data() + at, value);
    if (read.ec == std::errc::result_out_of_range) {
        const std::string_view number = text.substr(first, at - first);
        if (!is_tiny(number)) throw OverflowFault("a number is too large: " + std::string(number));
        value = 0;
    }
    return { negative ? -value : value, at };
}

double leading_number(std::string_view text) { return number_prefix(text).value; }

bool is_numeric(std::string_view text)
{
    try {
        const NumberPrefix prefix = number_prefix(text);
        if (prefix.length == 0) return false;
        return text.find_first_not_of(" \t", prefix.length) == std::string_view::npos;
    } catch (const OverflowFault &) {
        return false;
    }
}

std::int32_t round_to_count(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max()))
        throw OverflowFault("Overflow: a count is beyond 32 bits");
    return static_cast<std::int32_t>(rounded);
}

std::int32_t leading_count(std::string_view text) { return round_to_count(leading_number(text)); }

float to_f32(double value)
{
    const auto narrow = static_cast<float>(value);
    if (!std::isfinite(narrow)) throw OverflowFault("Overflow: a number is beyond single precision");
    return narrow;
}

std::int32_t add_counts(std::int32_t a, std::int32_t b)
{
    return round_to_count(static_cast<double>(static_cast<std::int64_t>(a) + b));
}

std::int32_t multiply_counts(std::int32_t a, std::int32_t b)
{
    return round_to_count(static_cast<double>(static_cast<std::int64_t>(a) * b));
}

double compress_value(double x) { return std::abs(x) <= 1 ? x : std::copysign(std::sqrt(std::abs(x)), x); }

std::string general_text(double value) { return general_text_with(value, 15); }
std::string general_text(float value) { return general_text_with(value, 7); }
std::string general_text(std::int32_t value)
{
    char buffer[16];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

std::string str_text(double value) { return with_sign_place(general_text(value)); }
std::string str_text(float value) { return with_sign_place(general_text(value)); }
