#include "data/line_scanner.h"
#include "fuzz/readers.h"
#include "fuzz/surroundings.h"
#include "mesh/weighting_list.h"
#include "support/bulk_format.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/pattern.h"
#include "support/plain_number.h"
#include "support/text.h"
#include "support/text_file.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <optional>

namespace {

template <class Number>
Number take_bits(Input & input)
{
    Number number = 0;
    char * const bytes = reinterpret_cast<char *>(&number);
    for (std::size_t i = 0; i < sizeof number; ++i) bytes[i] = static_cast<char>(input.take_byte());
    return number;
}

/// What a procedure gives; nothing when it fails with a fault.
template <class Make>
auto made(Make make) -> std::optional<decltype(make())>
{
    try {
        return make();
    } catch (const Fault &) {
        return std::nullopt;
    }
}

// The plain forms of what the program does in a quicker way.

bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// The grammar of a number step by step, and the C library for its value, which is right to the last bit.
NumberPrefix plain_prefix(const std::string & text)
{
    std::size_t at = text.find_first_not_of(" \t");
    if (at == std::string::npos) return {};
    const std::size_t start = at;
    const auto skip_digits = [&] {
        const std::size_t first = at;
        while (at < text.size() && is_digit(text[at])) ++at;
        return at - first;
    };
    if (text[at] == '+' || text[at] == '-') ++at;
    std::size_t digits = skip_digits();
    if (at < text.size() && text[at] == '.') {
        ++at;
        digits += skip_digits();
    }
    if (digits == 0) return {};
    const std::size_t mantissa_end = at;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        ++at;
        if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
        if (skip_digits() == 0) at = mantissa_end;
    }
    return { std::strtod(text.substr(start, at - start).c_str(), nullptr), at };
}

void check_prefix(const std::string & text)
{
    const NumberPrefix plain = plain_prefix(text);
    const auto quick = made([&] { return number_prefix(text); });
    must(quick.has_value() == std::isfinite(plain.value), "a number that is too large for one reader only");
    if (!quick) return;
    must(quick->length == plain.length, "a number of another length");
    must(quick->value == plain.value || std::abs(plain.value) < 2.3e-308, "another value"); // below it digits are lost anyway
    const bool whole = plain.length > 0 && text.find_first_not_of(" \t", plain.length) == std::string::npos;
    must(is_numeric(text) == whole, "is_numeric and number_prefix differ");
}

void check_plain_number(const std::string & text)
{
    double value = 0;
    const char * const end = text.data() + text.size();
    const char * const stop = read_plain_number(text.data(), end, value);
    if (stop == nullptr) return;
    must(stop <= end, "a number that runs on behind its text");
    const auto whole = made([&] { return leading_number({ text.data(), stop }); });
    must(is_numeric({ text.data(), stop }) && whole && *whole == value, "read_plain_number and leading_number differ");
}

void check_general_text(double value)
{
    const auto text = made([&] { return general_text(value); });
    if (!text) return;
    must(is_numeric(*text) || std::abs(value) > 1.797e308, "a number whose text is none"); // may round beyond the largest
    const auto again = made([&] { return general_text(leading_number(*text)); });
    must(!again || *again == *text || std::abs(value) < 2.3e-308, "a number that changes each time it is written");
    must(made([&] { return leading_number(str_text(value)); }) == made([&] { return leading_number(*text); }), "str_text");
}

/// The quick forms give what the pattern gives.
void check_bulk_forms(double value, std::int32_t decimals)
{
    char room[longest_fixed];
    const auto written = [&](const std::function<char *()> & put) { return made([&] { return std::string(room, put()); }); };
    const std::string pattern = decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
    const auto fixed = made([&] { return format_number(value, pattern); });
    must(written([&] { return put_fixed(room, value, decimals); }) == fixed, "put_fixed");
    const auto field = made([&] { return pad_left(format_number(value, "0.0000"), field_width); });
    must(written([&] { return put_field(room, value); }) == field, "put_field");
    const auto narrow = static_cast<float>(std::clamp(value, -3.4e38, 3.4e38));
    const auto exponent = made([&] { return format_number(static_cast<double>(narrow), "0.00000E+00"); });
    must(written([&] { return put_exponent(room, narrow); }) == exponent, "put_exponent");
}

bool ends_token(char c) { return std::strchr(" \t,;'", c) != nullptr && c != '\0'; }

std::string plain_token(std::string & text)
{
    const auto skip_blanks = [&] {
        while (!text.empty() && (text[0] == ' ' || text[0] == '\t')) text.erase(0, 1);
    };
    skip_blanks();
    std::string token;
    const bool quoted = text.starts_with('"');
    while (!text.empty() && (quoted || !ends_token(text[0]))) {
        token += text[0];
        text.erase(0, 1);
        if (quoted && token.size() > 1 && token.back() == '"') break;
    }
    skip_blanks();
    if (!text.empty() && ends_token(text[0])) text.erase(0, 1);
    skip_blanks();
    return std::string(trim(token));
}

