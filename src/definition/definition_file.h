#pragma once

#include "definition/validated_definition.h"
#include "host/dialogs.h"
#include "support/status.h"

#include <string>

/// What a read of a definition file takes over: its position in the list of `menu_read_file`.
enum class Selection { all = 0, parameters = 1, observed_data = 2, topography = 3, mesh = 4 };

/// Overwrites the definition file at `path`, whole or not at all. Fails with a `FileFault`.
void save_inversion_parameters(const std::string & path, const ValidatedDefinition & definition);

/// Reads a definition file into `record`, which keeps what the file does not set. Nothing in it is checked.
///
/// Bad, after a message, when the file is empty or not a definition; a file that cannot be opened is a `FileFault`.
/// A fault within the file is shown and ends the read with what was read so far, status good.
Status read_inversion_parameter_file(const std::string & path, Selection selection, InversionDefinition & record,
                                     Dialogs & dialogs);
