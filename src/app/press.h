#pragma once

#include "app/session.h"
#include "support/status.h"

#include <string_view>

/// The one door for a button or menu item of the main form: looks its command up and runs it. Every failure has shown its
/// message; run-time faults too. A control without a command, or without that index, is a `SubscriptFault`.
///
/// `stopped` when the user stopped it or cancelled its dialog, and when another command still runs.
Status press(Session & session, std::string_view control, int index, Host & host);

/// True when the main form has a command for the control.
bool has_command(std::string_view control);
