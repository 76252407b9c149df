#include "grid/gxf_grid.h"

#include "grid/grid_formats.h"
#include "grid/gxf_values.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <map>

namespace {

constexpr std::int32_t gxf_code = 9;
constexpr std::size_t longest_header = 1 << 16;
constexpr std::size_t longest_unasked = std::size_t{ 1 } << 24; // values of a row that few bytes may promise by a repeat
constexpr const char * cut_short = "it is cut short: it holds fewer values than its header says";

using Entries = std::map<std::string, std::string>; // start of the keyword in capitals, the line behind it

/// Keywords are told apart by their first four letters, and some writers give no more: #POIN, #DUMM.
std::string start_of(const std::string & keyword) { return keyword.substr(0, 4); }

std::string_view take_line(std::string_view & text)
{
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

/// The keywords of the header; `text` goes on behind the line "#GRID". Nothing when there is no such line.
std::optional<Entries> take_header(std::string_view & text)
{
    const std::size_t start = text.size();
    Entries entries;
    std::string keyword;
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    while (!text.empty() && start - text.size() < longest_header) {
        const std::string_view line = trim(take_line(text));
        if (line.starts_with('#')) {
            keyword = upper_case(line.substr(1));
            if (keyword == "GRID") return entries;
        } else if (!keyword.empty() && !line.empty()) {
            entries.emplace(start_of(keyword), line);
        }
    }
    return std::nullopt;
}

std::string entry(const Entries & entries, const std::string & keyword, const std::string & otherwise)
{
    const auto found = entries.find(start_of(keyword));
    return found == entries.end() ? otherwise : found->second;
}

double required_number(const Entries & entries, const std::string & keyword)
{
    const std::string text = entry(entries, keyword, "");
    if (!is_numeric(text)) throw Fault("its header gives no #" + keyword);
    return leading_number(text);
}

std::int32_t count_of(const Entries & entries, const std::string & keyword)
{
    return round_to_count(required_number(entries, keyword));
}

/// One order of storage, by the number of #SENSE: the corner where the values start, and which way they run first.
struct Sense {
    std::int32_t number;
    bool from_south, from_west, by_columns;
};
constexpr Sense senses[] = {
    { 1, true, true, false },   { -1, true, true, true },   // lower left: right, up
    { -2, false, true, false }, { 2, false, true, true },   // upper left: right, down
    { 3, false, false, false }, { -3, false, false, true }, // upper right: left, down
    { -4, true, false, false }, { 4, true, false, true },   // lower right: left, up
};

const Sense & sense_of(const Entries & entries)
{
    const std::int32_t number = leading_count(entry(entries, "SENSE", "1"));
    const auto * const found = std::ranges::find(senses, number, &Sense::number);
    if (found == std::end(senses)) throw Fault("its #SENSE is not one of the eight known");
    return *found;
}

GxfValues values_of(const Entries & entries)
{
    GxfValues values;
    values.packed_size = leading_count(entry(entries, "GTYPE", "0"));
    if (values.packed_size < 0 || values.packed_size > 8) throw Fault("its #GTYPE cannot be read");
    const std::string transform = entry(entries, "TRANSFORM", "1 0");
    std::string_view rest = transform;
    values.scale = leading_number(next_token(rest));
    values.offset = leading_number(next_token(rest));
    values.dummy = entry(entries, "DUMMY", "");
    return values;
}

class GxfGrid : public GridSource {
public:
    explicit GxfGrid(const std::string & path) : path_(path), file_(path)
    {
        body_ = file_.text();
        const auto entries = take_header(body_);
        if (!entries) throw Fault("its header has no #GRID");
        if (leading_number(entry(*entries, "ROTATION", "0")) != 0)
            throw Fault("it is rotated, and only grids along the axes can be read");
        values_ = values_of(*entries);
        sense_ = sense_of(*entries);
        by_columns_ = sense_.by_columns;
        describe(*entries);
        check_vector(body_);
        starts_ = { 0 };
    }

    void read(const GridWindow & window, std::span<double> values) override
    {
        const std::int32_t first = by_columns_ ? window.column : window.row, count = by_columns_ ? window.columns : window.rows;
        try {
            for (std::int32_t i = 0; i < count; ++i) {
                read_vector(first + i);
                place_vector(window, i, values);
            }
            file_.verify();
        } catch (const Fault & fault) {
            throw FileFault("cannot read", path_, fault.what());
        }
    }

private:
    void describe(const Entries & entries)
    {
        // The points of a row and the rows are counted as stored, so both trade places with the columns.
        const std::int32_t points = count_of(entries, "POINTS"), rows = count_of(entries, "ROWS");
        header_.format = grid_format_with_code(gxf_code);
        header_.registration = header_.format->registration;
        header_.columns = by_columns_ ? rows : points;
        header_.rows = by_columns_ ? points : rows;
        if (points <= 0 || rows <= 0) throw Fault("it has no cells");
        const double point_step = required_number(entries, "PTSEPARATION"), row_step = required_number(entries, "RWSEPARATION");
        header_.cell_size_x = by_columns_ ? row_step : point_step;
        header_.cell_size_y = by_columns_ ? point_step : row_step;
        header_.limits.west = required_number(entries, "XORIGIN") - header_.cell_size_x / 2;
        header_.limits.south = required_number(entries, "YORIGIN") - header_.cell_size_y / 2;
        header_.limits.east = header_.limits.west + header_.columns * header_.cell_size_x;
        header_.limits.north = header_.limits.south + header_.rows * header_.cell_size_y;
        if (is_numeric(values_.dummy)) header_.null_value = leading_number(values_.dummy);
        header_.band_names = { "Band 1" };
    }

    std::int32_t vector_count() const { return by_columns_ ? header_.columns : header_.rows; }

    /// Where a stored vector begins is known once those before it have been read.
    void read_vector(std::int32_t from_corner)
    {
        const bool reversed = by_columns_ ? !sense_.from_west : sense_.from_south;
        const std::int32_t wanted = reversed ? vector_count() - 1 - from_corner : from_corner;
        for (auto at = std::min(wanted, static_cast<std::int32_t>(starts_.size()) - 1); at <= wanted; ++at) {
            std::string_view rest = body_.substr(starts_[static_cast<std::size_t>(at)]);
            fill_vector(rest);
            if (static_cast<std::size_t>(at) + 1 == starts_.size()) starts_.push_back(body_.size() - rest.size());
        }
    }

    std::size_t vector_size() const { return static_cast<std::size_t>(by_columns_ ? header_.rows : header_.columns); }

    /// The room for a vector grows with what the file holds of it, as a header may promise anything.
    void check_vector(std::string_view rest) const
    {
        const bool packed = values_.packed_size > 0;
        if (vector_size() > (packed ? std::max(longest_unasked, rest.size()) : rest.size() / 2 + 1)) throw Fault(cut_short);
    }

    void fill_vector(std::string_view & rest)
    {
        check_vector(rest);
        vector_.resize(vector_size());
        read_gxf_values(values_, rest, vector_);
    }

    void place_vector(const GridWindow & window, std::int32_t number, std::span<double> values) const
    {
        const std::int32_t first = by_columns_ ? window.row : window.column, count = by_columns_ ? window.rows : window.columns;
        const auto last = static_cast<std::int32_t>(vector_.size()) - 1;
        const bool reversed = by_columns_ ? sense_.from_south : !sense_.from_west;
        const std::int64_t stride = by_columns_ ? window.columns : 1,
                           start = by_columns_ ? number : std::int64_t{ number } * window.columns;
        for (std::int32_t i = 0; i < count; ++i) {
            const std::int32_t stored = reversed ? last - first - i : first + i;
            values[static_cast<std::size_t>(start + i * stride)] = vector_[static_cast<std::size_t>(stored)];
        }
    }

    std::string path_;
    FileBytes file_;
    std::string_view body_; ///< the file behind "#GRID"
    GxfValues values_;
    Sense sense_ = senses[0];
    std::vector<std::size_t> starts_; ///< in the body, of the vectors read so far and the next one
    std::vector<double> vector_;
};

}

bool is_gxf_grid(const std::string & path)
{
    const FileBytes file(path);
    std::string_view text = file.text();
    const auto entries = take_header(text);
    return entries && entries->contains(start_of("POINTS")) && entries->contains("ROWS");
}

std::unique_ptr<GridSource> open_gxf_grid(const std::string & path) { return std::make_unique<GxfGrid>(path); }
