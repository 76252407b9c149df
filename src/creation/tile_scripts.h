#pragma once

#include "creation/run_scripts.h"
#include "host/host.h"

#include <optional>

/// Where the coarse run's matrix lies as seen from a tile folder, with a "\" at its end; settled once per run, as tile folders
/// lie side by side.
struct CoarseMatrix {
    std::optional<std::string> folder;
};

/// "DMX" or "QV", as the solver has it, and the job: one of the tools that work on a tile.
std::string tile_tool(const Creation & creation, const char * job);

/// Which cells a tile is cut out of, for the extraction tool: "1 32 1 32 1 20", with " -Expand" for an expanded mesh.
std::string extract_range(const Creation & creation, Tile tile);
/// The line that cuts a tile out of a model of the inversion's folder.
std::string extract_line(const Creation & creation, Tile tile, const std::string & shared_model, const std::string & tile_model);

/// Which cells a tile is put back into, for the insertion tool, and how many of them are blended.
std::string insert_range(const Creation & creation, Tile tile);
/// The line that puts a tile's result back into the shared model.
std::string insert_line(const Creation & creation, Tile tile);
/// West, east, south and north limit of the tile's own part.
std::string own_limits(const Creation & creation, Tile tile);

/// Reports the tile, makes its folder, writes its script and puts the solver inputs into the folder: the first tile's are
/// written, the others' copied from it.
///
/// False when the own solver's coarse matrix is missing and the user does not want to go on: the script then ends where the
/// question came up. Fails with a `FileFault`.
bool write_tile_run_files(const Creation & creation, Tile tile, CoarseMatrix & matrix, Host & host);
