#pragma once

#include "form/form.h"
#include "host/host.h"
#include "support/status.h"

#include <string>

/// Where an inversion lies, taken from the folder boxes; the path has a "\" at its end.
struct OutputFolder {
    std::string path;
    std::string name;
};

/// Whether the box of the folder's name must hold one; without one the inversion lies in the location itself.
enum class FolderName { needed, optional };

/// Takes the folder from the boxes of the drive, the location and the name. Bad, after a message, when one that is needed is
/// blank.
Status take_output_folder(const Form & form, FolderName name, OutputFolder & folder, Host & host);

/// The path that the boxes make, whether they are complete or not.
std::string output_folder_of(const Form & form);

/// Shows the current folder as the location in the boxes.
void show_current_folder(Form & form);

/// Lists the drives and the folders below the location, to choose from; a location that does not answer at once lists none.
void list_folders(Form & form);

/// Asks for the location, beginning at the one in its box, and shows it; a cancelled dialog changes nothing.
void pick_location(Form & form, Host & host);
