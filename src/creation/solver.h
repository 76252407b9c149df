#pragma once

#include "definition/enumerations.h"

#include <array>
#include <cstdint>

/// How the solver's own input is laid out.
enum class InputForm {
    first,   ///< the gravity solver whose sensitivity program takes its names on the command line
    classic, ///< a start flag first, model values as they are
    marked,  ///< no start flag, model values marked by "VALUE", always two bounds
    own
};

/// One solver: the programs, files and habits in which it differs from the others.
struct Solver {
    std::int32_t method; ///< as in `inversion_methods`
    InputForm form;
    const char * weight_word;    ///< first line of the weight program's input; empty when there is no such program
    const char * weight_input;   ///< its input file
    const char * sensitivity;    ///< program, and stem of its input file
    const char * inversion;      ///< program, and stem of its input, matrix and result files
    const char * rock_reference; ///< the reference model that the rock property table turns into
    bool has_bounds;             ///< a bounds line in its input
    const char * error_tool;
    const char * extract_tool;
    /// By creation mode: the error report reads the parent folder's data. Solvers differ here on purpose.
    std::array<bool, 4> error_reads_parent_data;
};

/// The row of a method; an unknown code is the own solver's.
const Solver & solver_of(std::int32_t method);

/// The file names that depend on gravity or magnetic alone.
struct ClassFiles {
    const char * observed;
    const char * reference; ///< the observed data once more, with line names
    const char * starting_model;
    const char * rock_reference;
    const char * rock_bounds;
};

const ClassFiles & class_files(FileClass file_class);
