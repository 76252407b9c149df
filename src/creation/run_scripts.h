#pragma once

#include "creation/creation.h"

/// A command script of the solvers' platform.
struct Script {
    std::string name;
    Lines lines;
};

/// The line that reports how well the inversion fits its data.
std::string error_line(const Creation & creation);

/// Starts the cluster's worker service when it does not run yet.
constexpr const char * start_worker_line = R"(tasklist | findstr " QVsen3D_RPCServer.exe" || START "" "QVsen3D_RPCServer.exe")";

/// The weight program's line, or none for a solver without it.
Lines weight_lines(const Creation & creation);
/// The line of the first gravity solver's sensitivity program, which has its names here and not in an input file.
std::string first_solver_sensitivity_line(const InversionDefinition & definition);
/// " NOFAST" when the own solver must not take its fast form, otherwise nothing.
std::string no_fast_form_option(const Creation & creation);

/// The scripts of an untiled inversion, in the order in which they are written. Only those for the inversion step and the error
/// report belong to a variation.
std::vector<Script> run_scripts(const Creation & creation);

/// Writes the run scripts of an untiled inversion. Fails with a `FileFault`.
void write_run_scripts(const Creation & creation);
