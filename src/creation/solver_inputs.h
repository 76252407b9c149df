#pragma once

#include "creation/creation.h"

/// Writes the weight-program and sensitivity inputs that the method has, and sets `thread_suffix`. Not for method 1.
void write_sensitivity_inputs(Creation & creation);
/// Writes the inversion input. Both fail with a `FileFault`.
void write_inversion_inputs(const Creation & creation);
