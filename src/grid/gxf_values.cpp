#include "grid/gxf_values.h"

#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"

#include <algorithm>

namespace {

constexpr char first_digit = '%', missing_mark = '!', repeat_mark = '"'; // the digits of base 90 run from % to ~
constexpr double base = 90;
constexpr const char * cut_short = "it is cut short: it holds fewer values than its header says";

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

void skip_blanks(std::string_view & text)
{
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
}

std::string_view take_word(std::string_view & text)
{
    skip_blanks(text);
    const auto end = std::ranges::find_if(text, is_blank);
    const std::string_view word = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    if (word.empty()) throw Fault(cut_short);
    text.remove_prefix(word.size());
    return word;
}

double plain_value(const GxfValues & form, double dummy, std::string_view word)
{
    if (word == form.dummy) return missing_value;
    const NumberPrefix number = number_prefix(word);
    if (number.length != word.size()) throw Fault("among its values stands \"" + std::string(word.substr(0, 20)) + "\"");
    if (number.value == dummy || is_missing(number.value)) return missing_value;
    return number.value * form.scale + form.offset;
}

void read_plain(const GxfValues & form, std::string_view & text, std::span<double> row)
{
    const double dummy = is_numeric(form.dummy) ? leading_number(form.dummy) : missing_value;
    for (double & value : row) value = plain_value(form, dummy, take_word(text));
}

/// The next packed item. Lines may end between items but not within one.
std::string_view take_item(const GxfValues & form, std::string_view & text)
{
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    const auto size = static_cast<std::size_t>(form.packed_size);
    if (text.size() < size) throw Fault(cut_short);
    const std::string_view item = text.substr(0, size);
    text.remove_prefix(size);
    return item;
}

double digits_of(std::string_view item)
{
    double number = 0;
    for (const char c : item) {
        if (c < first_digit || c > '~') throw Fault("a packed value holds a character that is no digit");
        number = number * base + (c - first_digit);
    }
    return number;
}

bool consists_of(std::string_view item, char mark)
{
    return std::ranges::all_of(item, [&](char c) { return c == mark; });
}

double packed_value(const GxfValues & form, std::string_view item)
{
    return consists_of(item, missing_mark) ? missing_value : digits_of(item) * form.scale + form.offset;
}

void read_packed(const GxfValues & form, std::string_view & text, std::span<double> row)
{
    while (!row.empty()) {
        std::string_view item = take_item(form, text);
        double count = 1;
        if (consists_of(item, repeat_mark)) {
            count = digits_of(take_item(form, text));
            item = take_item(form, text);
        }
        if (!(count >= 1 && count <= static_cast<double>(row.size()))) throw Fault("a repeat of a packed value leaves its row");
        const auto filled = static_cast<std::size_t>(count);
        std::ranges::fill(row.first(filled), packed_value(form, item));
        row = row.subspan(filled);
    }
}

}

void read_gxf_values(const GxfValues & form, std::string_view & text, std::span<double> row)
{
    if (form.packed_size > 0)
        read_packed(form, text, row);
    else
        read_plain(form, text, row);
}
