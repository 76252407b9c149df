#include "data/database/aseg_database.h"

#include "data/database/aseg_definition.h"
#include "data/database/text_database.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/plain_number.h"
#include "support/text.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace {

constexpr std::int32_t rows_at_the_beginning = 100;

/// The file of the same name but for "dat" beside a definition; however its letters are written.
std::string data_file_of(const std::string & path)
{
    const std::string wanted = file_stem_of_path(path) + ".dat";
    const std::size_t name_at = path.size() - file_name_of_path(path).size();
    const std::string folder = path.substr(0, name_at);
    std::string found;
    std::error_code ignored;
    std::filesystem::directory_iterator entry(host_path(folder.empty() ? "." : folder), ignored);
    for (; entry != std::filesystem::directory_iterator(); entry.increment(ignored)) {
        const std::string name = definition_path(entry->path().filename());
        if (same_text(name, wanted) && (found.empty() || name == wanted)) found = name;
    }
    if (found.empty())
        throw FileFault("cannot read", path,
                        "its data, " + wanted + ", is not beside it. Put both into the same folder under the same name");
    return folder + found;
}

/// Takes a line and its end off the text. Looks no further than it has to, whatever the ends are.
std::string_view take_line(std::string_view & text)
{
    std::size_t end = std::string_view::npos;
    for (std::size_t window = 1024; end == std::string_view::npos; window *= 2) {
        const std::string_view part = text.substr(0, window);
        const std::string_view before_feed = part.substr(0, part.find('\n'));
        end = before_feed.find('\r');
        if (end == std::string_view::npos && before_feed.size() < part.size()) end = before_feed.size();
        if (part.size() == text.size()) end = std::min(end, text.size());
    }
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(text.substr(end).starts_with("\r\n") ? end + 2 : std::min(end + 1, text.size()));
    return line;
}

bool is_number(std::string_view text)
{
    char number[32]; // what follows in the record may be a digit
    if (text.empty() || text.size() >= sizeof number) return is_numeric(text);
    std::memcpy(number, text.data(), text.size());
    number[text.size()] = 0;
    double value = 0;
    return read_plain_number(number, number + text.size(), value) == number + text.size() || is_numeric(text);
}

/// A number as the rest of the world writes it: an exponent may begin with D.
std::string with_usual_exponent(std::string_view text)
{
    std::string number(text);
    std::ranges::replace(number, 'D', 'E');
    std::ranges::replace(number, 'd', 'e');
    return number;
}

/// Blank, or the stars that stand where a number had no room.
bool is_no_number(std::string_view text) { return text.find_first_not_of('*') == std::string_view::npos; }

class AsegDatabase final : public TextDatabase {
public:
    explicit AsegDatabase(const std::string & path)
        : path_(path), definition_(read_aseg_definition(path)), data_path_(data_file_of(path)), data_(data_path_)
    {
        std::vector<DatabaseChannel> channels;
        for (const AsegField & field : definition_.fields) channels.push_back({ field.name, field.count });
        set_channels(std::move(channels));
        find_rows(rows_at_the_beginning); // so that files that do not belong together are found before columns are chosen
    }

private:
    void find_rows(std::int64_t most) override;
    void load(const Piece & piece) override;
    void take_texts(std::int32_t symbol, std::int32_t element, std::vector<std::string> & texts) override;

    /// False for what is no reading.
    bool is_data(std::string_view record) const;
    void check(std::string_view record, bool is_last, std::int32_t number) const;
    void check_numbers(std::string_view record, std::int32_t number) const;
    [[noreturn]] void fail(std::int32_t number, const std::string & why) const
    {
        throw FileFault("cannot read", data_path_, "line " + general_text(number) + ": " + why);
    }
    static std::string_view element_of(const AsegField & field, std::size_t element, std::string_view record);

    std::string path_;
    AsegDefinition definition_;
    std::string data_path_;
    FileBytes data_;
    std::vector<std::string_view> records_; // that are loaded
};

