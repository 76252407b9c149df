#include "data/database/survey_database.h"
#include "grid/grid_detection.h"
#include "grid/grid_formats.h"
#include "rules/box_groups.h"
#include "rules/database_columns.h"
#include "rules/validation.h"
#include "rules/validation_steps.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"

#include <algorithm>

namespace {

constexpr int observed_points = 0, topography = 1, slot_count = 6;
constexpr std::int32_t text_file = 0, grid_file = 1, database_file = 2;
constexpr std::int32_t grid_data = 1;

std::string & file_of(Setup & setup, int slot) { return setup.definition.data_file[static_cast<std::size_t>(slot)]; }
bool is_set(Setup & setup, int slot) { return !trim(file_of(setup, slot)).empty(); }

/// What a file is judged to be. Fails for a kind that the slot cannot take, and for a grid that cannot be used.
Status settle_kind(Setup & setup, int slot, Host & host)
{
    const std::string & path = file_of(setup, slot);
    const std::string name = file_name_of_path(path);
    std::int32_t & kind = setup.definition.data_kind[static_cast<std::size_t>(slot)];
    GridHeader header;
    header.file_name = path;
    const bool is_known = detect_grid_file(header, host.dialogs) == Status::good;
    const bool is_grid = is_known && file_kind(header) == FileKind::grid;
    const bool is_picture = is_known && file_kind(header) == FileKind::image;
    if (is_picture && (slot == 3 || slot == 4)) return refuse("Raster files only valid as first image file", host);
    if (is_known && !is_grid) header.fault = picture_fault;
    kind = is_grid ? grid_file : database_kind(path) != DatabaseKind::none ? database_file : text_file;
    const std::string reason = header.fault.empty() ? "" : ": " + header.fault;
    if (!is_grid && (slot > topography || !reason.empty()))
        return refuse("The grid file format could not be dertermined for the file: " + name + reason, host);
    if (slot == observed_points && is_grid) return refuse(observed_grid_fault(path), host);
    return Status::good;
}

// The boxes of a slot. Columns are asked of the record: what is typed there goes in at once.

template <int slot>
bool is_text(const Setup & setup)
{
    return setup.definition.data_kind[slot] == text_file;
}

using Columns = std::array<std::int32_t, 6> InversionDefinition::*;
constexpr Columns x_columns = &InversionDefinition::data_x_column, y_columns = &InversionDefinition::data_y_column,
                  z_columns = &InversionDefinition::data_z_column;

template <const Columns & columns, const char * const & message>
std::string column_fault(const Setup & setup, int slot)
{
    return (setup.definition.*columns)[static_cast<std::size_t>(slot)] < 1 ? message : "";
}

constexpr const char * no_x = "The X column location must be defined";
constexpr const char * no_y = "The Y column location must be defined";
constexpr const char * no_z = "The Z column location must be defined";

std::string value_column_fault(const Setup & setup, int)
{
    return setup.definition.data_value_column[0] < 1 ? "The mag column location must be defined" : "";
}

std::int32_t highest_column(const InversionDefinition & definition, int slot)
{
    const auto s = static_cast<std::size_t>(slot);
    const std::int32_t highest =
        std::max({ definition.data_x_column[s], definition.data_y_column[s], definition.data_z_column[s] });
    if (slot != observed_points) return highest;
    return std::max(
        { highest, definition.data_value_column[0], definition.data_line_column, definition.data_extra_value_column });
}

template <int slot>
std::string distinct_fault(const Setup & setup)
{
    if (highest_column(setup.definition, slot) >= 3) return "";
    return std::string("There are not enough distinct fields for the ") +
           (slot == observed_points ? "observed data" : "topo data") + " file";
}

std::string observed_file_fault(const Setup & setup, int)
{
    return trim(setup.definition.data_file[observed_points]).empty() ? "The observed data file must be specified" : "";
}

std::string grid_file_fault(const Setup & setup, int slot)
{
    return trim(setup.definition.data_file[static_cast<std::size_t>(slot)]).empty()
               ? "The observed data grid file must be specified"
               : "";
}

constexpr const char * first_line_not_numeric = "The number of the first data line is not numeric";
constexpr const char * first_line_not_positive = "The number of the first data line must be positive";
constexpr const char * offset_not_numeric = "The elevation offset value is not numeric";

constexpr BoxCheck file_boxes[] = { { "Text_data_locations", 0, "", Limit::none, "", {}, &observed_file_fault },
                                    { "Text_data_locations", 2, "", Limit::none, "", {}, &grid_file_fault } };

constexpr BoxCheck first_line_boxes[] = {
    { "Text_UBC_locations_nhead", 0, first_line_not_numeric, Limit::positive, first_line_not_positive, {}, nullptr, &is_text<0> },
    { "Text_UBC_locations_nhead", 1, first_line_not_numeric, Limit::positive, first_line_not_positive, {}, nullptr, &is_text<1> },
};

constexpr BoxCheck observed_columns[] = {
    { "Text_UBC_locations_xpos", 0, "", Limit::none, "", {}, &column_fault<x_columns, no_x> },
    { "Text_UBC_locations_ypos", 0, "", Limit::none, "", {}, &column_fault<y_columns, no_y> },
    { "Text_UBC_locations_magpos", 0, "", Limit::none, "", {}, &value_column_fault },
    { "Text_UBC_locations_valcount", 0, "The nuber of values per cell is not numeric", Limit::not_negative,
      "The nuber of values per cell must be non-negative", &InversionDefinition::data_values_per_cell },
    { "Text_UBC_integration_interval", 0, "The integration interval is not numeric", Limit::not_negative,
      "The integration interval cannot be negative", &InversionDefinition::data_integration_time },
};

constexpr BoxCheck topography_columns[] = {
    { "Text_UBC_locations_xpos", 1, "", Limit::none, "", {}, &column_fault<x_columns, no_x> },
    { "Text_UBC_locations_ypos", 1, "", Limit::none, "", {}, &column_fault<y_columns, no_y> },
    { "Text_UBC_locations_zpos", 1, "", Limit::none, "", {}, &column_fault<z_columns, no_z> },
};

constexpr BoxCheck offset_boxes[] = { { "Text_UBC_elevation_offset", 0, offset_not_numeric },
                                      { "Text_UBC_elevation_offset", 1, offset_not_numeric },
                                      { "Text_UBC_elevation_offset", 2, offset_not_numeric } };

bool reads_points(const Setup & setup) { return setup.definition.data_file_type != grid_data; }
bool reads_grids(const Setup & setup) { return setup.definition.data_file_type == grid_data; }
bool reads_topography(const Setup & setup)
{
    return setup.definition.topo_type == 0 && !trim(setup.definition.data_file[topography]).empty();
}
bool reads_topography_columns(const Setup & setup)
{
    return reads_topography(setup) && setup.definition.data_kind[topography] != grid_file;
}

constexpr CheckGroup groups[] = {
    { std::span(file_boxes).first(1), &reads_points },
    { std::span(first_line_boxes).first(1), &reads_points },
    { observed_columns, &reads_points, &distinct_fault<observed_points> },
    { std::span(offset_boxes).first(1), &reads_points },
    { std::span(first_line_boxes).last(1), &reads_topography },
    { topography_columns, &reads_topography_columns, &distinct_fault<topography> },
    { std::span(offset_boxes).subspan(1, 1), &reads_topography },
    { std::span(file_boxes).last(1), &reads_grids },
    { std::span(offset_boxes).last(1), &reads_grids },
};

/// The boxes of the lines. Only text files have a first line to speak of.
Status take_lines(Setup & setup, int slot, Host & host)
{
    const auto s = static_cast<std::size_t>(slot);
    InversionDefinition & definition = setup.definition;
    if (check_box(setup, first_line_boxes[s], host) != Status::good) return Status::bad;
    const auto count = [&](const char * box) { return round_to_count(box_number(setup, box, slot)); };
    definition.data_first_line[s] = std::max(1, count("Text_UBC_locations_nhead"));
    definition.data_read_step[s] = std::max(1, count("Text_UBC_locations_nstep"));
    definition.data_name_line[s] = count("Text_UBC_locations_name_line");
    return Status::good;
}

Status check_columns(Setup & setup, int slot, Host & host)
{
    const bool observed = slot == observed_points;
    const std::span<const BoxCheck> boxes = observed ? std::span<const BoxCheck>(observed_columns) : topography_columns;
    if (check_boxes(setup, boxes, host) != Status::good) return Status::bad;
    setup.definition.data_max_column[static_cast<std::size_t>(slot)] = highest_column(setup.definition, slot);
    const std::string fault = observed ? distinct_fault<observed_points>(setup) : distinct_fault<topography>(setup);
    return fault.empty() ? Status::good : refuse(fault, host);
}

Status take_elevation_offset(Setup & setup, int slot, Host & host)
{
    const auto s = static_cast<std::size_t>(slot);
    if (s >= setup.definition.elevation_offset.size()) return Status::good;
    if (check_box(setup, offset_boxes[s], host) != Status::good) return Status::bad;
    setup.definition.elevation_offset[s] = to_f32(box_number(setup, offset_boxes[s].control, slot));
    return Status::good;
}

/// A slot whose file the user is asked for when it has gone.
struct FileSlot {
    int slot;
    const char * prompt;
    const char * not_found;
};

constexpr FileSlot observed_slot = { 0, "Observed Data file", "The specified observed data file does not exist" };
constexpr FileSlot topography_slot = { 1, "Topo file", "The topo file does not exist" };
constexpr FileSlot grid_slot = { 2, "Observed Data Grid file", "The observed data grid file does not exist" };
constexpr FileSlot component_slots[] = {
    { 3, "Observed data component 2 file", "The observed data 2 grid file does not exist" },
    { 4, "Observed data component 3 file", "The observed data 3 grid file does not exist" },
};
constexpr FileSlot sensor_slot = { 5, "Sensor grid file", "The sensor grid file does not exist" };

Status find_slot_file(Setup & setup, const FileSlot & row, Host & host)
{
    std::string path = file_of(setup, row.slot);
    if (!find_file(path).empty()) return Status::good;
    if (!locate_missing_file(row.prompt, path, host)) return refuse(row.not_found, host);
    file_of(setup, row.slot) = path;
    setup.form("Text_data_locations", row.slot).text = path;
    return Status::good;
}

Status find_and_check(Setup & setup, const FileSlot & row, Host & host)
{
    if (find_slot_file(setup, row, host) != Status::good) return Status::bad;
    return check_file_definitions(setup, row.slot, host);
}

}

