#pragma once

#include "creation/creation.h"

/// Writes the run scripts of an untiled inversion. Fails with a `FileFault`.
void write_run_scripts(const Creation & creation);