void check_tokens(const std::string & text)
{
    std::string plain_rest = text;
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t before = rest.size();
        const std::string_view token = next_token(rest);
        must(token == plain_token(plain_rest) && rest == plain_rest, "next_token");
        must(rest.size() < before, "a token that takes nothing");
    }
}

void check_fields(const std::string & text, char delimiter, std::int32_t wanted)
{
    List<std::string> all, some;
    std::int32_t count = 0;
    split_fields(count, text, delimiter, all);
    must(count == all.size(), "fields that are not counted");
    split_fields(wanted, text, delimiter, some);
    must(wanted == some.size(), "other than the fields wanted");
    for (std::int32_t i = 1; i <= std::min(wanted, count); ++i) must(all[i] == some[i], "fields that depend on their number");
}

void take_paths(const std::string & text)
{
    must(file_name_of_path(text).find('\\') == std::string::npos, "a file name with a folder");
    file_stem_of_path(text), file_extension_of_path(text), folder_without_drive(text), drive_of_path(text), find_file(text);
    const std::string folder = folder_of_path(text);
    must(folder.empty() || folder.ends_with('\\'), "a folder without its end");
    must(absolute_path(absolute_path(text)) == absolute_path(text), "a path that is not absolute");
    relative_path(with_backslash(scratch_folder()), text);
    relative_path(text, scratch_folder());
}

std::string plain_line(std::string & text)
{
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    std::string line = text.substr(0, end);
    text.erase(0, text.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
    return line;
}

/// A line scanner may leave tabs as they are.
std::string without_tabs(std::string_view line)
{
    std::string text(line);
    std::ranges::replace(text, '\t', ' ');
    return text;
}

void check_scanner(std::string_view text, LineReader reader)
{
    const auto take = reader == LineReader::raw ? take_raw_line : take_text_line;
    LineScanner lines(text, reader);
    std::string_view rest = text, line;
    for (std::string wanted; take(rest, wanted);) {
        must(lines.next(line), "a line that the scanner does not give");
        must(reader == LineReader::raw ? line == wanted : without_tabs(line) == wanted, "another line than the scanner's");
        must(line.size() <= longest_text_line || reader == LineReader::raw, "a line beyond the longest");
    }
    must(!lines.next(line), "a line too many");
}

/// Each byte 1 stands for as many blanks as a line of text may have, so that small inputs hold long lines.
std::string with_long_lines(std::string_view text)
{
    std::string wide;
    int left = 4;
    for (const char c : text)
        if (c == '\1' && left-- > 0)
            wide.append(longest_text_line - 2, ' ');
        else
            wide += c;
    return wide;
}

}

void read_numbers(Input input)
{
    const auto value = take_bits<double>(input);
    const std::int32_t decimals = input.take_number(0, 10);
    const std::string text(input.text);
    check_prefix(text);
    check_plain_number(text);
    check_general_text(value);
    check_bulk_forms(value, decimals);
    made([&] { return format_number(value, text); });
    made([&] { return format_fixed(value, decimals, true); });
    const auto pattern = made([&] { return format_pattern_for_value(value, decimals); });
    must(pattern.has_value() == std::isfinite(value), "a pattern for what is no number");
    if (pattern) format_number(value, *pattern);
    made([&] { return format_number(value, format_pattern_for_magnitude(value)); });
    made([&] { return leading_count(text); });
    made([&] { return to_f32(value); });
    made([&] { return round_to_count(value); });
}

void read_tokens(Input input)
{
    const auto delimiter = static_cast<char>(input.take_byte());
    const std::int32_t wanted = input.take_number(1, 20);
    std::string text(input.text);
    check_tokens(text);
    check_fields(text, delimiter, wanted);
    check_fields(text, ',', wanted);
    take_paths(text);
    must(pad_left(text, wanted).size() == static_cast<std::size_t>(wanted), "pad_left");
    must(pad_text(text, wanted).size() == static_cast<std::size_t>(wanted), "pad_text");
    must(same_text(text, upper_case(text)), "same_text");
    text_before_nul(text);
    List<double> items;
    ClosedDialogs dialogs;
    const Status status = parse_weighting_list(text, items, dialogs);
    must((status == Status::good) == (dialogs.messages == 0), "a list refused without a word");
    for (std::string value; !text.empty();) {
        const std::size_t before = text.size();
        next_key_value(delimiter, text, value);
        must(text.size() < before, "a key that takes nothing");
    }
}

void read_lines(Input input)
{
    const std::string text = with_long_lines(input.text);
    check_scanner(text, LineReader::raw);
    check_scanner(text, LineReader::printable);
    must(estimate_line_count(text) > 0, "no lines");
    std::string plain_rest = text, line;
    std::string_view rest = text;
    while (take_raw_line(rest, line)) must(line == plain_line(plain_rest) && rest == plain_rest, "take_raw_line");
}
