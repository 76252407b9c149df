#pragma once

#include "rules/setup.h"

#include <string_view>

/// The one door for a change of a control by the user: looks the rule of the control up and applies it. Controls without a rule
/// just keep what was put into them. Boxes whose rule waits until the user leaves them come here when they are left.
/// Fails with an `OverflowFault` when a number is beyond its field.
void form_changed(Setup & setup, std::string_view control, int index, Host & host);

/// Shows, hides and relabels what the method of the record needs, and rebuilds the lists that depend on it. Stores nothing.
void show_solver(Setup & setup);
/// Shows what the data types of the record need. Stores nothing.
void show_data_types(Setup & setup);

/// Shows all pairs of options by the record.
void show_options(Setup & setup);
/// Shows by the record whether the topography comes from a file or is the top of the mesh.
void show_topo_type(Setup & setup);
