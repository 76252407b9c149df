#pragma once

#include "fakes/temporary_folder.h"
#include "rules/refinement.h"
#include "rules/started_setup.h"

/// x nodes -60, -20, 0, 10 .. 100, 120, 160 with the core from 0 to 100; y the same; z nodes 50, 40, 30, 20, 0.
constexpr const char * base_mesh_text = "14 14 4\r\n-60 -60 50\r\n40 20 10*10 20 40\r\n40 20 10*10 20 40\r\n10 10 10 20\r\n";

/// In refined mode, tiles of 30 cells with an overlap of 5 over cells of 2, 2 and 5 m, not yet built.
struct Refined : StartedSetup {
    TemporaryFolder folder;

    Refined()
    {
        EXPECT_EQ(start_refinement(setup, folder.write("base.msh", base_mesh_text), host), Status::good);
        act("Text_cell_size 0 = 2; Text_cell_size 1 = 2; Text_cell_size 2 = 5; Text_x_tile_size := 30; Text_y_tile_size := 30;"
            "Text_tile_overlap := 5; Text_blend_overlap := 2; Text_z_blend := 0");
    }
};
