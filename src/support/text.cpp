#include "support/text.h"

#include <algorithm>

namespace {

constexpr std::string_view blanks = " \t";

bool ends_token(char c) { return c == ' ' || c == '\t' || c == ',' || c == ';' || c == '\''; }

void skip_blanks(std::string_view & text) { text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size())); }

}

std::string_view trim(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view without_quotes(std::string_view field)
{
    field = trim(field);
    if (field.size() >= 2 && field.starts_with('"') && field.ends_with('"')) field = field.substr(1, field.size() - 2);
    return trim(field);
}

std::string upper_case(std::string_view text)
{
    std::string upper(text);
    for (char & c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

bool same_text(std::string_view a, std::string_view b) { return upper_case(trim(a)) == upper_case(trim(b)); }

std::string_view next_token(std::string_view & text)
{
    skip_blanks(text);
    std::size_t end = 0;
    if (text.starts_with('"')) {
        const std::size_t close = text.find('"', 1);
        end = close == std::string_view::npos ? text.size() : close + 1;
    } else {
        while (end < text.size() && !ends_token(text[end])) ++end;
    }
    const std::string_view token = trim(text.substr(0, end));
    text.remove_prefix(end);
    skip_blanks(text);
    if (!text.empty() && ends_token(text[0])) text.remove_prefix(1);
    skip_blanks(text);
    return token;
}

std::string take_field(std::string & text, char delimiter)
{
    std::string tail;
    std::string field = split_at_first(delimiter, text, tail);
    text = tail;
    return field;
}

std::string split_at_first(char delimiter, std::string_view text, std::string & tail)
{
    const std::size_t at = text.find(delimiter);
    std::string head(trim(text.substr(0, at)));
    tail = at == std::string_view::npos ? std::string() : std::string(trim(text.substr(at + 1)));
    return head;
}

std::string next_key_value(char delimiter, std::string & text, std::string & value)
{
    const std::size_t at = text.find(delimiter);
    std::string key;
    std::string rest = text;
    if (at != std::string::npos) {
        key = trim(std::string_view(text).substr(0, at));
        rest = text.substr(at + 1);
    }
    rest = trim(rest);
    const char close = rest.starts_with('"') ? '"' : rest.starts_with('(') ? ')' : '\0';
    const std::size_t end = close != '\0' ? rest.find(close, 1) : std::string::npos;
    if (end != std::string::npos) {
        value = rest.substr(1, end - 1);
        text = trim(std::string_view(rest).substr(end + 1));
    } else if (rest.find(delimiter) == std::string::npos) {
        value = rest;
        text.clear();
    } else {
        std::string_view left = rest;
        value = next_token(left);
        text = std::string(left);
    }
    return key;
}

void split_fields(std::int32_t & count, std::string_view text, char delimiter, List<std::string> & fields)
{
    fields.clear();
    if (delimiter == ' ') delimiter = ',';
    text = trim(text);
    const bool delimited = text.find(delimiter) != std::string_view::npos;
    while (!text.empty() && (count == 0 || fields.size() < count)) {
        if (!delimited || text.starts_with('"')) {
            fields.push_back(std::string(without_quotes(next_token(text))));
            continue;
        }
        const std::size_t end = text.find(delimiter);
        fields.push_back(std::string(without_quotes(text.substr(0, end))));
        text = end == std::string_view::npos ? std::string_view() : trim(text.substr(end + 1));
    }
    if (count == 0) count = fields.size();
    while (fields.size() < count) fields.push_back({});
}

std::string pad_text(std::string_view text, int width)
{
    std::string padded(text.substr(0, static_cast<std::size_t>(width)));
    padded.resize(static_cast<std::size_t>(width), ' ');
    return padded;
}

std::string pad_left(std::string_view text, int width)
{
    const auto size = static_cast<std::size_t>(width);
    if (text.size() >= size) return std::string(text.substr(0, size));
    return std::string(size - text.size(), ' ') + std::string(text);
}

std::string text_before_nul(std::string_view text) { return std::string(trim(text.substr(0, text.find('\0')))); }

bool is_utf8(std::string_view text)
{
    int more = 0; // bytes that must still follow
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (more > 0) {
            if ((byte & 0xC0) != 0x80) return false;
            --more;
        } else if (byte >= 0x80) {
            if (byte < 0xC2 || byte > 0xF4) return false;
            more = byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
        }
    }
    return more == 0;
}
