#pragma once

#include "creation/creation.h"

#include <string>

/// A name as one word of a command script: what the interpreter would expand or part words at is taken as it stands. A plain name
/// stays as it is.
std::string script_word(const std::string & name);

/// Writes a command script. One with letters beyond ASCII first tells the interpreter how they are coded. Fails with a
/// `FileFault`.
void write_script(const std::string & path, const Lines & lines);
