#pragma once

#include "definition/definition_file.h"
#include "rules/setup.h"

/// Resets the record to the defaults, fills the lists of the form and shows it.
void initialise_inversion_form(Setup & setup, Host & host);

/// Shows the mesh limits, cell sizes and counts of the record.
void show_mesh(Setup & setup);

/// Takes the parts of `record` that the selection names into the setup's record, with the repairs that each needs, and shows
/// them. While it runs `loading` is set, so that no default overwrites what was read.
void load_mag3d_form(Setup & setup, const InversionDefinition & record, Selection selection, Host & host);

/// Marks the button of the coordinate transform while one is in use.
void show_transform(Setup & setup);
