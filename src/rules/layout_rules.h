#pragma once

#include "rules/setup.h"
#include "support/status.h"

/// Shows the layout: checks the definition first unless the view is kept, as it is in the pause of a tiled creation and after a
/// tile was marked. Bad when the check failed, after its message.
Status display_tiling_layout(Setup & setup, bool keep_view, Host & host);

/// Opens the layout view.
Status press_view_tiling(Setup & setup, Host & host);
/// Closes it.
void press_done_tiling_layout(Setup & setup);

/// One press of an up/down button: moves a limit, both limits, or in refined mode the tile overlap.
void press_clip(Setup & setup, int index, bool up, Host & host);

/// The pointer at a position of the mesh: fills the status panels.
void point_at(Setup & setup, double x, double y);
/// The pointer let go there: selects the tile.
void choose_at(Setup & setup, double x, double y);
