#pragma once

#include "rules/setup.h"

/// Shows the column fields of slot 0 or 1 in their boxes: as numbers, or as names when the file has a line of names.
void display_location_column_definitions(Setup & setup, int slot);
/// Fills the list of column names of slot 0 or 1 from the name line of its file. A file that cannot be read leaves what was
/// there.
void load_location_column_names(Setup & setup, int slot);
/// Shows the file of a slot, and settles what kind of file it is.
void display_data_file(Setup & setup, int slot);
