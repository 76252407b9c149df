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

/// One line per crossing of xs and ys: the position and what `pair_at` tells of that number.
template <class PairAt>
void write_positions(FileWriter & file, const List<double> & xs, const List<double> & ys, Progress & progress, PairAt pair_at)
{
    std::vector<Field> x_fields;
    for (const double x : xs.items()) x_fields.emplace_back(x);
    Percentage percentage(progress, ys.size());
    std::int64_t number = 0;
    for (std::int32_t row = 1; row <= ys.size(); ++row) {
        const Field y_field(ys[row]);
        for (const Field & x_field : x_fields) {
            const GroundPair pair = pair_at(++number);
            char * at = y_field.put(x_field.put(file.room(longest_line)));
            at = put_field(put_field(at, pair.first), pair.second);
            *at++ = '\r';
            *at++ = '\n';
            file.commit(at);
        }
        percentage.report(row);
    }
}

void write_air_counts(FileWriter & file, const UbcMesh & mesh, const TopoSurface & topo, Progress & progress)
{
    file.line(" " + general_text(mesh.cells_x()) + " " + general_text(mesh.cells_y()) + " ");
    Percentage percentage(progress, mesh.cells_y());
    std::int64_t number = 0;
    for (std::int32_t iy = 1; iy <= mesh.cells_y(); ++iy) {
        for (std::int32_t ix = 1; ix <= mesh.cells_x(); ++ix)
            file.line(count_field(ix) + count_field(iy) + count_field(topo.air_cells[++number]));
        percentage.report(iy);
    }
}

void write_draped_ground(FileWriter & file, const UbcMesh & mesh, const TopoSurface & topo, Progress & progress)
{
    const auto twice = [](const List<float> & ground) {
        return [&ground](std::int64_t number) -> GroundPair { return { ground[number], ground[number] }; };
    };
    file.line(" " + general_text(add_counts(topo.node_topo.size(), topo.cell_topo.size())) + " ");
    write_positions(file, mesh.nodes_x, mesh.nodes_y, progress, twice(topo.node_topo));
    write_positions(file, mesh.centres_x, mesh.centres_y, progress, twice(topo.cell_topo));
}

void write_ground_and_mesh(FileWriter & file, const UbcMesh & mesh, const TopoSurface & topo, bool mesh_first,
                           Progress & progress)
{
    file.line(" " + general_text(topo.cell_topo.size()) + " ");
    write_positions(file, mesh.centres_x, mesh.centres_y, progress, [&](std::int64_t number) -> GroundPair {
        const double ground = topo.cell_topo[number];
        const double surface = mesh.nodes_z[topo.air_cells[number] + 1];
        return mesh_first ? GroundPair{ surface, ground } : GroundPair{ ground, surface };
    });
}

}

void write_topo_file(const std::string & path, const InversionDefinition & definition, const UbcMesh & mesh,
                     const TopoSurface & topo, Host & host)
{
    FileWriter file(path);
    switch (definition.inversion_method) {
    case gravity_v2:
        write_air_counts(file, mesh, topo, host.progress);
        break;
    case own_solver:
        write_draped_ground(file, mesh, topo, host.progress);
        break;
    default:
        write_ground_and_mesh(file, mesh, topo, definition.topo_shift_option == 1, host.progress);
    }
    file.close();
}
