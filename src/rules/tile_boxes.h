#pragma once

#include "rules/setup.h"
#include "support/status.h"

/// Checks the tile boxes before a tile layout is derived from them; stores nothing. Bad, after one message, when a box does not
/// hold what it should, and without one when the numbers of tiles have not been filled in yet.
Status check_tile_layout_boxes(Setup & setup, Host & host);

/// Checks the tile boxes of a refined inversion and collects them into the record. Fails after one message.
Status check_tile_definitions(Setup & setup, Host & host);
