#pragma once

#include "creation/creation.h"

/// The two scripts over all tiles: "iter_all.bat" runs them one after the other, "insert_all.bat" puts finished ones together
/// anew.
struct TopScripts {
    Lines iter_all, insert_all;
};

TopScripts start_top_scripts(const Creation & creation);
/// reading_count: how many readings the tile's data file holds.
void add_tile(TopScripts & scripts, const Creation & creation, Tile tile, std::int32_t reading_count);
/// Ends a column or row of tiles.
void end_tile_group(TopScripts & scripts);
/// Adds the last lines and writes both. Fails with a `FileFault`.
void write_top_scripts(TopScripts & scripts, const Creation & creation);
