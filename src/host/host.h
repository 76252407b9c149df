#pragma once

#include "host/debug_log.h"
#include "host/dialogs.h"
#include "host/progress.h"
#include "host/script_launcher.h"
#include "host/settings_store.h"

/// Everything that the core asks of its surroundings.
struct Host {
    Dialogs & dialogs;
    Progress & progress;
    SettingsStore & settings;
    ScriptLauncher & launcher;
    DebugLog & debug;
};
