#pragma once

#include "fuzz/input.h"

#include <span>
#include <string>

/// A reader as it is fuzzed. A `Fault` is a good answer to any input, and so is a message; any other exception is a find.
struct FuzzedReader {
    const char * name;
    void (*read)(Input input);
};

std::span<const FuzzedReader> fuzzed_readers();

/// Between two files of one input.
inline constexpr char pair_mark = '\x1D';

// fuzz/definition.cpp
void read_definition_text(Input input);
void read_typed_texts(Input input);
// fuzz/points.cpp
void read_points(Input input);
void read_columns(Input input);
// fuzz/databases.cpp
void read_xyz_database(Input input);
void read_aseg_database(Input input);
// fuzz/mesh.cpp
void read_mesh(Input input);
void read_model(Input input);
// fuzz/grids.cpp
void read_geosoft_grid(Input input);
void read_gxf_grid(Input input);
void read_netcdf_header(Input input);
void read_registration(Input input);
// fuzz/small_files.cpp
void read_transform(Input input);
void read_settings(Input input);
void read_place(Input input);
// fuzz/texts.cpp
void read_numbers(Input input);
void read_tokens(Input input);
void read_lines(Input input);
