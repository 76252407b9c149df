#pragma once

#include "creation/tile_scripts.h"

// The part of a tile's script that runs the coarse model, with the tile's volume taken out of it, and subtracts from the data
// what it gives. Empty unless the inversion has a coarse forward model.

bool has_coarse_section(const Creation & creation);

/// Up to the forward program: the shared model is cut to the tile, and the coarse model gets its hole.
Lines coarse_volume_lines(const Creation & creation, Tile tile);

/// Finds the matrix of the coarse run that the own solver's forward program reads, or lets the user show where it is. Asks only
/// while `matrix` is not settled, and never for another solver. False when it is missing and the user does not want to go on.
bool settle_coarse_matrix(const Creation & creation, Tile tile, CoarseMatrix & matrix, Dialogs & dialogs);

/// The forward program and the subtraction.
Lines coarse_forward_lines(const Creation & creation, Tile tile, const CoarseMatrix & matrix);
