#include "data/topography.h"
#include "support/bulk_format.h"
#include "support/file_writer.h"
#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

constexpr std::int32_t gravity_v2 = 1; ///< its solver takes counts of cells for the ground
constexpr std::int32_t own_solver = 4;
constexpr std::size_t longest_line = 4 * field_width + 2;

/// The text of a number that stands in many lines.
class Field {
public:
    explicit Field(double value) { put_field(text_.data(), value); }
    char * put(char * at) const { return std::copy(text_.begin(), text_.end(), at); }

private:
    std::array<char, field_width> text_;
};

std::string count_field(std::int32_t value) { return pad_left(general_text(value), field_width); }

/// What a line holds behind the position: two elevations.
struct GroundPair {
    double first, second;
};

/// Positions along one axis and the number of the first of them in the mesh.
struct Positions {
    std::int32_t first;
    List<double> at;
};

Positions nodes_of(const List<double> & nodes, std::int32_t first, std::int32_t end)
{
    Positions positions{ first, {} };
    for (std::int32_t i = first; i <= end; ++i) positions.at.push_back(nodes[i]);
    return positions;
}

Positions centres_of(const List<double> & centres, const List<double> & nodes, std::int32_t first, std::int32_t end,
                     bool edges_on_nodes)
{
    Positions positions{ first, {} };
    for (std::int32_t i = first; i < end; ++i) positions.at.push_back(centres[i]);
    if (edges_on_nodes && !positions.at.empty()) {
        positions.at[1] = nodes[first];
        positions.at[positions.at.size()] = nodes[end]; // a single column stands at its far edge
    }
    return positions;
}

/// One line per crossing of columns and rows: the position and what `pair_at` tells of its number in a list of `row_length` a
/// row.
template <class PairAt>
void write_positions(FileWriter & file, const Positions & columns, const Positions & rows, std::int32_t row_length,
                     Progress & progress, PairAt pair_at)
{
    std::vector<Field> x_fields;
    for (const double x : columns.at.items()) x_fields.emplace_back(x);
    Percentage percentage(progress, rows.at.size());
    for (std::int32_t row = 1; row <= rows.at.size(); ++row) {
        const Field y_field(rows.at[row]);
        std::int64_t number = (rows.first + row - std::int64_t{ 2 }) * row_length + columns.first;
        for (const Field & x_field : x_fields) {
            const GroundPair pair = pair_at(number++);
            char * at = y_field.put(x_field.put(file.room(longest_line)));
            at = put_field(put_field(at, pair.first), pair.second);
            *at++ = '\r';
            *at++ = '\n';
            file.commit(at);
        }
        percentage.report(row);
    }
}

/// Columns and rows count from the corner of the window, as they do in the mesh that goes with it.
void write_air_counts(FileWriter & file, const UbcMesh & mesh, const TopoSurface & topo, const TopoWindow & window,
                      Progress & progress)
{
    const std::int32_t columns = window.end_column - window.first_column, rows = window.end_row - window.first_row;
    file.line(" " + general_text(columns) + " " + general_text(rows) + " ");
    Percentage percentage(progress, rows);
    for (std::int32_t iy = 1; iy <= rows; ++iy) {
        std::int64_t number = (window.first_row + iy - std::int64_t{ 2 }) * mesh.cells_x() + window.first_column;
        for (std::int32_t ix = 1; ix <= columns; ++ix)
            file.line(count_field(ix) + count_field(iy) + count_field(topo.air_cells[number++]));
        percentage.report(iy);
    }
}

/// The columns and rows of the window's cells.
struct CellPositions {
    Positions x, y;

    CellPositions(const UbcMesh & mesh, const TopoWindow & window)
        : x(centres_of(mesh.centres_x, mesh.nodes_x, window.first_column, window.end_column, window.edges_on_nodes)),
          y(centres_of(mesh.centres_y, mesh.nodes_y, window.first_row, window.end_row, window.edges_on_nodes))
    {
    }
    std::int32_t count() const { return multiply_counts(x.at.size(), y.at.size()); }
};

void write_draped_ground(FileWriter & file, const UbcMesh & mesh, const TopoSurface & topo, const TopoWindow & window,
                         Progress & progress)
{
    const auto twice = [](const List<float> & ground) {
        return [&ground](std::int64_t number) -> GroundPair { return { ground[number], ground[number] }; };
    };
    const Positions node_x = nodes_of(mesh.nodes_x, window.first_column, window.end_column);
    const Positions node_y = nodes_of(mesh.nodes_y, window.first_row, window.end_row);
    const CellPositions cells(mesh, window);
    file.line(" " + general_text(add_counts(multiply_counts(node_x.at.size(), node_y.at.size()), cells.count())) + " ");
    write_positions(file, node_x, node_y, mesh.nodes_x.size(), progress, twice(topo.node_topo));
    write_positions(file, cells.x, cells.y, mesh.cells_x(), progress, twice(topo.cell_topo));
}

void write_ground_and_mesh(FileWriter & file, const UbcMesh & mesh, const TopoSurface & topo, const TopoWindow & window,
                           bool mesh_first, Progress & progress)
{
    const CellPositions cells(mesh, window);
    file.line(" " + general_text(cells.count()) + " ");
    write_positions(file, cells.x, cells.y, mesh.cells_x(), progress, [&](std::int64_t number) -> GroundPair {
        const double ground = topo.cell_topo[number];
        const double surface = mesh.nodes_z[topo.air_cells[number] + 1];
        return mesh_first ? GroundPair{ surface, ground } : GroundPair{ ground, surface };
    });
}

}

TopoWindow whole_topography(const UbcMesh & mesh) { return { 1, mesh.nodes_x.size(), 1, mesh.nodes_y.size() }; }

void write_topo_file(const std::string & path, const InversionDefinition & definition, const UbcMesh & mesh,
                     const TopoSurface & topo, const TopoWindow & window, Host & host)
{
    FileWriter file(path);
    switch (definition.inversion_method) {
    case gravity_v2:
        write_air_counts(file, mesh, topo, window, host.progress);
        break;
    case own_solver:
        write_draped_ground(file, mesh, topo, window, host.progress);
        break;
    default:
        write_ground_and_mesh(file, mesh, topo, window, definition.topo_shift_option == 1, host.progress);
    }
    file.close();
}
