#include "fuzz/point_reading.h"

#include "form/main_form.h"
#include "fuzz/surroundings.h"
#include "rules/apply_definition.h"
#include "rules/data_columns.h"
#include "rules/data_preview.h"

#include <algorithm>
#include <cmath>

namespace {

PointTransform take_transform(Input & input)
{
    PointTransform transform;
    if (input.take_flag()) {
        transform.rotation = 30;
        transform.x_origin = 500;
        transform.elevation_scale = 2;
        transform.elevation_shift = 1;
    }
    normalise_point_transform(transform);
    return transform;
}

template <class Number>
bool same_numbers(const List<Number> & a, const List<Number> & b)
{
    return std::ranges::equal(a.items(), b.items(),
                              [](Number x, Number y) { return x == y || (std::isnan(x) && std::isnan(y)); });
}

}

LocationSource take_source(Input & input)
{
    LocationSource source;
    for (std::int32_t * const column :
         { &source.x_column, &source.y_column, &source.z_column, &source.value_column[0], &source.value_column[1],
           &source.value_column[2], &source.line_column, &source.category_column, &source.text_column })
        *column = input.take_number(-1, 8);
    source.first_data_line = input.take_number(-1, 6);
    source.read_increment = input.take_number(0, 4);
    source.z_is_depth = input.take_number(0, 2);
    source.interpolation_interval = std::array{ 0.0F, 0.0F, 100.0F, 0.5F }[input.take_byte() % 4];
    source.elevation_offset = input.take_flag() ? 10.0F : 0.0F;
    source.value_window = { input.take_flag(), input.take_flag() };
    source.transform = take_transform(input);
    return source;
}

bool same_points(const ObservedData & a, const ObservedData & b)
{
    for (std::size_t i = 0; i < 3; ++i)
        if (!same_numbers(a.xyz[i], b.xyz[i]) || !same_numbers(a.value[i], b.value[i])) return false;
    return a.point_count == b.point_count && a.line_index == b.line_index && a.line_count == b.line_count &&
           a.line_name == b.line_name && a.line_first_point == b.line_first_point && a.category_count == b.category_count &&
           a.category_index == b.category_index && a.category_name == b.category_name && a.text == b.text;
}

bool same_limits(const LocationStatistics & a, const LocationStatistics & b)
{
    const auto same = [](const Range & x, const Range & y) { return x.minimum == y.minimum && x.maximum == y.maximum; };
    return a.minimum_x == b.minimum_x && a.maximum_x == b.maximum_x && a.minimum_y == b.minimum_y && a.maximum_y == b.maximum_y &&
           same(a.z, b.z) && std::ranges::equal(a.value, b.value, same);
}

PointReading::PointReading(const LocationSource & source, ReadMode mode, const ReadShares & shares)
{
    FuzzHost surroundings;
    statistics.value.fill({ -50, 50 }); // the windows
    status = read_locations_file(source, mode, data, statistics, surroundings.host, shares);
    must((status == Status::good) == (surroundings.dialogs.messages == 0), "a read without its one message");
}

void check_lists(const LocationSource & source, const ObservedData & data)
{
    for (const List<double> & list : data.xyz) must(list.size() == data.point_count, "a coordinate for each point");
    must(data.line_name.size() == data.line_count, "a name for each line");
    for (const std::int32_t line : data.line_index.items())
        must(line >= 0 && line <= data.line_count, "a line that is not there");
    for (const std::int32_t category : data.category_index.items())
        must(category >= 0 && category <= data.category_count, "a category that is not there");
    must(source.line_column <= 0 || data.line_index.size() == data.point_count, "a line for each point");
}

void check_counted(const PointReading & counted, const PointReading & stored)
{
    must(counted.status == stored.status, "a read that depends on what it is for");
    must(counted.data.point_count == stored.data.point_count && same_limits(counted.statistics, stored.statistics),
         "other points counted than stored");
}

void show_columns(const std::string & path, Input choices)
{
    static const Setup fresh = [] {
        FuzzHost surroundings;
        Setup started;
        started.form = make_main_form();
        initialise_inversion_form(started, surroundings.host);
        return started;
    }();
    Setup setup = fresh;
    FuzzHost surroundings;
    const int slot = choices.take_number(0, 2);
    const auto at = static_cast<std::size_t>(slot);
    setup.definition.data_first_line[at] = choices.take_number(-1, 20);
    setup.definition.data_name_line[at] = choices.take_number(-1, 20);
    setup.definition.data_file[at] = path;
    const DataPreview preview = preview_data_file(setup, slot);
    must(preview.names.size() == preview.uses.size(), "a use for each column");
    for (const auto & row : preview.rows) must(row.size() <= preview.names.size(), "a name for each column");
    display_data_file(setup, slot);
    load_location_column_names(setup, slot, surroundings.host);
    display_location_column_definitions(setup, slot, surroundings.host);
}
