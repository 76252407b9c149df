#pragma once

#include "creation/creation.h"
#include "definition/definition_file.h"
#include "rules/setup.h"
#include "support/file_lock.h"
#include "utilities/igrf_record.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

/// A tiled inversion that has been checked and saved, waiting for the user to look at its tiles.
struct PausedCreation {
    ValidatedDefinition definition;
    UbcMesh mesh;
    TileLayout tiles; ///< as they were laid out; skips and order are taken from the setup when it goes on
    std::string folder;
    CreateMode mode = CreateMode::all;
    FileLock lock; ///< on the folder
};

/// One run of a program: the setup and what surrounds it. The commands of the form work on this.
struct Session {
    Setup setup;
    std::optional<PausedCreation> paused;
    IgrfRecord igrf;                            ///< the field that was computed last
    std::vector<std::string> recent_files;      ///< newest first, at most `most_recent_files`
    std::array<std::string, 2> temporary_files; ///< working copies, deleted at the end when their names begin with "~"
    bool busy = false;                          ///< a command runs
    bool done = false;                          ///< the user has asked to leave: the front end ends
};

inline constexpr std::size_t most_recent_files = 6;

/// The section of the settings that this program's own stand in.
inline constexpr const char * settings_section = "ZEB_QVinv3d_setup";

/// Goes to the folder of the last run, takes over its recent files and shows a fresh definition. Recent files that have vanished
/// are left out; a place that does not answer at once is not waited for.
void start_session(Session & session, Host & host);

/// Clears up and keeps the current folder in the settings.
void end_session(Session & session, Host & host);

/// Puts a path at the head of the recent files, where it stands once, keeps the list in the settings and shows it.
void add_file_to_MRU(Session & session, const std::string & path, Host & host);

/// Shows the recent files in their menu.
void display_MRU_list(Session & session);
