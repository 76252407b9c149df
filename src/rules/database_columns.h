#pragma once

#include "rules/data_preview.h"
#include "rules/setup.h"

#include <optional>
#include <string>
#include <vector>

/// The names of the columns of the database in slot 0 or 1; nothing, after one message, when it cannot be opened.
std::optional<std::vector<std::string>> database_column_names(const InversionDefinition & definition, int slot, Host & host);

/// Opens the database of slot 0 or 1, if it is one. Bad, after one message, when it cannot be opened or when the definition takes
/// columns from it that it does not have.
Status check_database_columns(const Setup & setup, int slot, Host & host);

/// The names and the first rows of the database in slot 0 or 1, or in the summary why there are none.
void preview_database(const InversionDefinition & definition, int slot, DataPreview & preview);
