#include "model/mesh_reading.h"

#include "support/fault.h"
#include "support/numbers.h"

#include <algorithm>

namespace {

// A file may describe this much in few bytes: runs of equal cells, or a table that breaks off. Beyond it its size must bear it
// out.
constexpr std::size_t most_cells_unasked = 100000;
constexpr std::size_t most_table_values_unasked = 1000000;

}

Status MeshReading::refuse(const std::string & why)
{
    dialogs.message(why);
    return Status::bad;
}

Status MeshReading::check_cells(std::int32_t count)
{
    if (count >= 1 && static_cast<std::size_t>(count) <= std::max(most_cells_unasked, text.size())) return Status::good;
    return refuse("The number of cells in the mesh file is invalid");
}

Status MeshReading::set_cells(const std::array<std::int32_t, 3> & cells)
{
    for (const std::int32_t count : cells)
        if (check_cells(count) != Status::good) return Status::bad;
    multiply_counts(multiply_counts(cells[0], cells[1]), cells[2]);
    mesh.total_cells = cells;
    mesh.widths_x.assign(cells[0]);
    mesh.widths_y.assign(cells[1]);
    mesh.widths_z.assign(cells[2]);
    return Status::good;
}

std::int32_t MeshReading::surface_nodes(std::int32_t values) const
{
    const std::int32_t nodes = multiply_counts(add_counts(mesh.cells_x(), 1), add_counts(mesh.cells_y(), 1));
    const auto table = static_cast<std::size_t>(multiply_counts(nodes, values));
    if (table > std::max(most_table_values_unasked, text.size()))
        throw Fault("the file is too short for a table of the " + general_text(nodes) + " surface nodes of its mesh");
    return nodes;
}
