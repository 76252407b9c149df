#pragma once

#include "creation/run_scripts.h"
#include "host/host.h"

/// Where the coarse run's matrix lies, relative to a tile folder; settled once per run, as tile folders lie side by side.
struct CoarseMatrix {
    std::string folder; ///< with a "\" at its end; empty while not settled
};

/// Which cells a tile is cut out of, for the extraction tool: "1 32 1 32 1 20", with " -Expand" for an expanded mesh.
std::string extract_range(const Creation & creation, Tile tile);
/// Which cells a tile is put back into, for the insertion tool, and how many of them are blended.
std::string insert_range(const Creation & creation, Tile tile);
/// The line that puts a tile's result back into the shared model.
std::string insert_line(const Creation & creation, Tile tile);

/// Writes the script of a tile, makes its folder and puts the solver inputs there: the first tile's are written, the others'
/// copied from it.
///
/// False when the own solver's coarse matrix is missing and the user does not want to go on: the script then ends where the
/// question came up. Fails with a `FileFault`.
bool write_tile_run_files(const Creation & creation, Tile tile, CoarseMatrix & matrix, Host & host);