std::span<const CheckGroup> data_file_groups() { return groups; }

std::string observed_grid_fault(const std::string & path)
{
    return "The observed data file is a grid: " + file_name_of_path(path) +
           ". Give it as the observed data grid, with grids as the data file type";
}

Status check_file_definitions(Setup & setup, int slot, Host & host)
{
    if (slot < 0 || slot >= slot_count) return Status::bad;
    if (!is_set(setup, slot)) return refuse("No data location file has been specified", host);
    if (find_file(file_of(setup, slot)).empty()) return refuse("The specified data location file does not exist", host);
    if (settle_kind(setup, slot, host) != Status::good) return Status::bad;
    if (setup.definition.data_kind[static_cast<std::size_t>(slot)] != grid_file) {
        if (take_lines(setup, slot, host) != Status::good || check_columns(setup, slot, host) != Status::good) return Status::bad;
        if (check_database_columns(setup, slot, host) != Status::good) return Status::bad;
    }
    if (take_elevation_offset(setup, slot, host) != Status::good) return Status::bad;
    normalise_point_transform(setup.definition.coordinate_transform);
    return Status::good;
}

bool locate_missing_file(const std::string & description, std::string & path, Host & host)
{
    const auto picked = host.dialogs.open_file({ "Locate the missing file: " + description, "All files (*.*)|*.*", path, "" });
    if (picked) path = *picked;
    return picked.has_value();
}

