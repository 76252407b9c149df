#pragma once

#include "app/session.h"
#include "support/status.h"

/// Reads a definition file, makes its folder current and applies what the selection names. With selection all the setup is reset
/// first and the file enters the recent list. Bad, after a message, when it does not exist or is no definition.
Status read_definition(Session & session, const std::string & path, Selection selection, Host & host);

/// Checks the definition and saves it to `path` (".inp" is added to a name without an extension), asking before a file is
/// overwritten. Bad, after a message or a No, when nothing was saved.
Status save_definition(Session & session, std::string path, Host & host);

/// Saves what has been checked to `path`, as `save_definition` does.
Status save_checked_definition(Session & session, const ValidatedDefinition & definition, std::string path, Host & host);
