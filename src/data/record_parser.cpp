#include "data/record_parser.h"

#include "data/field_numbers.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <cstring>

namespace {

bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_mark(char c) { return c == ',' || c == ';' || c == '\''; }

bool read_number(std::string_view field, double & number)
{
    if (!is_numeric(field)) return false;
    number = leading_number(field);
    return true;
}

/// The fields of a line without a comma: what `next_token` gives.
struct TokenFields {
    const char * at;
    const char * end;

    void skip_blanks()
    {
        while (at != end && is_blank(*at)) ++at;
    }

    void skip_separators()
    {
        skip_blanks();
        if (at == end || !is_mark(*at)) return;
        ++at;
        skip_blanks();
    }

    std::string_view take()
    {
        skip_blanks();
        if (at != end && *at == '"') return take_quoted();
        const char * const first = at;
        while (at != end && !is_blank(*at) && !is_mark(*at)) ++at;
        const std::string_view token(first, static_cast<std::size_t>(at - first));
        skip_separators();
        return token;
    }

    std::string_view take_quoted()
    {
        std::string_view rest(at, static_cast<std::size_t>(end - at));
        const std::string_view token = next_token(rest);
        at = end - rest.size();
        return token;
    }

    void skip() { take(); }

    bool take_number(double & number)
    {
        skip_blanks();
        const char * const stop = read_plain_number(at, end, number);
        if (stop == nullptr || (stop != end && !is_blank(*stop) && !is_mark(*stop))) return read_number(take(), number);
        at = stop;
        skip_separators();
        return true;
    }
};

/// The fields of a line with commas. One that begins with a double quote is a token, which may hold commas.
struct CommaFields {
    const char * at;
    const char * end;

    void skip_blanks()
    {
        while (at != end && *at == ' ') ++at;
    }

    const char * field_end() const
    {
        const void * const comma = at == end ? nullptr : std::memchr(at, ',', static_cast<std::size_t>(end - at));
        return comma == nullptr ? end : static_cast<const char *>(comma);
    }

    std::string_view take()
    {
        skip_blanks();
        std::string_view field;
        if (at != end && *at == '"') {
            field = take_quoted();
        } else {
            const char * const stop = field_end();
            field = { at, static_cast<std::size_t>(stop - at) };
            at = stop == end ? end : stop + 1;
        }
        return without_quotes(field);
    }

    std::string_view take_quoted()
    {
        std::string_view rest(at, static_cast<std::size_t>(end - at));
        const std::string_view token = next_token(rest);
        at = end - rest.size();
        return token;
    }

    void skip()
    {
        skip_blanks();
        if (at != end && *at == '"') {
            take_quoted();
            return;
        }
        const char * const stop = field_end();
        at = stop == end ? end : stop + 1;
    }

    bool take_number(double & number)
    {
        skip_blanks();
        const char * stop = read_plain_number(at, end, number);
        if (stop == nullptr) return read_number(take(), number);
        while (stop != end && *stop == ' ') ++stop;
        if (stop != end && *stop != ',') return read_number(take(), number);
        at = stop == end ? end : stop + 1;
        return true;
    }
};

}

RecordParser::RecordParser(const LocationSource & source)
    : z_is_depth_(source.z_is_depth == 1), elevation_offset_(source.elevation_offset)
{
    const auto add = [this](std::int32_t number, auto && mark) {
        if (number <= 0) return;
        if (number > highest_column)
            throw SubscriptFault("column " + general_text(number) + " lies beyond the last one that can be read, " +
                                 general_text(highest_column));
        auto at = std::find_if(columns_.begin(), columns_.end(), [number](const Column & c) { return c.number >= number; });
        if (at == columns_.end() || at->number != number) at = columns_.insert(at, Column{ .number = number });
        mark(*at);
    };
    add(source.x_column, [](Column & c) { c.x = true; });
    add(source.y_column, [](Column & c) { c.y = !c.x; }); // a column is x or y or z, in this order
    add(source.z_column, [](Column & c) { c.z = !c.x && !c.y; });
    for (std::size_t i = 0; i < source.value_column.size(); ++i)
        add(source.value_column[i], [i](Column & c) { c.value[i] = true; });
    add(source.line_column, [](Column & c) { c.line = true; });
    add(source.category_column, [](Column & c) { c.category = true; });
    add(source.text_column, [](Column & c) { c.text = true; });
}

LocationRecord RecordParser::parse(std::string_view line) const
{
    const char * const end = line.data() + line.size();
    if (line.find(',') != std::string_view::npos) return parse_fields(CommaFields{ line.data(), end });
    return parse_fields(TokenFields{ line.data(), end });
}

template <class Fields>
LocationRecord RecordParser::parse_fields(Fields fields) const
{
    LocationRecord record;
    std::int32_t next = 1;
    for (const Column & column : columns_) {
        for (; next < column.number; ++next) fields.skip();
        ++next;
        double number = 0;
        if (!column.is_text()) {
            if (!fields.take_number(number)) break;
            set_number(column, number, record);
            continue;
        }
        const std::string_view field = fields.take();
        if (column.is_number()) {
            if (!read_number(field, number)) break;
            set_number(column, number, record);
        }
        if (column.line) record.line = field;
        if (column.category) record.category = field;
        if (column.text) record.text = field;
    }
    return record;
}

void RecordParser::set_number(const Column & column, double number, LocationRecord & record) const
{
    if (column.x) record.x = number;
    if (column.y) record.y = number;
    if (column.z) record.z = (z_is_depth_ ? -number : number) + elevation_offset_;
    for (std::size_t i = 0; i < record.value.size(); ++i)
        if (column.value[i]) record.value[i] = to_f32(number);
}
