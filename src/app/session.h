#pragma once

#include "creation/creation.h"
#include "definition/definition_file.h"
#include "rules/setup.h"

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
};

/// One run of a program: the setup and what surrounds it. The commands of the form work on this.
struct Session {
    Setup setup;
    std::optional<PausedCreation> paused;
    bool done = false; ///< the user wants to leave the program
    std::vector<std::string> recent_files; ///< newest first, at most `most_recent_files`
};

inline constexpr std::size_t most_recent_files = 6;

/// Shows a fresh definition.
void start_session(Session & session, Host & host);

/// Keeps what the next session starts from.
void end_session(Session & session, Host & host);

/// Puts a path at the head of the recent files, where it stands once, and keeps the list in the settings.
void add_file_to_MRU(Session & session, const std::string & path, Host & host);
