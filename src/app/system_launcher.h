#pragma once

#include "host/script_launcher.h"
#include "host/settings_store.h"

/// Starts run scripts through the program that the setting "Launcher" names, with the script behind its words; a word with blanks
/// stands in double quotes. Without that setting through the system's command interpreter where scripts are at home, elsewhere
/// through wine when it is there.
class SystemLauncher : public ScriptLauncher {
public:
    explicit SystemLauncher(SettingsStore & settings) : settings_(settings) {}

    void start(const std::string & folder, const std::string & script) override;

private:
    SettingsStore & settings_;
};
