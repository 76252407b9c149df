#include "model/value_text.h"

#include "model/usual_number.h"
#include "support/numbers.h"
#include "support/plain_number.h"
#include "support/text.h"
#include "support/text_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace {

enum Kind : unsigned char { printable, blank, line_end, mark, dropped };

constexpr auto kinds = [] {
    std::array<Kind, 256> kinds = {};
    kinds.fill(dropped);
    std::fill(kinds.begin() + ' ', kinds.begin() + '~' + 1, printable);
    for (const char c : { ' ', '\t' }) kinds[static_cast<unsigned char>(c)] = blank;
    for (const char c : { '\r', '\n' }) kinds[static_cast<unsigned char>(c)] = line_end;
    for (const char c : { ',', ';', '\'' }) kinds[static_cast<unsigned char>(c)] = mark;
    return kinds;
}();

Kind kind_of(char c) { return kinds[static_cast<unsigned char>(c)]; }
bool is_separator(char c) { return kind_of(c) == blank || kind_of(c) == line_end || kind_of(c) == mark; }

bool fits(double number, float & value)
{
    value = static_cast<float>(number);
    return std::isfinite(value);
}

/// A value that is not of the everyday form, or the last of a text.
bool read_odd_value(std::string_view token, float & value) { return is_numeric(token) && fits(leading_number(token), value); }

class ValueReading {
public:
    ValueReading(std::string_view text, TextValues & found)
        : found_(found), at_(text.data()), end_(text.data() + text.size()), plain_end_(end_)
    {
        // What has a separator behind it can be read without a look at the end.
        while (plain_end_ != at_ && !is_separator(plain_end_[-1])) --plain_end_;
    }

    void read_all()
    {
        while (skip_to_value())
            if (!read_value()) return;
    }

private:
    bool skip_to_value()
    {
        while (at_ != end_ && (kind_of(*at_) == blank || kind_of(*at_) == line_end)) ++at_;
        return at_ != end_;
    }

    bool read_value()
    {
        float & value = found_.room[found_.count];
        const char * stop = end_ - at_ > usual_number_reach ? read_usual_number(at_, value) : nullptr;
        if (stop == nullptr) stop = read_plain(value);
        if (stop == nullptr || !is_separator(*stop)) return read_oddly(value);
        at_ = stop;
        ++found_.count;
        skip_mark();
        return true;
    }

    const char * read_plain(float & value) const
    {
        double number = 0;
        const char * const stop = at_ < plain_end_ ? read_plain_number(at_, plain_end_, number) : nullptr;
        return stop != nullptr && fits(number, value) ? stop : nullptr;
    }

    bool read_oddly(float & value)
    {
        const std::string_view bytes(at_, static_cast<std::size_t>(std::find_if(at_, end_, is_separator) - at_));
        std::string token;
        for (const char c : bytes)
            if (kind_of(c) == printable) token += c;
        at_ += bytes.size();
        if (token.empty() && !bytes.empty()) return true; // nothing that counts
        if (!read_odd_value(token, value)) {
            found_.fault = bytes;
            return false;
        }
        ++found_.count;
        skip_mark();
        return true;
    }

    void skip_mark()
    {
        while (at_ != end_ && kind_of(*at_) == blank) ++at_;
        if (at_ != end_ && kind_of(*at_) == mark) ++at_;
    }

    TextValues & found_;
    const char * at_;
    const char * const end_;
    const char * plain_end_;
};

/// Makes room for as many values as so many bytes can hold.
void start_reading(std::size_t bytes, TextValues & found)
{
    if (found.room.size() < bytes / 2 + 1) found.room.resize(bytes / 2 + 1);
    found.count = 0;
    found.fault = {};
}

/// The item of a line "(a,b,c)"; empty when the line has fewer.
std::string_view item_of(std::string_view line, std::int32_t number)
{
    line = trim(line);
    if (line.starts_with('(')) line.remove_prefix(1);
    if (line.ends_with(')')) line.remove_suffix(1);
    for (; number > 1; --number) {
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos) return {};
        line.remove_prefix(comma + 1);
    }
    return trim(line.substr(0, line.find(',')));
}

template <class MayCut>
std::vector<std::string_view> cut(std::string_view text, std::size_t size, const MayCut & may_cut)
{
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        std::size_t end = std::min(size, text.size());
        while (end < text.size() && !may_cut(text.data() + end)) ++end;
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return parts;
}

}

void read_plain_values(std::string_view text, TextValues & found)
{
    start_reading(text.size(), found);
    ValueReading(text, found).read_all();
}

void read_component(std::string_view text, std::int32_t component, float model_null, TextValues & found)
{
    start_reading(text.size(), found);
    std::string line;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view before = rest;
        take_text_line(rest, line);
        if (trim(line).empty()) continue;
        const std::string_view item = item_of(line, component);
        float & value = found.room[found.count];
        value = model_null;
        if (is_numeric(item) && !fits(leading_number(item), value)) {
            found.fault = before.substr(0, before.find_first_of("\r\n"));
            return;
        }
        ++found.count;
    }
}

std::vector<std::string_view> parts_of_values(std::string_view text, std::size_t size)
{
    return cut(text, size, [](const char * at) { return is_separator(at[-1]) && !is_separator(*at); });
}

std::vector<std::string_view> parts_of_lines(std::string_view text, std::size_t size)
{
    return cut(text, size, [](const char * at) { return kind_of(at[-1]) == line_end && !(at[-1] == '\r' && *at == '\n'); });
}
