#pragma once

#include "creation/creation.h"

// The solvers read their inputs by position, so the order of the lines is the format.

/// Whether a solver starts from the initial model or goes on from its last result.
enum class SolverStart { fresh = 0, restart = 1 };

/// The input of the weight program. Only for solvers that have one.
Lines weight_input_lines(const Creation & creation);
/// The input of the sensitivity program. Not for method 1, whose program takes its names on the command line.
Lines sensitivity_input_lines(const Creation & creation);
/// The input of the inversion program.
Lines inversion_input_lines(const Creation & creation, SolverStart start);

/// The input of the inversion program of a tile, which is laid out in its own way for most solvers.
Lines tile_input_lines(const Creation & creation, SolverStart start);

/// Writes the weight-program and sensitivity inputs that the method has, and sets `thread_suffix`. Nothing is written for
/// method 1 or in a variation, which uses its parent's matrix. Fails with a `FileFault`.
void write_sensitivity_inputs(Creation & creation);
/// Writes the inversion input, and for a tiled inversion the one to go on from. Fails with a `FileFault`.
void write_inversion_inputs(const Creation & creation);