void AsegDatabase::find_rows(std::int64_t most)
{
    std::string_view rest = data_.text();
    if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
    for (std::int32_t number = 1; !rest.empty() && found_rows() < most; ++number) {
        const std::size_t at = data_.text().size() - rest.size();
        const std::string_view record = take_line(rest);
        if (!is_data(record)) continue;
        const bool has_end = record.data() + record.size() < data_.text().data() + data_.text().size();
        check(record, !has_end, number);
        add_row(file_stem_of_path(path_), false, at, number);
    }
}

void AsegDatabase::load(const Piece & piece)
{
    records_.clear();
    std::string_view rest = data_.text().substr(piece.at);
    while (static_cast<std::int32_t>(records_.size()) < piece.rows) {
        const std::string_view record = take_line(rest);
        if (is_data(record)) records_.push_back(record);
    }
}

bool AsegDatabase::is_data(std::string_view record) const
{
    constexpr const char * blanks_and_end_mark = " \t\x1A";
    if (record.find_first_not_of(blanks_and_end_mark) == std::string_view::npos) return false;
    return !(definition_.has_comments && record.starts_with("COMM"));
}

/// A record may be longer by blanks, and shorter by those of texts. What a file that broke off has of its last record is read.
void AsegDatabase::check(std::string_view record, bool is_last, std::int32_t number) const
{
    const std::size_t length = definition_.record_length;
    const auto last_number =
        std::ranges::find(definition_.fields.rbegin(), definition_.fields.rend(), false, &AsegField::is_text);
    const std::size_t needed = last_number == definition_.fields.rend() ? 0 : last_number->begin + last_number->size();
    const bool too_long = record.size() > length && record.find_first_not_of(" \t\x1A", length) != std::string_view::npos;
    const bool too_short = record.size() < needed && !is_last;
    if (too_long || too_short)
        fail(number, "the record is " + general_text(static_cast<std::int32_t>(record.size())) +
                         " characters long, and the fields of " + file_name_of_path(path_) + " take " +
                         general_text(static_cast<std::int32_t>(length)) +
                         ". Put the definition that belongs to the data beside it, or mend its widths or the line");
    check_numbers(record, number);
}

void AsegDatabase::check_numbers(std::string_view record, std::int32_t number) const
{
    for (const AsegField & field : definition_.fields) {
        if (field.is_text) continue;
        for (std::size_t i = 0; i < static_cast<std::size_t>(field.count); ++i) {
            const std::string_view text = element_of(field, i, record);
            if (is_no_number(text) || is_number(text) || text == field.null_text || is_number(with_usual_exponent(text)))
                continue;
            fail(number, "\"" + std::string(text) + "\" stands where " + field.name + " should be a number, in characters " +
                             general_text(static_cast<std::int32_t>(field.begin + i * field.width + 1)) + " to " +
                             general_text(static_cast<std::int32_t>(field.begin + (i + 1) * field.width)) + ". The widths in " +
                             file_name_of_path(path_) + " may not be those of the data");
        }
    }
}

/// Trimmed. Of an element that a record does not reach, or reaches in part, only a text is taken.
std::string_view AsegDatabase::element_of(const AsegField & field, std::size_t element, std::string_view record)
{
    const std::size_t begin = field.begin + element * field.width;
    if (begin >= record.size() || (begin + field.width > record.size() && !field.is_text)) return {};
    return trim(record.substr(begin, field.width));
}

void AsegDatabase::take_texts(std::int32_t symbol, std::int32_t element, std::vector<std::string> & texts)
{
    const AsegField & field = definition_.fields.at(static_cast<std::size_t>(symbol) - 1);
    texts.reserve(records_.size());
    for (const std::string_view record : records_) {
        const std::string_view text = element_of(field, static_cast<std::size_t>(element), record);
        const bool is_null = !field.null_text.empty() && text == field.null_text;
        if (is_null || (!field.is_text && is_no_number(text))) {
            texts.emplace_back("*");
            continue;
        }
        std::string value = field.is_text || is_number(text) ? std::string(text) : with_usual_exponent(text);
        if (field.has_null_number && leading_number(value) == field.null_number) value = "*";
        texts.push_back(std::move(value));
    }
}

}

std::unique_ptr<SurveyDatabase> open_aseg_database(const std::string & path) { return std::make_unique<AsegDatabase>(path); }
