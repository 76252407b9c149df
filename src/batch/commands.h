#pragma once

#include "definition/definition_file.h"
#include "host/host.h"
#include "mesh/tile_layout.h"
#include "support/status.h"
#include "utilities/igrf_record.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

// The commands of the command line. Paths are definition paths, absolute where the current folder may change before they are
// used.

/// The mesh to refine and the model on it; empty for a simple inversion.
struct BaseFiles {
    std::string mesh, model;
};

/// What `create` was asked for.
struct CreateOptions {
    std::string definition;
    std::string output;
    std::string mode = "all"; ///< all, parameters, variation or variation-data
    BaseFiles base;
    std::vector<Tile> skipped_tiles;
    std::optional<std::array<int, 3>> tile_order; ///< positions in the three lists
};

Status create_command(const CreateOptions & options, Host & display);
Status check_command(const std::string & definition, const BaseFiles & base, Host & display);

/// What `save` was asked for.
struct SaveOptions {
    std::string definition;
    std::string output;
    std::string into; ///< empty: nothing to take a part over into
    Selection selection = Selection::all;
};

Status save_command(const SaveOptions & options, Host & display);

/// What `limits` was asked for.
struct LimitsOptions {
    std::string definition;
    std::string output;
    std::string from = "data"; ///< data or topo
};

/// Sets the mesh limits of a definition from its data or its topography and saves it.
Status limits_command(const LimitsOptions & options, Host & display);

/// What `start` was asked for.
struct StartOptions {
    std::string folder;
    std::string definition; ///< empty: the folder's own
    bool variation = false;
};

/// Starts the run script of an inversion folder and returns while it runs.
Status start_command(const StartOptions & options, Host & display);

/// What `transform` was asked for: one of the two files.
struct TransformOptions {
    std::string transform_file;
    std::string definition;
    bool inverse = false;
};

/// Reads points from standard input and prints them transformed.
Status transform_command(const TransformOptions & options, Host & display);

/// Prints what the grid access makes of a file, one "name: value" a line.
Status grid_command(const std::string & file, Host & display);

/// Reads a mesh file and a model on it, and prints the model's count of cells and its range in the units of the file.
Status model_command(const std::string & mesh, const std::string & model, Host & display);
/// Reads a mesh file and prints what it holds, one "name: value" a line. Bad as well when it is of a kind that gives no mesh.
Status mesh_command(const std::string & file, Host & display);

/// Prints the field at a place and date, one "name: value" a line, and what it was computed from.
Status igrf_command(const IgrfTexts & texts, Host & display);
