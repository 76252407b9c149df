#pragma once

#include "app/session.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>

using Texts = std::vector<std::string>;

/// A session as it stands when the program has started in a folder of its own.
struct StartedSession : RecordedHost {
    TemporaryFolder folder;
    std::string folder_before = current_folder();
    Session session;

    StartedSession()
    {
        change_to_path(folder.path());
        start_session(session, host);
    }
    ~StartedSession() { change_to_path(folder_before); }

    Control & control(const char * name, int index = 0) { return session.setup.form(name, index); }
    Texts said() { return std::exchange(dialogs.messages, {}); } ///< since the last look
};
