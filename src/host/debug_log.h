#pragma once

#include "host/dialogs.h"

#include <string>

/// The numbered debug log. With level 0, as it starts, nothing is written.
struct DebugLog {
    int level = 0;
    std::string file = "~debug.log"; ///< a definition path
    int line_count = 0;
    bool started = false;
};

/// Adds a numbered line. reset: an existing log is deleted and numbering starts again, as it does on first use.
/// The file is opened and closed for each line, so the log survives a crash. Errors are ignored; a level above 1 also shows
/// the line on the trace (standard error). The first line is followed by the message "Debug started: " and the path.
void debug_write(DebugLog & log, Dialogs & dialogs, bool reset, const std::string & text);
