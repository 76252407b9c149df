#include "model/mesh_reading.h"
#include "support/numbers.h"

#include <algorithm>

namespace {

struct Axis {
    const char * name;
    List<double> UbcMesh::*widths;
    double UbcMesh::*origin;
};

using U = UbcMesh;
const Axis axes[] = { { "x", &U::widths_x, &U::origin_x },
                      { "y", &U::widths_y, &U::origin_y },
                      { "z", &U::widths_z, &U::origin_z } };

/// A run of equal widths, "12*25.0"; a run longer than what is left of the axis is cut to that.
Status take_run(MeshReading & reading, const Axis & axis, std::string_view token, std::size_t star, std::int64_t & done)
{
    const std::string multiple(token.substr(0, star));
    const std::string start = std::string("The ") + axis.name + " mesh cell multiple is ";
    if (!is_numeric(multiple)) return reading.refuse(start + "invalid : " + multiple);
    const std::int32_t count = leading_count(multiple);
    if (count <= 0) return reading.refuse(start + "not positive : " + multiple);
    std::string_view width = token.substr(star + 1);
    if (width.empty()) width = reading.text.line_token();
    const auto left = (reading.mesh.*axis.widths).items().subspan(static_cast<std::size_t>(done));
    const std::size_t taken = std::min(left.size(), static_cast<std::size_t>(count));
    std::fill_n(left.begin(), taken, leading_number(width));
    done += static_cast<std::int64_t>(taken);
    return Status::good;
}

Status read_axis_widths(MeshReading & reading, const Axis & axis)
{
    const auto widths = (reading.mesh.*axis.widths).items();
    return reading.text.each_token(std::ssize(widths), [&](std::string_view token, std::int64_t & done) {
        const std::size_t star = token.find('*');
        if (star != std::string_view::npos) return take_run(reading, axis, token, star, done);
        const double width = leading_number(token);
        if (!(width > 0))
            return reading.refuse(std::string("The ") + axis.name + " mesh value is not positive : " + std::string(token));
        widths[static_cast<std::size_t>(done++)] = width;
        return Status::good;
    });
}

/// Widths out of the positions of nodes, the first of which is the origin.
struct NodeDifferences {
    bool downwards = false;
    bool has_origin = false;
    double held = 0;

    double origin_of(double position)
    {
        has_origin = true;
        return held = downwards ? 0 - position : position;
    }
    /// Downwards the held value is negated only for the first width. Files are known to be read so, and stay so.
    double width_to(double position)
    {
        const double width = downwards ? held + position : position - held;
        held = position;
        return width;
    }
};

Status read_axis_nodes(MeshReading & reading, const Axis & axis)
{
    const auto widths = (reading.mesh.*axis.widths).items();
    NodeDifferences nodes{ .downwards = axis.origin == &U::origin_z };
    return reading.text.each_token(std::ssize(widths), [&](std::string_view token, std::int64_t & done) {
        const std::size_t star = token.find('*');
        if (star != std::string_view::npos) return take_run(reading, axis, token, star, done);
        const double position = leading_number(token);
        if (nodes.has_origin)
            widths[static_cast<std::size_t>(done++)] = nodes.width_to(position);
        else
            reading.mesh.*axis.origin = nodes.origin_of(position);
        return Status::good;
    });
}

Status read_axes(MeshReading & reading, Status (*read_axis)(MeshReading &, const Axis &))
{
    reading.text.drop_line();
    for (const Axis & axis : axes)
        if (read_axis(reading, axis) != Status::good) return Status::bad;
    return Status::good;
}

}

Status read_widths(MeshReading & reading) { return read_axes(reading, read_axis_widths); }

Status read_node_positions(MeshReading & reading)
{
    reading.text.skip_lines_with("coordinates");
    const Status status = read_axes(reading, read_axis_nodes);
    reading.text.skip_lines_with({});
    return status;
}
