#pragma once

#include "rules/setup.h"

/// Selects a tile of the layout and shows whether it is skipped; a tile that the layout does not have takes the selection back.
void select_tile(Setup & setup, Tile tile);

/// Takes the box "skip" of the selected tile into the layout. True when that changed it.
bool take_skipped_tile(Setup & setup);

/// Takes one of the three lists of the order in which tiles are run into the record and the layout.
void take_tile_order(Setup & setup, int index);
