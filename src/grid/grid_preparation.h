#pragma once

#include "grid/grid_access.h"
#include "host/dialogs.h"
#include "support/status.h"

#include <string>

/// Checks the grid `header.file_name` and makes its working copy: the part of the selected band that covers the wanted limits and
/// one cell more on each side, so that values between cell centres can be had up to the limits. Time and memory follow that part.
///
/// limits: in the grid's own units. Unset limits give the whole grid and are set to its own.
/// header: describes the copy afterwards, its minimum and maximum included (missing when it holds no value).
///
/// Fails with one message, which names the file, and leaves no copy: a file that is not a usable grid, one that holds less than
/// it says, and one that has no cell within the limits. An earlier copy of the header is deleted first in any case.
Status prepare_grid(GridHeader & header, GridLimits & limits, Dialogs & dialogs);

/// Deletes the file when its name begins with "~", and clears the name. Never fails.
void delete_work_file(std::string & name);

/// A grid whose working copy is gone with it, however its user ends.
class WorkGrid {
public:
    explicit WorkGrid(const std::string & file_name) { header_.file_name = file_name; }
    ~WorkGrid() { delete_work_file(header_.work_name); }
    WorkGrid(const WorkGrid &) = delete;
    WorkGrid & operator=(const WorkGrid &) = delete;

    const GridHeader & header() const { return header_; }
    void choose_band(std::int32_t band) { header_.band = band; }
    Status prepare(GridLimits & limits, Dialogs & dialogs) { return prepare_grid(header_, limits, dialogs); }

private:
    GridHeader header_;
};
