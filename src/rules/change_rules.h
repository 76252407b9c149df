#pragma once

#include "rules/setup.h"

#include <string_view>

/// The one door for a change of a control by the user: looks the rule of the control up and applies it. Controls without a rule
/// just keep what was put into them.
void form_changed(Setup & setup, std::string_view control, int index, Host & host);

/// Shows, hides and relabels what the method of the record needs, and rebuilds the lists that depend on it. Stores nothing.
void show_solver(Setup & setup);
/// Shows what the data types of the record need. Stores nothing.
void show_data_types(Setup & setup);
