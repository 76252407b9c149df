#pragma once

#include "creation/solver.h"
#include "definition/validated_definition.h"
#include "mesh/ubc_mesh.h"

#include <string>
#include <vector>

/// What a creation run produces.
enum class CreateMode { all = 0, parameters = 1, variation = 2, variation_with_data = 3 };

/// What the writers of one run share. Refers to the record and the mesh, which must outlive it.
struct Creation {
    const InversionDefinition & definition; ///< a validated one: `start_creation` takes no other
    InUse in_use;
    const UbcMesh & mesh;
    std::string folder; ///< with a "\" at its end
    CreateMode mode = CreateMode::all;
    std::string thread_suffix = {}; ///< a blank and the thread count, set by the weight-program input; otherwise empty

    bool is_variation() const { return mode == CreateMode::variation || mode == CreateMode::variation_with_data; }
    /// "..\" in a variation, whose shared files lie in the parent folder.
    std::string path_prefix() const { return is_variation() ? "..\\" : ""; }
    const Solver & solver() const { return solver_of(definition.inversion_method); }
    /// The file names of the inversion's class, gravity or magnetic.
    const ClassFiles & files() const { return class_files(file_class(definition)); }
};

/// The shared part of a run that writes `definition` into `folder`, which ends in "\".
Creation start_creation(const ValidatedDefinition & definition, const UbcMesh & mesh, const std::string & folder,
                        CreateMode mode);

/// True when a model field names a file: not empty, not "NULL" in any case and not a number.
bool is_model_file(const std::string & field);
/// True when "w.dat" belongs to the inversion.
bool has_weighting_file(const InversionDefinition & definition);
/// "topo.dat", or "null" when the ground is the top of the mesh.
const char * topography_name(const InversionDefinition & definition);

/// The lines of a text file, in order, without their ends.
using Lines = std::vector<std::string>;

void append(Lines & lines, const Lines & more);

/// Writes a text file anew. Fails with a `FileFault`.
void write_lines(const std::string & path, const Lines & lines);
