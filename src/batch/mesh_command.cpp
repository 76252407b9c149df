#include "batch/commands.h"
#include "batch/printed_lines.h"
#include "model/mesh_reader.h"
#include "support/numbers.h"

#include <initializer_list>

namespace {

std::string numbers(std::initializer_list<double> values)
{
    std::string text;
    for (const double value : values) text += (text.empty() ? "" : " ") + general_text(value);
    return text;
}

void print_mesh(const UbcMesh & mesh)
{
    const double east = mesh.nodes_x[mesh.nodes_x.size()], north = mesh.nodes_y[mesh.nodes_y.size()];
    print(
        { { "mesh_format", general_text(mesh.mesh_format) },
          { "cells", numbers({ 1.0 * mesh.cells_x(), 1.0 * mesh.cells_y(), 1.0 * mesh.cells_z() }) },
          { "origin", numbers({ mesh.origin_x, mesh.origin_y, mesh.origin_z }) },
          { "padding_x", numbers({ 1.0 * mesh.padding_x_start, 1.0 * mesh.padding_x_end }) },
          { "padding_y", numbers({ 1.0 * mesh.padding_y_start, 1.0 * mesh.padding_y_end }) },
          { "padding_z", numbers({ 1.0 * mesh.padding_z_top, 1.0 * mesh.padding_z_bottom }) },
          { "core_size", numbers({ mesh.core_size_x, mesh.core_size_y, mesh.core_size_z }) },
          { "extent", numbers({ mesh.nodes_x[1], east, mesh.nodes_y[1], north, mesh.nodes_z_ascending[1], mesh.nodes_z[1] }) } });
}

}

Status mesh_command(const std::string & file, Host & display)
{
    BaseModel base;
    base.mesh_file = file;
    if (read_mesh_file(base, display) != Status::good) return Status::bad;
    if (!base.mesh_loaded) {
        display.dialogs.message("The file is of a kind from which no mesh can be read: " + file);
        return Status::bad;
    }
    print_mesh(base.mesh);
    return Status::good;
}
