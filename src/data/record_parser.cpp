#include "data/record_parser.h"

#include "support/fault.h"
#include "support/numbers.h"
#include "support/plain_number.h"
#include "support/text.h"

#include <algorithm>

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
        const char * stop = at; // fields are short: this is quicker than a search that has to be called
        while (stop != end && *stop != ',') ++stop;
        return stop;
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

template <class Fields>
void take_all(Fields fields, std::vector<std::string_view> & taken)
{
    taken.clear();
    for (fields.skip_blanks(); fields.at != fields.end; fields.skip_blanks()) taken.push_back(fields.take());
}

/// Fields that stand apart already.
struct ListedFields {
    std::span<const std::string> rest;

    std::string_view take()
    {
        if (rest.empty()) return {};
        const std::string_view field = rest.front();
        rest = rest.subspan(1);
        return field;
    }

    void skip() { take(); }

    bool take_number(double & number)
    {
        const std::string_view field = take();
        const char * const end = field.data() + field.size();
        return (!field.empty() && read_plain_number(field.data(), end, number) == end) || read_number(field, number);
    }
};

}

RecordParser::RecordParser(const LocationSource & source)
{
    const auto column = [this](std::int32_t number) -> Column & {
        if (number > highest_column)
            throw SubscriptFault("column " + general_text(number) + " lies beyond the last one that can be read, " +
                                 general_text(highest_column));
        auto at = std::find_if(columns_.begin(), columns_.end(), [number](const Column & c) { return c.number >= number; });
        if (at == columns_.end() || at->number != number) at = columns_.insert(at, Column{ .number = number });
        return *at;
    };
    const std::array<std::int32_t, 6> places = { source.x_column,        source.y_column,        source.z_column,
                                                 source.value_column[0], source.value_column[1], source.value_column[2] };
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] <= 0) continue;
        const bool taken = i < 3 && std::find(places.begin(), places.begin() + i, places[i]) != places.begin() + i;
        if (!taken) column(places[i]).add_place(static_cast<std::int32_t>(i)); // a column is x or y or z, in this order
    }
    if (source.line_column > 0) column(source.line_column).line = true;
    if (source.category_column > 0) column(source.category_column).category = true;
    if (source.text_column > 0) column(source.text_column).text = true;
}

void RecordParser::parse(std::string_view line, LocationRecord & record) const
{
    const char * const end = line.data() + line.size();
    record = {};
    if (line.find(',') != std::string_view::npos)
        parse_fields(CommaFields{ line.data(), end }, record);
    else
        parse_fields(TokenFields{ line.data(), end }, record);
}

void RecordParser::parse(std::span<const std::string> fields, LocationRecord & record) const
{
    record = {};
    parse_fields(ListedFields{ fields }, record);
}

template <class Fields>
void RecordParser::parse_fields(Fields fields, LocationRecord & record) const
{
    std::int32_t next = 1;
    for (const Column & column : columns_) {
        for (; next < column.number; ++next) fields.skip();
        ++next;
        if (!take_column(column, fields, record)) return;
    }
}

/// False when the field should be a number and is not.
template <class Fields>
bool RecordParser::take_column(const Column & column, Fields & fields, LocationRecord & record)
{
    double number = 0;
    std::string_view field;
    if (column.is_text()) {
        field = fields.take();
        if (column.place >= 0 && !read_number(field, number)) return false;
    } else if (!fields.take_number(number)) {
        return false;
    }
    if (column.place >= 0) record.number[static_cast<std::size_t>(column.place)] = number;
    for (const std::int32_t place : column.more_places) record.number[static_cast<std::size_t>(place)] = number;
    if (column.line) record.line = field;
    if (column.category) record.category = field;
    if (column.text) record.text = field;
    return true;
}

void split_record(std::string_view line, std::vector<std::string_view> & fields)
{
    const char * const end = line.data() + line.size();
    if (line.find(',') != std::string_view::npos)
        take_all(CommaFields{ line.data(), end }, fields);
    else
        take_all(TokenFields{ line.data(), end }, fields);
}
