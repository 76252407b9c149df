#pragma once

#include "creation/creation.h"

/// "C:\out\tile0101\" for an inversion in "C:\out\".
std::string tile_folder(const Creation & creation, Tile tile);

/// Makes the tile's folder when there is none, and takes away what would have the own solver go on from an earlier run.
void prepare_tile_folder(const Creation & creation, Tile tile);

/// Puts the solver inputs into the tile's folder. The inversion input is written for the first tile and copied from there for the
/// others, so the first must come before them. Fails with a `FileFault`.
void write_tile_inputs(const Creation & creation, Tile tile);

/// Copies a file, taking the place of whatever has the name; a copy onto itself leaves it as it is. Fails with a `FileFault`.
void copy_over(const std::string & from, const std::string & to);
