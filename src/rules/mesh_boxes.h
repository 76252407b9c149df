#pragma once

#include "rules/setup.h"
#include "support/status.h"

/// Takes one axis (0 to 2), or all (-1), from the mesh boxes into the record, snapped to whole cells, and shows the result.
/// keep_maximum: the user edited a maximum. Bad, after one message, when a box does not hold what it should.
Status unload_mesh_from_form(Setup & setup, int axis, bool keep_maximum, Host & host);

/// Writes the mesh boxes again from the record.
void display_inversion_mesh(Setup & setup);
