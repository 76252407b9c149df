#include "rules/data_preview.h"

#include "data/database/survey_database.h"
#include "grid/grid_detection.h"
#include "grid/grid_formats.h"
#include "grid/grid_source.h"
#include "rules/data_columns.h"
#include "rules/database_columns.h"
#include "rules/validation.h"
#include "support/answers_within.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"
#include "support/text_file.h"

#include <algorithm>

namespace {

constexpr std::size_t most_bytes = std::size_t{ 1 } << 16; // what is looked at of a file, however large
constexpr std::size_t most_rows = 30;
constexpr std::int64_t most_grid_values = std::int64_t{ 1 } << 20;

bool has_columns(int slot) { return slot == 0 || slot == 1; }

/// The beginning of a file in whole lines, as the reader of locations reads them.
std::vector<std::string> first_lines_of(const std::string & path)
{
    TextFile file(path, most_bytes);
    const auto take_line = detect_line_ending(file) ? &take_text_line : &take_raw_line;
    std::string_view text = file.rest();
    const std::size_t last_end = text.find_last_of("\r\n");
    if (text.size() == most_bytes && last_end != text.npos) text = text.substr(0, last_end + 1); // what follows may go on
    std::vector<std::string> lines;
    for (std::string line; take_line(text, line);) lines.push_back(line);
    return lines;
}

std::vector<std::string> fields_of(const std::string & line)
{
    List<std::string> fields;
    std::int32_t count = 0;
    split_fields(count, line, ',', fields);
    return { fields.items().begin(), fields.items().end() };
}

void take_rows(const std::vector<std::string> & lines, std::int32_t first_data_line, DataPreview & preview)
{
    const std::size_t before = std::min(static_cast<std::size_t>(std::max(first_data_line, 1) - 1), lines.size());
    preview.head.assign(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(before));
    for (std::size_t i = before; i < lines.size() && preview.rows.size() < most_rows; ++i)
        if (!trim(lines[i]).empty()) preview.rows.push_back(fields_of(lines[i]));
}

/// Names by the name line, numbers for the columns beyond them.
void name_columns(const std::vector<std::string> & lines, std::int32_t name_line, DataPreview & preview)
{
    if (name_line >= 1 && !lines.empty()) {
        const auto at = std::min(static_cast<std::size_t>(name_line), lines.size()) - 1; // the last line of a shorter file
        const List<std::string> names = column_names_in(lines[at]);
        preview.names.assign(names.items().begin(), names.items().end());
    }
    std::size_t columns = preview.names.size();
    for (const auto & row : preview.rows) columns = std::max(columns, row.size());
    for (std::size_t i = preview.names.size(); i < columns; ++i)
        preview.names.push_back(general_text(static_cast<std::int32_t>(i + 1)));
}

void note_uses(const Setup & setup, int slot, DataPreview & preview)
{
    preview.uses.resize(preview.names.size());
    for (const ColumnUse & row : column_uses(setup, slot)) {
        if (row.column > static_cast<std::int32_t>(preview.uses.size())) continue;
        std::string & use = preview.uses[static_cast<std::size_t>(row.column - 1)];
        use += (use.empty() ? "" : ", ") + std::string(row.use);
    }
}

void preview_text(const Setup & setup, int slot, DataPreview & preview)
{
    const auto at = static_cast<std::size_t>(slot);
    const std::vector<std::string> lines = first_lines_of(setup.definition.data_file[at]);
    take_rows(lines, setup.definition.data_first_line[at], preview);
    name_columns(lines, setup.definition.data_name_line[at], preview);
    note_uses(setup, slot, preview);
    if (lines.empty())
        preview.summary = "The file is empty";
    else if (preview.rows.empty())
        preview.summary = "No data line stands in the beginning of the file: its first data line is given as line " +
                          general_text(setup.definition.data_first_line[at]);
}

void preview_columns(const Setup & setup, int slot, DataPreview & preview)
{
    preview_database(setup.definition, slot, preview);
    note_uses(setup, slot, preview);
}

std::string axis_text(const char * axis, double low, double high)
{
    return std::string(axis) + " " + general_text(low) + " to " + general_text(high);
}

/// What the values of a grid run from and to, if it is small enough to be read in no time.
std::string values_text(GridSource & source)
{
    const GridHeader & header = source.header();
    const std::int64_t count = static_cast<std::int64_t>(header.columns) * header.rows;
    if (count > most_grid_values) return "";
    std::vector<double> values(static_cast<std::size_t>(count));
    source.read(whole_grid(header), values);
    std::erase_if(values, [](double value) { return is_missing(value); });
    if (values.empty()) return "; no values";
    const auto [lowest, highest] = std::ranges::minmax(values);
    return "; " + axis_text("values", lowest, highest);
}

std::string grid_summary(GridSource & source)
{
    const GridHeader & header = source.header();
    const GridLimits & limits = header.limits;
    std::string text = std::string(header.format ? header.format->name : "Grid") + ": " + general_text(header.columns) +
                       " columns x " + general_text(header.rows) + " rows, cells of " + general_text(header.cell_size_x) + " x " +
                       general_text(header.cell_size_y) + "; " + axis_text("x", limits.west, limits.east) + ", " +
                       axis_text("y", limits.south, limits.north);
    return text + values_text(source);
}

/// Tells a grid, or why a file that looks like one is none. False for what may be a file of points.
bool preview_grid(const std::string & path, int slot, DataPreview & preview)
{
    const bool is_grid = is_grid_file(path);
    if (!is_grid && has_columns(slot)) return false;
    std::string fault;
    const auto source = open_grid_source(path, 1, fault);
    if (is_grid && source) {
        preview.summary = slot == 0 ? observed_grid_fault(path) : grid_summary(*source);
        return true;
    }
    if (source) fault = header_fault(source->header());
    preview.summary = "The file is no grid that can be read" + (fault.empty() ? "" : ": " + fault);
    return true;
}

void look_at(const Setup & setup, int slot, DataPreview & preview)
{
    const std::string & path = setup.definition.data_file.at(static_cast<std::size_t>(slot));
    if (trim(path).empty()) return;
    if (!path_answers(path))
        preview.summary = "The place of the file does not answer: " + path;
    else if (find_file(path).empty())
        preview.summary = "The file does not exist: " + path;
    else if (has_columns(slot) && database_kind(path) != DatabaseKind::none)
        preview_columns(setup, slot, preview);
    else if (!preview_grid(path, slot, preview))
        preview_text(setup, slot, preview);
}

}

DataPreview preview_data_file(const Setup & setup, int slot)
{
    DataPreview preview;
    try {
        look_at(setup, slot, preview);
    } catch (const Fault & fault) {
        preview.summary = fault.what();
    }
    return preview;
}
