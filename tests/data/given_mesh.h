#pragma once

#include "mesh/ubc_mesh.h"
#include "support/missing.h"
#include "support/numbers.h"

#include <string>
#include <vector>

inline void set_axis(double first, std::int32_t cells, List<double> & nodes, List<double> & centres)
{
    for (std::int32_t i = 0; i <= cells; ++i) nodes.push_back(first + 10 * i);
    for (std::int32_t i = 0; i < cells; ++i) centres.push_back(first + 10 * i + 5);
}

/// Cells of 10 m from (west, 0), and layers from 100 m down.
inline UbcMesh even_mesh(std::int32_t cells_x, std::int32_t cells_y, List<double> nodes_z, double west = 0)
{
    UbcMesh mesh;
    mesh.total_cells = { cells_x, cells_y, nodes_z.size() - 1 };
    set_axis(west, cells_x, mesh.nodes_x, mesh.centres_x);
    set_axis(0, cells_y, mesh.nodes_y, mesh.centres_y);
    mesh.nodes_z = std::move(nodes_z);
    return mesh;
}

/// The text of a number, a star when it is missing.
template <class Number>
std::string number_or_star(Number number)
{
    return is_missing(number) ? "*" : general_text(number);
}

/// The message for topography that is refused: "few" points are left, or they lie on one "line"; none for any other outcome.
inline std::vector<std::string> refusals_of(const std::string & outcome)
{
    if (outcome == "few") return { "The topo data file did not contain enough data points to be meaningful" };
    if (outcome == "line") return { "All Points in the topography file are colinear" };
    return {};
}
