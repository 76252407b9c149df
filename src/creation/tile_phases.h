#pragma once

#include "creation/run.h"
#include "model/model_file.h"

// What a tiled inversion writes besides, phase by phase. All fail with a `FileFault` or as the writers they call.

/// The script, folder and solver inputs of every tile. False when the user does not want to go on without a coarse matrix.
bool write_tile_run_files(Run & run);

/// The mesh of every tile, and its weighting file when there is one.
void write_tile_meshes(Run & run);

/// "refined.sus" or "refined.den": the whole current model.
std::string refined_model(const Run & run);

/// How the models of the run are written: in the units of the file that the model came from.
ModelText model_text(const Run & run);

/// Fills the cell model from the model that is refined; without one it is 0.
void interpolate_current_model(Run & run);

/// The starting model of every tile, cut out of the refined model's file, the solver's current model, and copies of the model
/// files that the tiles' scripts cut from.
void write_tile_models(Run & run);

/// The observed data of every tile, and the two scripts over all tiles.
void write_tile_data(Run & run);

/// The ground of every tile.
void write_tile_topography(Run & run);
