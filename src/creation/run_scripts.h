#pragma once

#include "creation/creation.h"

/// A command script of the solvers' platform.
struct Script {
    std::string name;
    Lines lines;
};

/// The line that reports how well the inversion fits its data.
std::string error_line(const Creation & creation);

/// The scripts of an untiled inversion, in the order in which they are written. Only those for the inversion step and the error
/// report belong to a variation.
std::vector<Script> run_scripts(const Creation & creation);

/// Writes the run scripts of an untiled inversion. Fails with a `FileFault`.
void write_run_scripts(const Creation & creation);
