#pragma once

#include "rules/setup.h"
#include "support/status.h"

#include <optional>

/// Checks the form and collects it into the record, in a fixed order, stopping at the first fault after its message.
/// Nothing is rolled back on failure. A field that does not fit the survey is told and passes. The only maker of a validated
/// record.
Status check_inversion_definitions(Setup & setup, std::optional<ValidatedDefinition> & validated, Host & host);

/// The same for one data location slot, 0 to 5.
Status check_file_definitions(Setup & setup, int slot, Host & host);

/// Why a grid cannot be taken as the observed data file.
std::string observed_grid_fault(const std::string & path);

/// Asks for a file that is not where the definition says. False when the user cancelled; otherwise `path` is the file picked.
bool locate_missing_file(const std::string & description, std::string & path, Host & host);
