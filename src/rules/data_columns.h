#pragma once

#include "rules/setup.h"

#include <string>
#include <string_view>
#include <vector>

/// Shows the column fields of slot 0 or 1 in their boxes: as numbers, or as names when the file has a line of names or is a
/// database.
void display_location_column_definitions(Setup & setup, int slot, Host & host);
/// Fills the list of column names of slot 0 or 1 from the name line of its file, or from a database. A file that cannot be read
/// leaves what was there. A database that cannot be opened empties the list, after one message; while a definition is applied
/// without one, since the check of the definition brings it.
void load_location_column_names(Setup & setup, int slot, Host & host);
/// Shows the file of a slot, and settles what kind of file it is. A file that cannot be read shows nothing; the check finds it.
void display_data_file(Setup & setup, int slot);
/// Shows which lines of the file of slot 0 or 1 are read.
void display_data_lines(Setup & setup, int slot);

/// The names in a line of column names.
List<std::string> column_names_in(std::string line);

/// A column that the definition takes from a file, and for what: "X", "Y", "Sensor", "Obs Data" and so on.
struct ColumnUse {
    std::int32_t column;
    const char * use;
    bool is_number = true; ///< not so for the name of the line
};
/// The uses of slot 0 or 1, of those columns that are given.
std::vector<ColumnUse> column_uses(const Setup & setup, int slot);

/// The user went into a column box: opens the list of names over it when there are names, and notes the box.
void open_column_names(Setup & setup, std::string_view control, int index);
/// Applies the rule of a control of the data columns; false when the control is none of them.
bool change_data_columns(Setup & setup, std::string_view control, int index, Host & host);
