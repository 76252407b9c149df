#pragma once

#include "app/session.h"
#include "support/status.h"

/// Starts the run script of the inversion folder, detached. Bad, after a message, when the folder is not named or holds no
/// script. Fails with a `Fault` when the script cannot be started.
Status press_start_inversion(Session & session, Host & host);
