#pragma once

#include "rules/setup.h"

#include <string>
#include <string_view>

/// The message that the check would give for the text that stands in a box now; empty when the box would pass, has no check, or
/// is of no account with the settings that are chosen. Looks at nothing but the form and the record: no file is opened.
std::string box_fault(const Setup & setup, std::string_view control, int index);
