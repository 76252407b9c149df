#include "definition/definition_file.h"

#include "definition/definition_lines.h"
#include "definition/definition_text.h"
#include "support/fault.h"
#include "support/file_writer.h"
#include "support/numbers.h"
#include "support/text.h"
#include "support/text_file.h"
#include "utilities/transform_file.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

/// Bytes of the UTF-8 character at the front of `text`; 0 when none stands there. Longer forms than needed count as characters.
std::size_t utf8_length(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 0;
    if (length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 0;
    return length;
}

/// The next line. Unlike the lines of data files it keeps UTF-8, because paths and comments may hold it. A tab becomes a blank;
/// control characters, bytes that are no UTF-8 and the mark at the start of a file are dropped.
bool read_definition_line(TextFile & file, std::string & line)
{
    std::string raw;
    line.clear();
    const bool first = file.rest().size() == file.all().size();
    if (!read_raw_line(file, raw)) return false;
    std::string_view rest = raw;
    if (first && rest.starts_with(utf8_mark)) rest.remove_prefix(utf8_mark.size());
    while (!rest.empty()) {
        const std::size_t length = utf8_length(rest);
        const char c = rest[0];
        if (c == '\t')
            line += ' ';
        else if (length > 1 || (c >= ' ' && c <= '~'))
            line += rest.substr(0, length);
        rest.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return true;
}

/// Goes back to the start and reads up to and with the line that is `heading`; false, at the end, when there is none.
bool find_section(TextFile & file, std::string_view heading)
{
    file.rewind();
    for (std::string line; read_definition_line(file, line);)
        if (trim(line) == heading) return true;
    return false;
}

/// A label of the table as the reader knows it, without the colon and the blanks.
std::string_view bare_label(std::string_view label) { return trim(label.substr(0, label.find(':'))); }

struct TakeValue {
    std::string_view pattern;
    std::string_view & rest;

    void operator()(std::string * text) const
    {
        *text = trim(rest);
        if (pattern == "path") std::ranges::replace(*text, '/', '\\');
        rest = {};
    }
    void operator()(std::int32_t * count) const { *count = leading_count(next_token(rest)); }
    void operator()(float * number) const { *number = to_f32(leading_number(next_token(rest))); }
    void operator()(double * number) const { *number = leading_number(next_token(rest)); }
};

void take_line(const Line & line, std::string_view rest, int version, InversionDefinition & record)
{
    if (line.take != nullptr) {
        line.take(record, rest, version);
    } else {
        for (const Value & value : line.values)
            if (value.taken_when == nullptr || value.taken_when(rest)) std::visit(TakeValue{ value.pattern, rest }, value.target);
    }
    if (line.repair != nullptr) line.repair(record);
}

/// Reads on to the end of the file, the text of its sections included: a comment that looks like a line of the table is one.
void read_lines(TextFile & file, int version, InversionDefinition & record)
{
    const std::vector<Line> lines = lines_of(record);
    for (std::string text; read_definition_line(file, text);) {
        if (text.find(':') == std::string::npos) continue; // a label alone brings no values
        const std::string label = take_field(text, ':');
        const auto line = std::ranges::find_if(lines, [&](const Line & row) { return bare_label(row.label) == label; });
        if (line != lines.end()) take_line(*line, text, version, record);
    }
}

/// Empty lines in front of the text vanish; the first line stands as it is, the others are trimmed.
void read_comments(TextFile & file, std::string & description)
{
    description.clear();
    for (std::string line; read_definition_line(file, line);) {
        if (description.empty())
            description = line;
        else
            description += "\r\n" + std::string(trim(line));
    }
}

void read_inversion_parameters(TextFile & file, int version, Selection selection, InversionDefinition & record)
{
    read_lines(file, version, record);
    const bool transform_wanted = selection == Selection::all || selection == Selection::parameters;
    if (transform_wanted && find_section(file, transform_heading)) read_transform_block(file, record.coordinate_transform);
    if (find_section(file, comments_heading)) read_comments(file, record.description);
}

/// The old form without labels: a fixed order of lines, one for a simple and one for a refined definition. That order is not
/// known here, so no such file can be placed; a guess would fill the record with wrong values.
Status read_legacy_definition(Dialogs & dialogs)
{
    dialogs.message("Varnok cannot handle this file format");
    return Status::bad;
}

/// The version that the first line with text names, 0 when it names none. That line is taken off the file.
int read_version(TextFile & file)
{
    std::string line;
    while (read_definition_line(file, line)) {
        line = trim(line);
        if (!line.empty()) break;
    }
    if (!line.starts_with("Ver") || line.size() <= 8) return 0;
    try {
        return round_to_count(std::trunc(leading_number(std::string_view(line).substr(8))));
    } catch (const OverflowFault &) {
        return 0; // no version has such a number
    }
}

}

void save_inversion_parameters(const std::string & path, const ValidatedDefinition & definition)
{
    replace_file(path, definition_text(*definition));
}

Status read_inversion_parameter_file(const std::string & path, Selection selection, InversionDefinition & record,
                                     Dialogs & dialogs)
{
    TextFile file(path);
    const int version = read_version(file);
    if (file.at_end()) {
        dialogs.message("The specified file was empty");
        return Status::bad;
    }
    if (version < 2) return read_legacy_definition(dialogs);

    InversionDefinition read = record;
    try {
        read_inversion_parameters(file, version, selection, read);
    } catch (const Fault & fault) {
        dialogs.message(std::string("An error occured while reading the parameters: ") + fault.what());
    }
    record = std::move(read);
    return Status::good;
}
