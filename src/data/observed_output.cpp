#include "data/observed_output.h"

#include "definition/enumerations.h"
#include "support/bulk_format.h"
#include "support/file_writer.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/pattern.h"
#include "support/text.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int32_t any_direction_type = 30; ///< a first data type whose file has a vertical field in its head

/// The numbers of one line.
struct Datum {
    double x = 0, y = 0, z = 0;
    std::array<double, 3> value = {};
    std::int32_t line = 0;
    double extra_value = 0;
};

void write_field(FileWriter & file, double value) { file.commit(put_field(file.room(field_width), value)); }

std::string two_decimals(double value) { return format_number(value, "0.00"); }

bool has_header(const InversionDefinition & definition)
{
    const MethodFamily family = inversion_method_of(definition.inversion_method).family;
    const std::int32_t type = definition.obs_data_types[0];
    if (family == MethodFamily::own) return type == -1 || type == 1 || type >= 20;
    return family == MethodFamily::magnetic;
}

void write_header(const InversionDefinition & definition, FileWriter & file)
{
    const auto inclination = static_cast<double>(definition.mag_inclination);
    auto declination = static_cast<double>(definition.mag_declination);
    std::string direction;
    if (definition.obs_data_types[0] == any_direction_type) {
        direction = "-90.00 0.00 ";
    } else {
        const PointTransform & transform = definition.coordinate_transform;
        const bool turns = std::abs(inclination) - 90 >= 1 || std::abs(declination) >= 1;
        if (turns && transform.in_use) declination += transform.rotation;
        direction = two_decimals(inclination) + " " + two_decimals(declination) + " ";
    }
    file.line(direction + two_decimals(static_cast<double>(definition.mag_intensity)));
    file.line(direction + "1");
}

/// Writes the lines of one file.
class DatumWriter {
public:
    DatumWriter(const InversionDefinition & definition, const List<std::string> & line_names, bool extended, FileWriter & file)
        : file_(file), line_names_(line_names), value_count_(std::min<std::size_t>(values_wanted(definition), 3)),
          compresses_(definition.slog_scaling == 1), percent_(static_cast<double>(definition.error_percent)),
          floor_(static_cast<double>(definition.error_floor)), with_line_(extended && definition.data_line_column > 0),
          with_extra_value_(extended && definition.data_extra_value_column > 0)
    {
    }

    void write(const Datum & datum)
    {
        write_field(file_, datum.x);
        write_field(file_, datum.y);
        write_field(file_, datum.z);
        for (std::size_t i = 0; i < value_count_; ++i) write_value(datum.value[i], compresses_ && i == 0);
        if (with_line_) file_.text(pad_left(datum.line == 0 ? std::string() : line_names_[datum.line], field_width));
        if (with_extra_value_) write_field(file_, datum.extra_value);
        file_.line("");
    }

private:
    static std::size_t values_wanted(const InversionDefinition & definition)
    {
        return definition.obs_data_type_count < 1 ? 1 : static_cast<std::size_t>(definition.obs_data_type_count);
    }

    void write_value(double value, bool compress)
    {
        if (is_missing(value)) {
            file_.text("             *");
            write_field(file_, 0);
            return;
        }
        write_field(file_, value);
        const double size = std::abs(compress ? compress_value(value) : value);
        write_field(file_, static_cast<double>(to_f32(size * percent_ / 100 + floor_)));
    }

    FileWriter & file_;
    const List<std::string> & line_names_;
    std::size_t value_count_;
    bool compresses_;
    double percent_, floor_;
    bool with_line_, with_extra_value_;
};

/// Calls `visit` with the number of each cell in the window that holds a reading.
template <class Visit>
void for_each_selected(const SelectedData & selected, const OutputWindow & window, Visit visit)
{
    for (std::int32_t iy = window.first_row; iy < window.last_row; ++iy)
        for (std::int32_t ix = window.first_column; ix < window.last_column; ++ix)
            if (const std::int64_t cell = selected.cell(ix, iy); selected.occupied[cell] != 0) visit(cell);
}

/// Calls `visit` with the readings of the window in the order they were read, up to the wanted number per cell. Here the last
/// column and row belong to the window.
template <class Visit>
void for_each_reading(const ObservedReadings & readings, std::int32_t most_per_cell, const OutputWindow & window, Visit visit)
{
    const SelectedData & selected = readings.selected;
    List<std::int32_t> taken(std::int64_t{ selected.cells_x } * selected.cells_y);
    for (const AllPoints::Point & point : readings.all.points.items()) {
        if (point.cell_x < window.first_column || point.cell_x > window.last_column) continue;
        if (point.cell_y < window.first_row || point.cell_y > window.last_row) continue;
        std::int32_t & count = taken[selected.cell(point.cell_x, point.cell_y)];
        if (most_per_cell != 0 && count >= most_per_cell) continue;
        ++count;
        visit(point);
    }
}

Datum datum_of(const SelectedData & selected, std::int64_t cell)
{
    const auto item = [cell](const auto & list) { return list.empty() ? 0.0 : static_cast<double>(list[cell]); };
    Datum datum{ item(selected.x), item(selected.y), item(selected.z) };
    datum.value = { item(selected.value_1), item(selected.value_2), item(selected.value_3) };
    datum.line = selected.line.empty() ? 0 : selected.line[cell];
    datum.extra_value = item(selected.extra_value);
    return datum;
}

Datum datum_of(const AllPoints::Point & point)
{
    return { point.x, point.y, point.z, { point.value_1, point.value_2, point.distance }, point.line, point.extra_value };
}

/// Only the nearest reading of each cell goes out.
bool one_per_cell(const InversionDefinition & definition, const ObservedReadings & readings)
{
    return definition.data_values_per_cell == 1 || readings.all.point_count < 1;
}

}

std::int32_t count_inversion_data(const InversionDefinition & definition, const ObservedReadings & readings,
                                  const OutputWindow & window)
{
    std::int32_t count = 0;
    for_each_selected(readings.selected, window, [&count](std::int64_t) { ++count; });
    if (count < 1 || one_per_cell(definition, readings)) return count;
    count = 0;
    for_each_reading(readings, definition.data_values_per_cell, window, [&count](const AllPoints::Point &) { ++count; });
    return count;
}

std::int32_t write_inversion_data(const InversionDefinition & definition, const UbcMesh &, const ObservedReadings & readings,
                                  bool extended, const std::string & path, const OutputWindow & window, Host & host)
{
    const SelectedData & selected = readings.selected;
    const std::int32_t count = count_inversion_data(definition, readings, window);
    Percentage percentage(host.progress, count);
    if (count < 1) return 0;

    FileWriter file(path);
    if (has_header(definition)) write_header(definition, file);
    file.line(" " + general_text(count) + " ");
    DatumWriter writer(definition, selected.line_name, extended, file);
    std::int32_t written = 0;
    const auto write = [&](const Datum & datum) {
        writer.write(datum);
        percentage.report(written++);
    };
    if (one_per_cell(definition, readings))
        for_each_selected(selected, window, [&](std::int64_t cell) { write(datum_of(selected, cell)); });
    else
        for_each_reading(readings, definition.data_values_per_cell, window,
                         [&](const AllPoints::Point & point) { write(datum_of(point)); });
    file.close();
    return written;
}
