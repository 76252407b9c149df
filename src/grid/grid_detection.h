#pragma once

#include "grid/grid_access.h"
#include "host/dialogs.h"
#include "support/status.h"

#include <string>

/// Finds out what the file `header.file_name` is, by its content, and fills the header: file name, working copy and band apart,
/// all of it is new. Good for a grid, for a registered image (format 15) and for an empty name (no format); `file_kind` tells
/// them apart.
///
/// Bad for anything else: a file that does not exist, with a message; a point file, silently, for those who read it next; a grid
/// or image that cannot be used, silently with the reason in `header.fault`.
Status detect_grid_file(GridHeader & header, Dialogs & dialogs);

/// True when the file is a grid that can be used: judged by its content. Point files (.xyz, .csv, .obs) never are.
bool is_grid_file(const std::string & path);
