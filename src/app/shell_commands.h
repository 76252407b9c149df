#pragma once

#include "app/session.h"
#include "support/status.h"

// The file-level commands of the form. A dialog that is cancelled gives `stopped`.

/// Reads a definition picked by the user. index: 0 the whole, 1 to 4 a part of it.
Status press_read_file(Session & session, int index, Host & host);
/// Checks the definition and saves it where the user picks.
Status press_save(Session & session, Host & host);
/// Reads the recent file at `index`, counted from 0; one that has vanished is looked for.
/// An index without a file is a `SubscriptFault`.
Status press_recent_file(Session & session, int index, Host & host);

Status press_working_directory(Session & session, Host & host);
Status press_set_current_folder(Session & session, Host & host);
/// Makes the folder of the inversion when it is not there yet. Fails with a `FileFault`.
Status press_make_folder(Session & session, Host & host);

/// Opens the window that defines the coordinate transform and takes over what comes of it.
Status press_define_transform(Session & session, Host & host);

/// Opens the window that computes the earth's field and, when the user says so, takes the result over into the definition.
Status press_calculate_igrf(Session & session, Host & host);

/// The text of the check list.
std::string checklist_text();
