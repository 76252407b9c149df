#pragma once

#include "rules/setup.h"

#include <string_view>

// What a front end calls for what the user does to a control. Values are put into the form first.

/// True for the boxes whose rule waits until the user leaves them; all others follow each change through `form_changed`.
bool waits_until_left(std::string_view control);

/// The user has left a box after changing it.
void form_left(Setup & setup, std::string_view control, int index, Host & host);

/// The user has gone into a control.
void form_entered(Setup & setup, std::string_view control, int index);
