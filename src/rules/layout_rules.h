#pragma once

#include "mesh/layout_view.h"
#include "rules/setup.h"
#include "support/status.h"

/// What the view is drawn from as the setup stands.
LayoutSource layout_source(const Setup & setup);
/// The part of it that the list chooses; nothing chosen is the whole, and there is no refined volume in normal mode.
ViewLimits layout_limits(const Setup & setup);

/// Shows the layout: checks the definition first unless the view is kept, as it is in the pause of a tiled creation and after a
/// tile was marked. Bad when the check failed, after its message.
Status display_tiling_layout(Setup & setup, bool keep_view, Host & host);

/// Opens the layout view. Bad, with the pages as they were, when the definition failed its check.
Status press_view_tiling(Setup & setup, Host & host);
/// Opens it for the pause of a tiled creation: it closes with "Continue" or "Cancel".
void pause_in_tiling_layout(Setup & setup, Host & host);
/// Closes it, however it was opened, and brings the pages back.
void press_done_tiling_layout(Setup & setup);

/// One press of an up/down button: moves a limit, both limits, or in refined mode the tile overlap. The mesh follows a limit,
/// and in refined mode its tiles are laid out anew; a limit that the base mesh does not allow goes back, after a message. Tiles
/// follow a new overlap only when the mesh is built next.
void press_clip(Setup & setup, int index, bool up, Host & host);

/// The pointer at a position of the mesh: fills the status panels.
void point_at(Setup & setup, double x, double y);
/// The pointer let go there: selects the tile.
void choose_at(Setup & setup, double x, double y);
