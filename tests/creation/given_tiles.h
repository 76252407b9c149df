#pragma once

#include "creation/given_creation.h"

#include <fstream>

/// A tiled run of 2 x 3 tiles in a folder of its own, with a coarse model in the folder beside it.
struct GivenTiles {
    TemporaryFolder folder;
    GivenCreation given;
    BaseModel base;
    Refined refined = { base, {} };

    GivenTiles(const std::string & method, const std::string & type, const std::string & run = "",
               const std::string & changes = "")
        : given(method, type, run, changes)
    {
        given.definition.mesh_cells[2] = 20;
        for (int k = 0; k <= 10; ++k) given.mesh.nodes_x.push_back(1000.125 + 10 * k);
        for (int k = 0; k <= 20; ++k) given.mesh.nodes_y.push_back(5000 + 5 * k);
        for (int k = 0; k <= 30; ++k) given.mesh.nodes_z.push_back(400.0625 - 4 * k);
        base.mesh_file = folder.file("base\\coarse.msh");
        base.model_file = folder.file("base\\coarse.sus");
        refined.tiles = { .number_x_tiles = 2,
                          .number_y_tiles = 3,
                          .tile_x_cells = { { 1, 1, 6, 8 }, { 4, 6, 11, 11 } },
                          .tile_y_cells = { { 1, 1, 8, 10 }, { 6, 8, 15, 17 }, { 13, 15, 21, 21 } },
                          .tile_skipped = { 0, 0, 0, 0, 0, 0 } };
        for (const char * name : { "inv", "base" }) make_folder_path(folder.file(name));
    }

    Creation creation() const
    {
        Creation tiled = given.creation(folder.file("inv\\"));
        tiled.refined = &refined;
        return tiled;
    }
};

/// A file of expected bytes beside the tests; one that is missing or empty ends the test.
inline std::string expected_file(const std::string & name)
{
    std::string bytes = bytes_of(TEST_DATA_FOLDER "/" + name);
    if (bytes.empty()) throw std::runtime_error(name + ": nothing to expect");
    return bytes;
}
