#pragma once

#include "creation/solver_inputs.h"

// Lines that the inputs of a whole inversion and of a tile have in common.

/// "0", or "1" to go on from the last result.
std::string start_flag(SolverStart start);
std::string inversion_mode_line(const InversionDefinition & definition);
std::string trade_off_line(const InversionDefinition & definition);
/// Smallest, east, north and vertical weight of the model norm, or "null".
std::string alpha_line(const InversionDefinition & definition);
std::string weighting_line(const InversionDefinition & definition);

// The own solver's.
std::string background_line(const InversionDefinition & definition);
std::string own_trade_off_line(const InversionDefinition & definition);
/// Where the matrices lie, one per observed type, in `folder`, which is empty or ends in "\".
std::string own_matrix_list(const InversionDefinition & definition, const std::string & folder);

/// The whole input of the first gravity solver; bounds: as they stand in it.
Lines first_solver_lines(const Creation & creation, SolverStart start, const std::string & bounds);