Status check_observed_file(Setup & setup, Host & host)
{
    if (setup.definition.data_file_type == grid_data) return Status::good;
    if (!is_set(setup, observed_points)) return refuse("The observed data file must be specified", host);
    return find_and_check(setup, observed_slot, host);
}

Status check_topography_file(Setup & setup, Host & host)
{
    if (setup.definition.topo_type != 0) return Status::good;
    if (is_set(setup, topography)) return find_and_check(setup, topography_slot, host);
    setup.definition.topo_type = 1;
    setup.form("Check_topo_type", 0).on = false;
    setup.form("Check_topo_type", 1).on = true;
    return Status::good;
}

Status check_grid_files(Setup & setup, Host & host)
{
    if (setup.definition.data_file_type != grid_data) return Status::good;
    if (!is_set(setup, grid_slot.slot)) return refuse("The observed data grid file must be specified", host);
    if (find_and_check(setup, grid_slot, host) != Status::good) return Status::bad;
    for (const FileSlot & row : component_slots)
        if (is_set(setup, row.slot) && find_slot_file(setup, row, host) != Status::good) return Status::bad;
    for (const FileSlot & row : component_slots)
        if (is_set(setup, row.slot) && check_file_definitions(setup, row.slot, host) != Status::good) return Status::bad;
    return is_set(setup, sensor_slot.slot) ? find_and_check(setup, sensor_slot, host) : Status::good;
}
