#include "utilities/dms_text.h"

#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

/// An angle's text in its parts.
struct DmsFields {
    std::vector<std::string> numbers; ///< degrees, minutes, seconds; empty when the text is no angle
    bool other_side = false;          ///< the letter of the west or the south stands behind
};

/// Splits at blanks and tabs. Empty for a text without a number, with more than three or with something else in it.
std::vector<std::string> numbers_of(std::string_view text)
{
    std::vector<std::string> numbers;
    for (std::size_t end = 0, start; (start = text.find_first_not_of(" \t", end)) != text.npos;) {
        end = std::min(text.find_first_of(" \t", start), text.size());
        numbers.emplace_back(text.substr(start, end - start));
    }
    const bool good = numbers.size() <= 3 && std::ranges::all_of(numbers, [](const auto & n) { return is_numeric(n); });
    return good ? numbers : std::vector<std::string>();
}

DmsFields fields_of(std::string_view text, DmsAxis axis)
{
    std::string upper = upper_case(text);
    upper.erase(upper.find_last_not_of(" \t") + 1);
    const char near = axis == DmsAxis::longitude ? 'E' : 'N', far = axis == DmsAxis::longitude ? 'W' : 'S';
    const char letter = upper.empty() ? ' ' : upper.back();
    if (letter == near || letter == far) upper.pop_back();
    return { numbers_of(upper), letter == far };
}

/// What follows the degrees in each style, and in how many units of it a second is counted.
struct DmsForm {
    bool seconds;
    int decimals; ///< of the seconds
    bool marks;   ///< ' and "
};

/// By the size of the style. Style 0 can be read back by `parse_dms_text`.
constexpr DmsForm forms[] = { { true, 3, false }, { false, 0, false }, { true, 0, false },
                              { true, 3, true },  { true, 4, false },  { true, 5, false } };

std::string right_aligned(std::int64_t number, std::size_t width)
{
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), ' ') + digits;
}

/// Whole units of a second (or of a minute) since 0, in fields: carrying is done before the text is made.
std::string fields_text(std::int64_t units, const DmsForm & form)
{
    std::int64_t fraction_size = 1;
    for (int i = 1; i <= form.decimals; ++i) fraction_size *= 10;
    const std::int64_t fraction = units % fraction_size, whole = units / fraction_size;
    const std::int64_t minutes = form.seconds ? whole / 60 : whole;
    std::string text = right_aligned(minutes / 60, 4) + " " + right_aligned(minutes % 60, 2) + (form.marks ? "'" : "");
    if (!form.seconds) return text;
    text += " " + right_aligned(whole % 60, 2);
    if (form.decimals > 0) text += "." + std::to_string(fraction_size + fraction).substr(1);
    return text + (form.marks ? "\"" : "");
}

/// The "-" takes the place of the blank before the first digit.
std::string with_sign(std::string text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == 0) return "-" + text;
    text[first - 1] = '-';
    return text;
}

}

Status check_dms_text(std::string_view text, DmsAxis axis)
{
    constexpr std::pair<double, double> limits[] = { { -180, 180 }, { 0, 59 }, { 0, 60 } };
    const auto numbers = fields_of(text, axis).numbers;
    if (numbers.empty()) return Status::bad;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const double value = leading_number(numbers[i]);
        const bool below_upper = i == 2 ? value < limits[i].second : value <= limits[i].second; // 59 60 is the next minute
        if (!(value >= limits[i].first) || !below_upper) return Status::bad;
    }
    return Status::good;
}

double parse_dms_text(std::string_view text, DmsAxis axis)
{
    const DmsFields fields = fields_of(text, axis);
    if (fields.numbers.empty()) return no_angle;
    double size = 0;
    for (std::size_t i = fields.numbers.size(); i-- > 1;) size = (size + leading_number(fields.numbers[i])) / 60;
    size += std::abs(leading_number(fields.numbers[0]));
    const bool negative = fields.numbers[0].front() == '-'; // of the text: a number has no minus for "-0 30 00"
    return negative != fields.other_side ? -size : size;
}

std::string format_dms_text(double value, int style)
{
    const auto last_form = static_cast<int>(std::size(forms)) - 1;
    const DmsForm & form = forms[std::clamp(std::abs(style), 0, last_form)];
    const double units = std::round(std::abs(value) * (form.seconds ? 3600 * std::pow(10, form.decimals) : 60));
    if (!(units < 1e15)) return general_text(value);
    const std::string text = fields_text(static_cast<std::int64_t>(units), form);
    const bool negative = value < 0 && units > 0;
    if (style == 0) return negative ? with_sign(text) : text;
    const std::string_view letters = style > 0 ? "EW" : "NS";
    return letters[negative ? 1 : 0] + text;
}
