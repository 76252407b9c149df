#pragma once

#include "app/session.h"
#include "support/status.h"

// The file-level commands of the form.

/// Reads a definition picked by the user. index: 0 the whole, 1 to 4 a part of it.
Status press_read_file(Session & session, int index, Host & host);
/// Checks the definition and saves it where the user picks.
Status press_save(Session & session, Host & host);
/// Reads the recent file at `index`, counted from 0; one that has vanished is looked for.
Status press_recent_file(Session & session, int index, Host & host);
/// Shows the recent files in their menu.
void display_MRU_list(Session & session);

Status press_working_directory(Session & session, Host & host);
Status press_set_current_folder(Session & session, Host & host);
/// Makes the folder of the inversion when it is not there yet.
Status press_make_folder(Session & session, Host & host);
/// Shows the current folder in the folder boxes.
void show_current_folder(Session & session);

/// The text of the check list.
std::string checklist_text();
