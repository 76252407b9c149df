#include "support/pattern.h"

#include "support/fault.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace {

constexpr const char * not_finite = "a number without a finite value cannot be written";

/// The 15 significant digits of a positive value: 0.d1d2d3... times ten to the power `point`.
struct Decimal {
    std::string digits;
    int point = 0;
};

Decimal decimal_of(double size)
{
    if (!std::isfinite(size)) throw OverflowFault(not_finite);
    if (size == 0) return { "0", 1 };
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, size, std::chars_format::scientific, 14);
    int exponent = 0;
    const char * exponent_text = buffer + 17; // "d.dddddddddddddde" and then the sign
    std::from_chars(exponent_text + (*exponent_text == '+' ? 1 : 0), end.ptr, exponent);
    return { std::string(1, buffer[0]) + std::string(buffer + 2, 14), exponent + 1 };
}

/// Keeps `count` digits (0 or more), rounding half away from zero; a carry moves the point.
void round_decimal(Decimal & decimal, int count)
{
    if (count < 0 || static_cast<std::size_t>(count) >= decimal.digits.size()) {
        if (count < 0) decimal.digits.clear();
        return;
    }
    const bool up = decimal.digits[static_cast<std::size_t>(count)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(count));
    if (!up) return;
    std::size_t at = decimal.digits.size();
    while (at > 0 && decimal.digits[at - 1] == '9') decimal.digits[--at] = '0';
    if (at > 0) {
        ++decimal.digits[at - 1];
    } else {
        decimal.digits.insert(decimal.digits.begin(), '1');
        ++decimal.point;
    }
}

/// One part of a pattern, taken apart.
struct Part {
    std::string_view before, after;
    int whole_digits = 0; // zeros in front of the point
    bool point = false;   // stands in the text even without decimals
    int decimals = 0;
    int exponent_digits = 0; // 0: not exponent form
};

Part part_of(std::string_view pattern)
{
    Part part;
    const std::size_t first = std::min(pattern.find_first_of("0#."), pattern.size());
    part.before = pattern.substr(0, first);
    std::size_t at = first;
    for (; at < pattern.size() && (pattern[at] == '0' || pattern[at] == '#'); ++at) part.whole_digits += pattern[at] == '0';
    part.point = at < pattern.size() && pattern[at] == '.';
    if (part.point)
        for (++at; at < pattern.size() && pattern[at] == '0'; ++at) ++part.decimals;
    if (pattern.substr(at).starts_with("E+0"))
        for (at += 2; at < pattern.size() && pattern[at] == '0'; ++at) ++part.exponent_digits;
    part.after = pattern.substr(at);
    return part;
}

std::string digits_between(const Decimal & decimal, int from, int to)
{
    std::string text;
    for (int i = from; i < to; ++i)
        text += i >= 0 && i < static_cast<int>(decimal.digits.size()) ? decimal.digits[static_cast<std::size_t>(i)] : '0';
    return text;
}

std::string fixed_text(Decimal decimal, const Part & part)
{
    round_decimal(decimal, decimal.point + part.decimals);
    const int whole = std::max(decimal.point, 0);
    std::string text = digits_between(decimal, decimal.point - whole, decimal.point);
    if (text == "0") text.clear();
    if (static_cast<int>(text.size()) < part.whole_digits)
        text.insert(0, static_cast<std::size_t>(part.whole_digits) - text.size(), '0');
    if (part.point) text += "." + digits_between(decimal, decimal.point, decimal.point + part.decimals);
    return text;
}

std::string exponent_text(Decimal decimal, const Part & part)
{
    round_decimal(decimal, part.whole_digits + part.decimals);
    const bool zero = decimal.digits.find_first_not_of('0') == std::string::npos;
    const int exponent = zero ? 0 : decimal.point - part.whole_digits;
    std::string text = digits_between(decimal, 0, part.whole_digits);
    if (part.point) text += "." + digits_between(decimal, part.whole_digits, part.whole_digits + part.decimals);
    std::string size = std::to_string(std::abs(exponent));
    if (static_cast<int>(size.size()) < part.exponent_digits)
        size.insert(0, static_cast<std::size_t>(part.exponent_digits) - size.size(), '0');
    return text + (exponent < 0 ? "E-" : "E+") + size;
}

}

std::string format_number(double value, std::string_view pattern)
{
    const bool negative = value < 0;
    const std::size_t semicolon = pattern.find(';');
    const bool own_negative_part = negative && semicolon != std::string_view::npos;
    const Part part = part_of(own_negative_part ? pattern.substr(semicolon + 1) : pattern.substr(0, semicolon));
    const Decimal decimal = decimal_of(std::abs(value));

    std::string before(part.before);
    if (negative && !own_negative_part) {
        if (!before.empty() && before.back() == ' ') before.pop_back();
        before += '-';
    }
    return before + (part.exponent_digits > 0 ? exponent_text(decimal, part) : fixed_text(decimal, part)) +
           std::string(part.after);
}

std::string format_fixed(double value, int decimals, bool strip)
{
    std::string pattern = "0";
    if (decimals > 0) pattern += "." + std::string(static_cast<std::size_t>(decimals), '0');
    std::string text = format_number(value, pattern);
    if (!strip || text.find('.') == std::string::npos) return text;
    while (text.back() == '0') text.pop_back();
    return text.back() == '.' ? text + "0" : text;
}

std::string format_pattern_for_value(double value, int width)
{
    if (value == 0) return "  0.00; -0.00";
    if (!std::isfinite(value)) throw OverflowFault(not_finite);
    const int digits = static_cast<int>(std::log10(std::abs(value))) + 1;
    if (digits < 7 - width || digits > width) return "  0.000000E+00; -0.000000E+00";
    const std::string form = std::string(static_cast<std::size_t>(std::max(digits, 0)), '0') + "." +
                             std::string(static_cast<std::size_t>(std::max(6 - digits, 0)), '0');
    return "  " + form + "; -" + form;
}

std::string format_pattern_for_magnitude(double x)
{
    const double size = std::abs(x);
    if (size == 0) return "0.00";
    if (size < 0.0001) return "0.0000E+00;-0.0000E+00";
    if (size < 0.001) return "0.000000";
    if (size < 0.01) return "0.00000";
    if (size < 0.1) return "0.0000";
    if (size < 1) return "0.000";
    return "0.00";
}
