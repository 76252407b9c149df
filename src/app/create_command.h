#pragma once

#include "app/session.h"
#include "support/status.h"

/// The buttons "Create Inversion" (0), "Update Parameters" (1) and "Generate Variation" (2): checks the folder boxes and the
/// definition, creates the folder, saves the definition there and writes the inversion. Every failure has shown its message.
Status press_create_inversion(Session & session, int index, Host & host);
