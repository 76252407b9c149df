#pragma once

#include "definition/definition.h"

#include <string>

/// The whole content of a definition file for `record`, CR LF behind each line. Tests aside for this folder alone: a file is
/// saved from a `ValidatedDefinition` only.
std::string definition_text(const InversionDefinition & record);
