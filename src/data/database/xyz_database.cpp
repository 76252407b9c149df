#include "data/database/xyz_database.h"

#include "data/database/text_database.h"
#include "data/record_lines.h"
#include "data/record_parser.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::size_t beginning = std::size_t{ 1 } << 16; // bytes in which the shape of the file shows

constexpr bool is_blank(char c) { return c == ' ' || c == '\t'; }

std::string_view bare(std::string_view text)
{
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

/// What a line of the file is for the reader of line-structured texts.
enum class LineKind { blank, comment, header, reading };

/// The words that open a line of readings, as they are put before its name: "Line" says nothing.
constexpr struct {
    std::string_view word, before_name;
} header_words[] = { { "LINE", "" }, { "TIE", "Tie " }, { "RANDOM", "Random " } };

/// The name in a record that opens a line; nothing in any other. text: without blanks at its ends, not empty.
std::optional<std::string> line_opened_by(std::string_view text)
{
    if (std::string_view("LTRltr").find(text.front()) == std::string_view::npos) return std::nullopt;
    const std::size_t end = std::min(text.find_first_of(" \t"), text.size());
    for (const auto & [word, before_name] : header_words) {
        if (!same_text(text.substr(0, end), word)) continue;
        std::string_view name = text.substr(end);
        name = bare(name.substr(0, name.find("//"))); // a comment behind it
        return std::string(before_name) + std::string(without_quotes(name));
    }
    return std::nullopt;
}

/// opened: takes the name when the line is a header.
LineKind kind_of(std::string_view line, std::string & opened)
{
    const std::string_view text = bare(line);
    if (text.empty()) return LineKind::blank;
    if (text.front() == '/') return LineKind::comment;
    const std::optional<std::string> name = line_opened_by(text);
    if (!name) return LineKind::reading;
    opened = *name;
    return LineKind::header;
}

/// A row of column names may begin with the same word, so that a header has to be one word and a name with a digit in it.
bool is_sure_header(std::string_view line)
{
    std::string_view text = bare(line.substr(0, line.find("//")));
    if (text.empty() || !line_opened_by(text)) return false;
    next_token(text);
    const std::string_view name = next_token(text);
    return bare(text).empty() && name.find_first_of("0123456789") != std::string_view::npos;
}

LineReader reader_of(TextFile & file) { return detect_line_ending(file) ? LineReader::printable : LineReader::raw; }

class XyzDatabase final : public TextDatabase {
public:
    XyzDatabase(const std::string & path, const TextLines & text_lines)
        : file_(path), reader_(reader_of(file_)), text_lines_(text_lines)
    {
        name_channels(path);
    }

private:
    void name_channels(const std::string & path);
    void find_rows(std::int64_t most) override;
    void load(const Piece & piece) override;
    void take_texts(std::int32_t symbol, std::int32_t element, std::vector<std::string> & texts) override;

    bool is_name(std::int32_t symbol) { return symbol == static_cast<std::int32_t>(channels().size()); }

    TextFile file_;
    LineReader reader_;
    TextLines text_lines_;
    // The rows that are loaded.
    std::string line_;
    std::string text_;
    std::vector<std::string_view> fields_;
    std::vector<std::size_t> first_field_; // of each row, and one more
};

/// The comment in front of the first line names the columns when it has as many fields as the readings. Readings that all end
/// with a comma have an empty field behind it if there is a name for it.
void XyzDatabase::name_channels(const std::string & path)
{
    LineScanner lines(file_.all(), reader_);
    std::vector<std::vector<std::string>> comments;
    std::vector<std::string_view> fields;
    std::size_t columns = 0, columns_with_empty = 0;
    bool has_opened = false;
    std::string opened, text;
    for (std::string_view line; file_.all().size() - lines.rest().size() < beginning || columns == 0;) {
        if (!lines.next(line)) break;
        if (is_skipped(line)) continue;
        text = line; // with a NUL behind it
        const LineKind kind = kind_of(line, opened);
        has_opened = has_opened || kind == LineKind::header;
        if (kind == LineKind::comment && !has_opened) text.erase(0, std::min(text.find_first_not_of("/ \t"), text.size()));
        split_record(text, fields);
        if (kind == LineKind::comment && !has_opened) comments.emplace_back(fields.begin(), fields.end());
        if (kind != LineKind::reading) continue;
        columns = std::max(columns, fields.size());
        columns_with_empty = std::max(columns_with_empty, fields.size() + (bare(line).ends_with(',') ? 1 : 0));
    }
    if (columns == 0) throw FileFault("cannot read", path, "no reading stands behind the name of a line");
    const auto naming = [&](std::size_t count) {
        return std::find_if(comments.rbegin(), comments.rend(), [count](const auto & row) { return row.size() == count; });
    };
    if (naming(columns) == comments.rend() && naming(columns_with_empty) != comments.rend()) columns = columns_with_empty;
    columns = std::min(columns, static_cast<std::size_t>(highest_column) - 1); // with one more for the line
    const auto named = naming(columns);
    std::vector<DatabaseChannel> channels(columns);
    for (std::size_t i = 0; i < columns && named != comments.rend(); ++i) channels[i].name = without_quotes((*named)[i]);
    channels.push_back({ "Line", 1, true });
    set_channels(std::move(channels));
}

void XyzDatabase::find_rows(std::int64_t most)
{
    LineScanner lines(file_.all(), reader_);
    LineKind kind = LineKind::blank;
    std::string name, opened;
    bool opens_line = true;
    const auto see = [&](std::string_view line) {
        kind = kind_of(line, opened);
        if (kind != LineKind::header) return;
        name = opened;
        opens_line = true;
    };
    std::string_view line;
    for (std::int32_t number = 1; number < text_lines_.first && lines.next(line); ++number)
        if (!is_skipped(line)) see(line);
    while (found_rows() < most) {
        const std::size_t at = file_.all().size() - lines.rest().size();
        if (!next_record(lines, text_lines_.increment, line, see)) return;
        if (kind != LineKind::reading) continue;
        add_row(name, opens_line, at, 0);
        opens_line = false;
    }
}

void XyzDatabase::load(const Piece & piece)
{
    line_ = piece.line;
    text_.clear();
    LineScanner lines(file_.all().substr(piece.at), reader_);
    std::vector<std::size_t> ends;
    std::string opened;
    for (std::string_view line; static_cast<std::int32_t>(ends.size()) < piece.rows;) {
        if (!next_record(lines, text_lines_.increment, line)) break;
        if (kind_of(line, opened) != LineKind::reading) continue;
        text_ += line;
        ends.push_back(text_.size());
        text_ += '\n';
    }
    fields_.clear();
    first_field_ = { 0 };
    std::vector<std::string_view> fields;
    std::size_t begin = 0;
    for (const std::size_t end : ends) {
        split_record(std::string_view(text_).substr(begin, end - begin), fields);
        fields_.insert(fields_.end(), fields.begin(), fields.end());
        first_field_.push_back(fields_.size());
        begin = end + 1;
    }
}

void XyzDatabase::take_texts(std::int32_t symbol, std::int32_t, std::vector<std::string> & texts)
{
    const std::size_t rows = first_field_.size() - 1, column = static_cast<std::size_t>(symbol) - 1;
    if (is_name(symbol)) return texts.assign(rows, line_);
    texts.resize(rows);
    for (std::size_t row = 0; row < rows; ++row)
        if (first_field_[row] + column < first_field_[row + 1]) texts[row] = fields_[first_field_[row] + column];
}

}

bool is_line_structured(const std::string & path)
{
    TextFile file(path, beginning);
    const LineReader reader = reader_of(file);
    LineScanner lines(file.all(), reader);
    std::string opened;
    for (std::string_view line; lines.next(line);) {
        if (is_skipped(line)) continue;
        const LineKind kind = kind_of(line, opened);
        if (kind == LineKind::reading || kind == LineKind::header) return is_sure_header(line);
    }
    return false;
}

std::unique_ptr<SurveyDatabase> open_xyz_database(const std::string & path, const TextLines & text_lines)
{
    return std::make_unique<XyzDatabase>(path, text_lines);
}
