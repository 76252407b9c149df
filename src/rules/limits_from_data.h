#pragma once

#include "rules/setup.h"
#include "support/status.h"

/// Sets mesh limits from a file of the definition, on whole multiples of the cell sizes, and shows them.
///
/// index: 0 the observed data, for the limits in x and y and the base value; 1 the topography, for those in z.
/// With a transform in use the limits are those of the rectangle of the file's extent taken through it. It moves the elevations
/// of points too, and leaves those of a grid, as the run does. Bad, after one message and with the limits as they were, when the
/// file cannot be used.
Status set_limits_from_file(Setup & setup, int index, Host & host);
