#include "utilities/transform_file.h"

#include "support/file_writer.h"
#include "support/list.h"
#include "support/numbers.h"
#include "support/text.h"

#include <array>
#include <cmath>
#include <vector>

namespace {

using Field = double PointTransform::*;

struct BlockLine {
    std::vector<Field> fields;
    bool needs_two = false; ///< a lone value on the line is not taken
};

const std::array<BlockLine, 3> & block_lines()
{
    using T = PointTransform;
    static const std::array<BlockLine, 3> lines = { {
        { { &T::rotation, &T::elevation_shift, &T::elevation_scale } },
        { { &T::x_origin, &T::x_scale, &T::new_x_origin, &T::x2, &T::new_x2 } },
        { { &T::y_origin, &T::y_scale, &T::new_y_origin, &T::y2, &T::new_y2 }, true },
    } };
    return lines;
}

void take_block_line(const BlockLine & line, std::string_view rest, PointTransform & transform)
{
    if (line.needs_two) {
        std::string_view behind_first = rest;
        next_token(behind_first);
        if (behind_first.empty()) return;
    }
    for (const Field field : line.fields) {
        if (trim(rest).empty()) return;
        transform.*field = leading_number(next_token(rest));
    }
}

constexpr const char * file_header = "     Station        Depth      East       North";

/// The lines of a ".crd" file behind its header: two points and the elevation.
const std::array<std::vector<Field>, 3> & file_lines()
{
    using T = PointTransform;
    static const std::array<std::vector<Field>, 3> lines = { {
        { &T::x_origin, &T::y_origin, &T::new_x_origin, &T::new_y_origin },
        { &T::x2, &T::y2, &T::new_x2, &T::new_y2 },
        { &T::elevation_shift, &T::elevation_scale },
    } };
    return lines;
}

/// Takes one line's values, 0 for those that are missing. A line of points with any count of fields but four has a station in
/// front; false for such a line.
bool take_file_line(TextFile & file, int line, PointTransform & transform)
{
    std::string text;
    read_text_line(file, text);
    std::int32_t count = 0;
    List<std::string> values;
    split_fields(count, text, ',', values);
    const bool station = line < 2 && count != 4;
    std::int32_t number = station ? 2 : 1;
    for (const Field field : file_lines()[static_cast<std::size_t>(line)]) {
        transform.*field = number <= count ? leading_number(values[number]) : 0;
        ++number;
    }
    return !station;
}

bool too_close(double dx, double dy) { return !(std::hypot(dx, dy) >= 1); }

}

std::string transform_block(const PointTransform & transform)
{
    PointTransform written = transform;
    normalise_point_transform(written);
    std::string text;
    for (const BlockLine & line : block_lines()) {
        const char * between = "";
        for (const Field field : line.fields) {
            text += between + str_text(written.*field);
            between = " ";
        }
        text += "\r\n";
    }
    return text;
}

void read_transform_block(TextFile & file, PointTransform & transform)
{
    for (const BlockLine & line : block_lines()) {
        std::string text;
        read_text_line(file, text);
        take_block_line(line, text, transform);
    }
    normalise_point_transform(transform);
}

void write_transform_file(const std::string & path, const PointTransform & transform)
{
    PointTransform written = transform;
    normalise_point_transform(written);
    std::string text = std::string(file_header) + "\r\n";
    for (const auto & line : file_lines()) {
        const char * between = "";
        for (const Field field : line) {
            text += between + general_text(written.*field);
            between = " ";
        }
        text += "\r\n";
    }
    replace_file(path, text);
}

Status read_transform_file(const std::string & path, PointTransform & transform, Dialogs & dialogs)
{
    TextFile file(path);
    std::string header;
    read_text_line(file, header);
    PointTransform read;
    const bool first_of_four = take_file_line(file, 0, read);
    const bool second_of_four = take_file_line(file, 1, read);
    if (first_of_four && second_of_four) take_file_line(file, 2, read); // the older layout has no elevations

    if (too_close(read.x2 - read.x_origin, read.y2 - read.y_origin)) {
        dialogs.message("The start and end grid coordinates cannot be identical");
        return Status::bad;
    }
    if (too_close(read.new_x2 - read.new_x_origin, read.new_y2 - read.new_y_origin)) {
        dialogs.message("The start and end map coordinates cannot be identical");
        return Status::bad;
    }
    const TransformPoint first = { read.x_origin, read.y_origin, read.new_x_origin, read.new_y_origin };
    const TransformPoint second = { read.x2, read.y2, read.new_x2, read.new_y2 };
    return define_transform_from_points(first, second, read.elevation_shift, read.elevation_scale, transform) ? Status::good
                                                                                                              : Status::bad;
}
