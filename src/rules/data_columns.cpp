#include "rules/data_columns.h"

#include "data/database/survey_database.h"
#include "grid/grid_detection.h"
#include "rules/database_columns.h"
#include "rules/silent_host.h"
#include "support/answers_within.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"
#include "support/text_file.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::int32_t text_file = 0, grid_file = 1, database_file = 2;
constexpr int topography = 1;
constexpr int preview_lines = 20;
// Files may be of any size; names and the lines to show stand at their beginning.
constexpr std::size_t preview_bytes = std::size_t{ 1 } << 16, most_name_bytes = std::size_t{ 1 } << 24;

enum class BelowOne { number, blank };

/// A box that shows a column of a slot. code: what the setup notes while the box's list of names is open.
struct ColumnBox {
    int code;
    const char * control;
    int index;
    std::int32_t * column;
    BelowOne shown_below_one;
    const char * use;
};

std::vector<ColumnBox> column_boxes(InversionDefinition & definition, int slot)
{
    const auto at = static_cast<std::size_t>(slot);
    std::vector<ColumnBox> boxes = {
        { 1, "Text_UBC_locations_xpos", slot, &definition.data_x_column[at], BelowOne::number, "X" },
        { 2, "Text_UBC_locations_ypos", slot, &definition.data_y_column[at], BelowOne::number, "Y" },
        { 3, "Text_UBC_locations_zpos", slot, &definition.data_z_column[at], BelowOne::blank, slot == 0 ? "Sensor" : "Topo" },
    };
    if (slot != 0) return boxes;
    constexpr const char * values[] = { "Obs Data", "Obs data 2", "Obs data 3" };
    for (int i = 0; i < 3; ++i)
        boxes.push_back({ 4 + i, "Text_UBC_locations_magpos", i, &definition.data_value_column[static_cast<std::size_t>(i)],
                          BelowOne::blank, values[i] });
    boxes.push_back({ 7, "Text_UBC_locations_lpos", 0, &definition.data_line_column, BelowOne::blank, "Line" });
    boxes.push_back({ 8, "Text_UBC_locations_valpos", 0, &definition.data_extra_value_column, BelowOne::blank, "Value" });
    return boxes;
}

bool has_columns(int slot) { return slot == 0 || slot == 1; }

bool has_names(const Setup & setup, int slot)
{
    const auto at = static_cast<std::size_t>(slot);
    return setup.definition.data_kind[at] == database_file || setup.definition.data_name_line[at] >= 1;
}

std::string shown_column(const ColumnBox & box)
{
    return *box.column < 1 && box.shown_below_one == BelowOne::blank ? "" : general_text(*box.column);
}

/// The line that holds the names, or the last line of a shorter file.
std::string name_line_of(const std::string & path, std::int32_t number)
{
    TextFile file(path, most_name_bytes);
    const auto read_line = detect_line_ending(file) ? &read_text_line : &read_raw_line;
    std::string names, line;
    for (std::int32_t i = 0; i < number && read_line(file, line); ++i) names = line;
    return names;
}

void list_names(Control & list, const List<std::string> & names)
{
    list.items = { { "N/A", 0 } }; // so that the position is the column
    for (const std::string & name : names.items()) list.items.push_back({ name, static_cast<std::int32_t>(list.items.size()) });
    list.position = 0;
}

List<std::string> names_in_database(const Setup & setup, int slot, Host & host)
{
    SilentHost silent;
    const auto names = database_column_names(setup.definition, slot, setup.loading ? silent.host : host);
    List<std::string> listed;
    if (names) listed.append(*names);
    return listed;
}

std::optional<ColumnBox> column_box_of(Setup & setup, std::string_view control, int index)
{
    for (int slot : { 0, 1 }) {
        for (const ColumnBox & box : column_boxes(setup.definition, slot))
            if (box.control == control && box.index == index) return box;
    }
    return std::nullopt;
}

int slot_of(const ColumnBox & box) { return box.code <= 3 ? box.index : 0; }

void type_column(Setup & setup, const ColumnBox & box)
{
    const std::string & text = setup.form(box.control, box.index).text;
    if (setup.column_name_count[static_cast<std::size_t>(slot_of(box))] > 0) return; // columns are picked by name
    if (is_numeric(text) && leading_number(text) > 0) *box.column = leading_count(text);
}

void pick_column_name(Setup & setup, int slot)
{
    if (setup.loading) return;
    Control & list = setup.form("Combo_names", slot);
    list.visible = false;
    for (const ColumnBox & box : column_boxes(setup.definition, slot)) {
        if (box.code != setup.active_column_box || list.position < 0 || list.position == *box.column) continue;
        *box.column = list.position;
        setup.form(box.control, box.index).text = chosen_text(list);
    }
}

void change_name_line(Setup & setup, int slot, Host & host)
{
    const auto at = static_cast<std::size_t>(slot);
    const std::string & text = setup.form("Text_UBC_locations_name_line", slot).text;
    if (setup.loading || !is_numeric(text)) return;
    const std::int32_t line = leading_count(text);
    if (line == setup.definition.data_name_line[at]) return;
    setup.definition.data_name_line[at] = line;
    if (setup.definition.data_kind[at] == database_file) return;
    setup.column_name_count[at] = 0;
    choose_position(setup.form("Combo_names", slot), 0);
    display_location_column_definitions(setup, slot, host);
}

struct LineRule {
    const char * control;
    std::array<std::int32_t, 6> InversionDefinition::*field;
    const char * not_numeric;
    const char * not_positive;
};

constexpr LineRule line_rules[] = {
    { "Text_UBC_locations_nhead", &InversionDefinition::data_first_line, "The number of the first data line is not numeric",
      "The number of the first data line must be positive" },
    { "Text_UBC_locations_nstep", &InversionDefinition::data_read_step, "The data read increment is not numeric",
      "The data read increment must be positive" },
};

