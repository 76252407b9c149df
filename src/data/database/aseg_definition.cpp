#include "data/database/aseg_definition.h"

#include "support/fault.h"
#include "support/numbers.h"
#include "support/text.h"
#include "support/text_file.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace {

/// A format such as F10.2, A8 or 5I4.
struct FieldFormat {
    std::int32_t count = 1;
    char letter = 0;
    std::size_t width = 0;
};

std::int32_t take_number(std::string_view & text)
{
    std::int64_t number = -1;
    while (!text.empty() && text.front() >= '0' && text.front() <= '9' && number < 100000) {
        number = std::max<std::int64_t>(number, 0) * 10 + (text.front() - '0');
        text.remove_prefix(1);
    }
    return static_cast<std::int32_t>(number);
}

std::optional<FieldFormat> format_in(const std::string & upper)
{
    std::string_view text = upper;
    FieldFormat format;
    format.count = take_number(text);
    if (format.count == 0) return std::nullopt;
    if (format.count < 0) format.count = 1;
    if (text.empty() || std::string_view("AIFEDG").find(text.front()) == std::string_view::npos) return std::nullopt;
    format.letter = text.front();
    text.remove_prefix(1);
    if (format.letter == 'E' && (text.starts_with('S') || text.starts_with('N'))) text.remove_prefix(1);
    const std::int32_t width = take_number(text);
    if (width < 1) return std::nullopt;
    format.width = static_cast<std::size_t>(width);
    if (text.find_first_not_of("0123456789.E") != std::string_view::npos) return std::nullopt; // decimals say nothing here
    return format;
}

/// Reads a definition line by line.
class DefinitionReader {
public:
    explicit DefinitionReader(const std::string & path) : path_(path), file_(path) {}

    AsegDefinition read()
    {
        for (std::string line; !ended_ && read_raw_line(file_, line);) {
            ++line_;
            if (line_ == 1 && line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
            std::ranges::replace(line, '\t', ' ');
            take_line(std::string(trim(line)));
        }
        if (definition_.fields.empty()) throw FileFault("cannot read", path_, "it defines no field of a data record");
        return definition_;
    }

private:
    [[noreturn]] void fail(const std::string & why) const
    {
        throw FileFault("cannot read", path_, "line " + general_text(line_) + ": " + why);
    }

    void take_line(const std::string & line)
    {
        if (line.empty() || upper_case(line).starts_with("COMM")) return;
        if (!upper_case(line).starts_with("DEFN")) fail("it does not begin with DEFN: " + line);
        std::string rest = line.substr(4);
        std::string tail;
        const std::string head = split_at_first(';', rest, tail);
        if (is_end(head)) {
            ended_ = true;
            return;
        }
        std::string_view text = trim(head);
        const std::int32_t number = take_number(text);
        const std::string kind = record_kind(text);
        if (kind == "COMM") definition_.has_comments = true;
        const bool is_data = kind.empty() || kind == "DATA";
        const std::size_t fields_before = definition_.fields.size();
        while (!tail.empty() && !ended_) {
            const std::string part = take_field(tail, ';');
            ended_ = is_end(part);
            if (is_data && !ended_ && !part.empty()) take_field_definition(part);
        }
        if (definition_.fields.size() > fields_before && number >= 0) check_number(number);
    }

    static bool is_end(const std::string & part)
    {
        std::string letters = upper_case(part);
        std::erase(letters, ' ');
        return letters == "ENDDEFN";
    }

    /// The RT of "ST=RECORD,RT=DATA".
    std::string record_kind(std::string_view head) const
    {
        std::string rest(head), kind, structure;
        while (!rest.empty()) {
            std::string value;
            const std::string key = upper_case(split_at_first('=', take_field(rest, ','), value));
            (key == "ST" ? structure : key == "RT" ? kind : value) = upper_case(trim(value));
        }
        if (structure != "RECORD" && structure != "RECD")
            fail("ST=RECORD is expected behind DEFN and its number, and what stands there is: " + std::string(trim(head)));
        return kind;
    }

    /// A number may come again with another field. One that is left out tells of a line that has gone.
    void check_number(std::int32_t number)
    {
        if (last_number_ >= 0 && number != last_number_ && number != last_number_ + 1)
            fail("definition " + general_text(number) + " follows definition " + general_text(last_number_) +
                 "; lines are missing, or not in the order of the fields");
        const std::string name = upper_case(definition_.fields.back().name);
        if (number == last_number_ && name == last_name_) fail("definition " + general_text(number) + " stands there twice");
        last_number_ = number;
        last_name_ = name;
    }

    void take_field_definition(const std::string & part)
    {
        std::string rest;
        AsegField field;
        field.name = split_at_first(':', part, rest);
        const std::size_t end = std::min(rest.find_first_of(":,"), rest.size());
        const std::string format_text = upper_case(trim(std::string_view(rest).substr(0, end)));
        const auto format = format_in(format_text);
        if (field.name.empty() || !format)
            fail("a field is expected as NAME:FORMAT with a format such as A8, I10, F10.2 or 5F8.3, and what stands there is: " +
                 part);
        field.count = format->count;
        field.width = format->width;
        field.is_text = format->letter == 'A';
        take_options(rest.substr(end), field);
        field.begin = definition_.record_length;
        definition_.record_length += field.size();
        if (definition_.record_length > longest_record) fail("the fields take more than can be a record: " + part);
        definition_.fields.push_back(field);
    }

    static void take_options(std::string options, AsegField & field)
    {
        std::ranges::replace(options, ':', ',');
        while (!options.empty()) {
            std::string value;
            if (upper_case(split_at_first('=', take_field(options, ','), value)) != "NULL" || !field.null_text.empty()) continue;
            field.null_text = trim(value);
            field.has_null_number = !field.is_text && is_numeric(field.null_text);
            if (field.has_null_number) field.null_number = leading_number(field.null_text);
        }
    }

    static constexpr std::size_t longest_record = std::size_t{ 1 } << 20;

    std::string path_;
    TextFile file_;
    std::int32_t line_ = 0;
    bool ended_ = false;
    std::int32_t last_number_ = -1;
    std::string last_name_;
    AsegDefinition definition_;
};

}

AsegDefinition read_aseg_definition(const std::string & path) { return DefinitionReader(path).read(); }
