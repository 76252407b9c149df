#include "definition/definition_text.h"

#include "definition/definition_lines.h"
#include "support/numbers.h"
#include "support/pattern.h"
#include "support/text.h"
#include "utilities/transform_file.h"

#include <string_view>

namespace {

constexpr const char * line_end = "\r\n";

std::string plain_text(float number, bool sign_place) { return sign_place ? str_text(number) : general_text(number); }

std::string plain_text(double number, bool sign_place) { return sign_place ? str_text(number) : general_text(number); }

struct ValueText {
    std::string_view pattern;

    std::string operator()(const std::string * text) const { return pattern == "trimmed" ? std::string(trim(*text)) : *text; }

    template <class Number>
    std::string operator()(const Number * number) const
    {
        if (pattern == "str" || pattern == "general") return plain_text(*number, pattern == "str");
        return format_number(static_cast<double>(*number), pattern);
    }
    std::string operator()(const std::int32_t * count) const { return format_number(*count, pattern); }
};

void add_line(std::string & text, const Line & line)
{
    text += line.label;
    const char * between = "";
    for (const Value & value : line.values) {
        text += between + std::visit(ValueText{ value.pattern }, value.target);
        between = " ";
    }
    text += line.tail;
    text += line_end;
}

/// The comment, each of its lines ended as all lines of the file are, whatever ended it in the record.
void add_comments(std::string & text, std::string_view comments)
{
    text += comments_heading;
    text += line_end;
    if (comments.empty()) return;
    for (;;) {
        const std::size_t end = comments.find_first_of("\r\n");
        text += comments.substr(0, end);
        text += line_end;
        if (end == std::string_view::npos) return;
        comments.remove_prefix(end + (comments.substr(end).starts_with("\r\n") ? 2 : 1));
    }
}

}

std::string definition_text(const InversionDefinition & record)
{
    InversionDefinition written = record; // the table binds to something writable
    normalise_point_transform(written.coordinate_transform);
    std::string text = std::string("Version 3.0") + line_end;
    for (const Line & line : lines_of(written))
        if (line.written_when == nullptr || line.written_when(written)) add_line(text, line);
    if (written.coordinate_transform.in_use)
        text += transform_heading + std::string(line_end) + transform_block(written.coordinate_transform);
    add_comments(text, written.description);
    return text;
}
