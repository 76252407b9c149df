#pragma once

#include "definition/definition.h"
#include "mesh/ubc_mesh.h"
#include "support/status.h"

#include <functional>

/// The padding lists as last parsed. The sums are single precision at each addition.
struct Padding {
    std::int32_t count_xy = 0, count_z = 0;
    List<double> list_xy, list_z; ///< multipliers of the core cell size, from the core outwards
    float sum_xy = 0, sum_z = 0;
    std::array<std::int32_t, 3> total_cells = {}; ///< as `calculate_cell_counts` found them
};

/// Parses both lists of the definition when padding is on; with it off, or for an empty text, the counts are 0.
/// Bad, without a message, when an item is not a number above 0.
Status decode_padding_cells(const InversionDefinition & definition, Padding & padding);

/// Sums both lists as they were last parsed.
void sum_padding(Padding & padding);

/// `decode_padding_cells`, then the cells of each axis with padding. Padding lies at both ends in x and y and at the bottom in z,
/// where a lower part replaces it.
Status calculate_cell_counts(const InversionDefinition & definition, Padding & padding);

/// Builds the design mesh of an untiled inversion from the limits, cell sizes and counts of the definition.
///
/// Bad, with the mesh as it was, when a count is below 1. In mode 4 the z limits of the definition become depths below a zero
/// top. A padding list that does not parse keeps its last items and sum. Counts beyond 32 bits, the cells of the whole mesh
/// among them, are an `OverflowFault`.
Status determine_inversion_mesh(InversionDefinition & definition, Padding & padding, UbcMesh & mesh);

/// What every derivation of a design mesh begins with. Bad when a count of the definition is below 1. In mode 4 its z limits
/// become depths below a zero top.
Status prepare_mesh_limits(InversionDefinition & definition);

/// Fills the lists of a mesh that has its counts: `set_widths` allocates and fills the widths; nodes, from the first one of each
/// axis, and centres follow. Counts beyond 32 bits, the cells of the whole mesh among them, and more than ten million cells along
/// one axis are an `OverflowFault`.
void set_mesh_lists(std::array<double, 3> first_nodes, const std::function<void(UbcMesh &)> & set_widths, UbcMesh & mesh);

/// The elevation of the bottom of the lower z part: `cells` cells below `bottom`, the first of size `cell_size`, each
/// `multiplier` times as high as the one above it.
double lower_part_bottom(double bottom, double cell_size, double multiplier, std::int32_t cells);
