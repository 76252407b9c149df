#include "model/mesh_reading.h"
#include "support/numbers.h"

namespace {

/// Bad after a message. The counts of nodes, where the line has those, are one more than the cells.
Status take_counts(MeshReading & reading, std::int32_t more_than_cells)
{
    std::array<std::int32_t, 3> cells = {};
    for (std::int32_t & count : cells) count = add_counts(leading_count(reading.text.line_token()), -more_than_cells);
    return reading.set_cells(cells);
}

/// One, two or three positions a line, from the line of the counts on.
void take_origin(MeshReading & reading)
{
    for (double * const position : { &reading.mesh.origin_x, &reading.mesh.origin_y, &reading.mesh.origin_z }) {
        if (reading.text.line_used_up() && reading.text.data_line()) reading.text.cut_comment();
        *position = leading_number(reading.text.line_token());
    }
}

/// The segments of one axis, a line each: where it starts (the first one only), where it ends, and its cells.
Status read_section(MeshReading & reading, double & origin, List<double> & widths)
{
    MeshText & text = reading.text;
    text.data_line();
    const std::int32_t segments = leading_count(text.line_token());
    double end = 0;
    for (std::int32_t segment = 1; segment <= segments; ++segment) {
        text.data_line();
        const double start = segment == 1 ? leading_number(text.line_token()) : end;
        if (segment == 1) origin = start;
        end = leading_number(text.line_token());
        const std::int32_t cells = leading_count(text.line_token());
        if (!(start < end) || cells < 1) return reading.refuse("The mesh line is invalid : " + text.line());
        if (reading.check_cells(add_counts(widths.size(), cells)) != Status::good) return Status::bad;
        for (std::int32_t i = 0; i < cells; ++i) widths.push_back((end - start) / cells);
    }
    return Status::good;
}

bool has_number(MeshText & text, double & number)
{
    const std::string_view token = text.line_token();
    if (!is_numeric(token)) return false;
    number = leading_number(token);
    return true;
}

bool contains(const std::string & line, std::string_view words) { return line.find(words) != std::string::npos; }

/// The format that the lines of the header say, and its two counts. False when they say none.
bool take_header(MeshText & text, std::int32_t & format, double & count_a, double & count_b)
{
    double ignored = 0;
    if (!has_number(text, count_a)) return false;
    text.nonblank_line();
    if (!has_number(text, count_b)) return false;
    text.nonblank_line();
    if (contains(text.line(), "Nonuniform grid")) {
        format = 3;
    } else if (contains(text.line(), "Trapezoidal Grid used")) {
        format = 4;
    } else {
        if (!has_number(text, ignored)) return false;
        text.nonblank_line();
        format = 2;
        return has_number(text, ignored);
    }
    return true;
}

std::vector<CheckOption> coordinate_options()
{
    return { { "Swap X and Y coords", "Enable this option to interchange the X and Y coordinates in the inversion file" },
             { "Flip X coord", "Enable this option to swap the sign of the X coordinate (before swap is applied)" },
             { "Flip Y coord", "Enable this option to swap the sign of the Y coordinate (before swap is applied)" },
             { "Mask model using data", "Enable this option to mask the models to the extents of the data" } };
}

}

Status read_ubc_mesh(MeshReading & reading, bool nodes)
{
    if (take_counts(reading, nodes ? 1 : 0) != Status::good) return Status::bad;
    if (!nodes) take_origin(reading);
    const Status status = nodes ? read_node_positions(reading) : read_widths(reading);
    return status == Status::good ? read_mesh_trailer(reading) : status;
}

Status read_section_mesh(MeshReading & reading)
{
    UbcMesh & mesh = reading.mesh;
    List<double> x, z;
    reading.text.rewind();
    if (read_section(reading, mesh.origin_x, x) != Status::good) return Status::bad;
    if (read_section(reading, mesh.origin_z, z) != Status::good) return Status::bad;
    if (reading.set_cells({ x.size(), 3, z.size() }) != Status::good) return Status::bad;
    mesh.origin_y = -150;
    mesh.widths_x = x;
    mesh.widths_y = { 100, 100, 100 };
    mesh.widths_z = z;
    return Status::good;
}

Status read_inversion_header(MeshReading & reading)
{
    double count_a = 0, count_b = 0;
    if (!take_header(reading.text, reading.mesh.mesh_format, count_a, count_b))
        return reading.refuse("The format of the mesh file is invalid");
    auto options = coordinate_options();
    if (!reading.dialogs.check_options("ResInv3D coordinate Option", options))
        return reading.refuse("The inversion input has been cancelled");
    if (options[0].on) std::swap(count_a, count_b);
    return reading.set_cells({ add_counts(round_to_count(count_a), -1), add_counts(round_to_count(count_b), -1), 10 });
}
