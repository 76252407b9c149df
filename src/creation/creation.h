#pragma once

#include "creation/solver.h"
#include "definition/validated_definition.h"
#include "mesh/tile_layout.h"
#include "model/base_model.h"

#include <string>
#include <vector>

/// What a creation run produces.
enum class CreateMode { all = 0, parameters = 1, variation = 2, variation_with_data = 3 };

/// What a refined inversion refines, and how it is cut into tiles.
struct Refined {
    BaseModel & base; ///< its model is changed and restored while it is interpolated
    TileLayout tiles;
};

/// What the writers of one run share. Refers to the record and the mesh, which must outlive it.
struct Creation {
    const InversionDefinition & definition; ///< a validated one: `start_creation` takes no other
    InUse in_use;
    const UbcMesh & mesh;
    std::string folder; ///< with a "\" at its end
    CreateMode mode = CreateMode::all;
    const Refined * refined = nullptr; ///< set when the inversion is tiled
    std::string thread_suffix = {};    ///< a blank and the thread count, set by the weight-program input; otherwise empty

    bool is_variation() const { return mode == CreateMode::variation || mode == CreateMode::variation_with_data; }
    /// "..\" in a variation, whose shared files lie in the parent folder.
    std::string path_prefix() const { return is_variation() ? "..\\" : ""; }
    const TileLayout & tiles() const { return refined->tiles; }
    /// Cells of the core from the top down, with those below it that are blended.
    std::int32_t blended_core_cells() const;
    /// Cells of a tile from the top down: the same, or all when the own solver's tiles include the regional mesh.
    std::int32_t tile_cells_z() const;
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
