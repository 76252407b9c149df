#pragma once

#include "rules/setup.h"

#include <string_view>

/// True for the boxes that hold the name of a file, or the folder of the inversion, and open a dialog for it.
bool is_file_box(std::string_view control);

/// Opens the dialog of a box, starting at the name in it, and takes the file or folder that is picked; a cancelled dialog
/// changes nothing.
void pick_file(Setup & setup, std::string_view control, int index, Host & host);

/// Takes a file into a box, as one that was picked in its dialog.
void take_file(Setup & setup, std::string_view control, int index, const std::string & path, Host & host);

/// Takes the name that was typed into a data box into its slot and looks at the file: its kind, its preview and its columns. A
/// box that has lost its text clears the slot. False when the control is no data box.
bool leave_file_box(Setup & setup, std::string_view control, int index, Host & host);
