#pragma once

#include "rules/setup.h"
#include "support/status.h"

/// Takes one axis (0 to 2), or all (-1), from the mesh boxes into the record, snapped to whole cells, and shows the result.
/// keep_maximum: the user edited a maximum. Bad, after one message, when a box does not hold what it should.
///
/// A run-time fault behind those tests (a count beyond 32 bits) ends it where it stands, good and without a message: the boxes
/// then are ahead of the record. Who goes on to use the record calls `take_mesh_boxes`.
Status unload_mesh_from_form(Setup & setup, int axis, bool keep_maximum, Host & host);

/// The same, letting run-time faults through.
Status take_mesh_boxes(Setup & setup, int axis, bool keep_maximum, Host & host);

/// Writes the mesh boxes again from the record.
void display_inversion_mesh(Setup & setup);

/// Shows the limits of the mesh with its padding, while padding is on.
void show_outer_limits(Setup & setup);

/// Empties the boxes of totals and of limits with padding, which tell of the mesh as it was last taken from the form.
void clear_mesh_totals(Setup & setup);

/// Builds the design mesh from the record and shows it, in refined mode with its tiles. Bad when an axis has no cell, and, after
/// a message, when a refined volume does not fit into its base mesh. Lets run-time faults through.
Status build_design_mesh(Setup & setup, Host & host);