void change_line(Setup & setup, const LineRule & rule, int slot, Host & host)
{
    const std::string & text = setup.form(rule.control, slot).text;
    if (!is_numeric(text)) {
        host.dialogs.message(rule.not_numeric);
    } else if (!(leading_number(text) > 0)) {
        host.dialogs.message(rule.not_positive);
    } else {
        (setup.definition.*rule.field)[static_cast<std::size_t>(slot)] = std::max(1, leading_count(text));
    }
}

std::string first_lines(const std::string & path)
{
    TextFile file(path, preview_bytes);
    std::string all, line;
    for (int i = 0; i < preview_lines && read_text_line(file, line); ++i) all += line + "\r\n";
    return all;
}

/// Settles the kind of the file and gives the lines to show of it.
std::string look_at(const std::string & path, int slot, std::int32_t & kind)
{
    kind = text_file;
    if (trim(path).empty() || !path_answers(path)) return "";
    if (slot > 0 && is_grid_file(path)) {
        kind = grid_file;
        return "";
    }
    if (!has_columns(slot)) return "";
    if (database_kind(path) != DatabaseKind::none) kind = database_file;
    return kind == text_file ? first_lines(path) : "";
}

}

void display_location_column_definitions(Setup & setup, int slot, Host & host)
{
    if (!has_columns(slot)) return;
    const bool names = has_names(setup, slot);
    if (names && setup.column_name_count[static_cast<std::size_t>(slot)] == 0) load_location_column_names(setup, slot, host);
    const std::int32_t count = setup.column_name_count[static_cast<std::size_t>(slot)];
    for (const ColumnBox & box : column_boxes(setup.definition, slot)) {
        std::string & text = setup.form(box.control, box.index).text;
        if (!names) {
            text = shown_column(box);
        } else if (*box.column >= 1 && *box.column <= count) {
            choose_position(setup.form("Combo_names", slot), *box.column);
            text = chosen_text(setup.form("Combo_names", slot));
        } else {
            text.clear();
        }
    }
}

void load_location_column_names(Setup & setup, int slot, Host & host)
{
    if (!has_columns(slot)) return;
    const auto at = static_cast<std::size_t>(slot);
    const InversionDefinition & definition = setup.definition;
    setup.column_name_count[at] = 0;
    try {
        List<std::string> names;
        if (definition.data_kind[at] == database_file)
            names = names_in_database(setup, slot, host);
        else if (definition.data_kind[at] == text_file && definition.data_name_line[at] > 0)
            names = column_names_in(name_line_of(definition.data_file[at], definition.data_name_line[at]));
        list_names(setup.form("Combo_names", slot), names);
        setup.column_name_count[at] = names.size();
    } catch (const Fault &) {
        // The list stays; without a count of names it is not opened, and the check tells of the file.
    }
}

void display_data_file(Setup & setup, int slot)
{
    const auto at = static_cast<std::size_t>(slot);
    std::string lines;
    try {
        lines = look_at(setup.definition.data_file[at], slot, setup.definition.data_kind[at]);
    } catch (const Fault &) {
        setup.definition.data_kind[at] = text_file;
    }
    if (has_columns(slot)) setup.form("Text_data_file", slot).text = lines;
    if (slot == topography) setup.form["Frame_data_file_image"].visible = setup.definition.data_kind[at] == grid_file;
}

void display_data_lines(Setup & setup, int slot)
{
    const auto at = static_cast<std::size_t>(slot);
    setup.form("Text_UBC_locations_nhead", slot).text = general_text(setup.definition.data_first_line[at]);
    setup.form("Text_UBC_locations_name_line", slot).text = general_text(setup.definition.data_name_line[at]);
    setup.form("Text_UBC_locations_nstep", slot).text = general_text(setup.definition.data_read_step[at]);
}

List<std::string> column_names_in(std::string line)
{
    if (line.starts_with('/')) line.front() = ' '; // the mark of a comment
    List<std::string> names;
    std::int32_t count = 0;
    split_fields(count, line, ',', names);
    return names;
}

std::vector<ColumnUse> column_uses(const Setup & setup, int slot)
{
    InversionDefinition definition = setup.definition;
    std::vector<ColumnUse> uses;
    for (const ColumnBox & box : column_boxes(definition, slot))
        if (*box.column >= 1) uses.push_back({ *box.column, box.use, box.column != &definition.data_line_column });
    return uses;
}

void open_column_names(Setup & setup, std::string_view control, int index)
{
    const std::optional<ColumnBox> box = column_box_of(setup, control, index);
    if (!box || !has_names(setup, slot_of(*box)) || setup.column_name_count[static_cast<std::size_t>(slot_of(*box))] < 1) return;
    Control & list = setup.form("Combo_names", slot_of(*box));
    const bool listed = *box->column > 0 && *box->column < static_cast<std::int32_t>(list.items.size());
    choose_position(list, listed ? *box->column : 0);
    list.visible = true;
    setup.active_column_box = box->code;
}

bool change_data_columns(Setup & setup, std::string_view control, int index, Host & host)
{
    for (const LineRule & rule : line_rules) {
        if (rule.control != control) continue;
        change_line(setup, rule, index, host);
        return true;
    }
    if (control == "Text_UBC_locations_name_line") {
        change_name_line(setup, index, host);
    } else if (control == "Combo_names") {
        pick_column_name(setup, index);
    } else if (const std::optional<ColumnBox> box = column_box_of(setup, control, index)) {
        type_column(setup, *box);
    } else {
        return false;
    }
    return true;
}
