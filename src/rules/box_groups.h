#pragma once

#include "rules/box_checks.h"

#include <span>

// All boxes that the check looks at, in its order. The check walks these tables, and so does who marks a box while it is typed.

/// Limits, sizes, the lower part and the padding of the mesh.
std::span<const CheckGroup> mesh_box_groups();
/// The tile boxes as the mesh needs them, before it is built.
std::span<const CheckGroup> tile_layout_groups();
/// The data files with their lines and columns: the groups of observed points, topography and grids.
std::span<const CheckGroup> data_file_groups();
/// Error terms, field, weights and what else the solvers are given.
std::span<const CheckGroup> parameter_groups();
/// What a refined inversion asks of the tile boxes beyond their layout.
std::span<const CheckGroup> tile_definition_groups();
