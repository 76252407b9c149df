#pragma once

#include "creation/creation.h"

/// What one solver's tiles have of their own. A file name without an ending gets that of the inversion's class: see
/// `tile_file_name`.
struct TileSolver {
    std::int32_t method;             ///< as in `inversion_methods`
    const char * tools;              ///< how the tools' names begin
    const char * forward;            ///< program that tells what a coarse model gives at the readings
    const char * forward_result;     ///< what it leaves to be subtracted; empty when the solver subtracts by itself
    const char * shared_model;       ///< the shared model, cut to the tile
    const char * extracted_ref;      ///< what the script turns a reference into by the rock property table
    const char * extracted_bounds;   ///< likewise for bounds; empty when the script extracts none
    const char * input_ref;          ///< under which name the input looks for that reference
    const char * input_bounds;       ///< likewise for the bounds, or for the lower ones
    const char * input_upper_bounds; ///< empty when the input has one line of bounds
};

/// The row of the inversion's method; an unknown code is the own solver's.
const TileSolver & tile_solver_of(const Creation & creation);

/// The parts of names that depend on gravity or magnetic alone.
struct TileClass {
    const char * data;      ///< stem of the data files
    const char * model;     ///< ending of model files
    const char * iteration; ///< ending of what a solver leaves behind while it runs
};

const TileClass & tile_class(FileClass file_class);
inline const TileClass & tile_class(const Creation & creation) { return tile_class(file_class(creation.definition)); }

/// `name`, with the ending of the class's models when it has none.
std::string tile_file_name(const char * name, const TileClass & of_class);
/// The shared model under its name in a tile folder.
std::string shared_model_in_tile(const Creation & creation);

constexpr std::int32_t coarse_forward_model = 1; // of `tile_coarse_model`

/// True when the rock property table makes bounds and reference of a tile.
bool uses_rock_table_in_tiles(const Creation & creation);
