#pragma once

#include "app/session.h"
#include "support/status.h"

/// The buttons "Create Inversion" (0), "Update Parameters" (1) and "Generate Variation" (2): checks the folder boxes and the
/// definition, creates the folder, saves the definition there and writes the inversion. Every failure has shown its message.
///
/// A tiled inversion is good once it is saved, with the session paused: the user looks at the tiles, and `press_continue_tile`
/// writes it or `press_cancel_tile` leaves it.
Status press_create_inversion(Session & session, int index, Host & host);

/// The button that goes on after the pause, with the tiles that are left and their order. Bad, after a message, when there is
/// nothing to go on with.
Status press_continue_tile(Session & session, Host & host);
/// The way out of the pause; the folder keeps the saved definition.
void press_cancel_tile(Session & session);
