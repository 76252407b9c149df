#pragma once

#include "host/settings_store.h"

#include <map>
#include <string>

/// Settings in one UTF-8 file of the user's, replaced whole at each write. A file that is missing, damaged or cannot be written
/// costs nothing but the settings.
class FileSettings : public SettingsStore {
public:
    /// path: a definition path; empty for the file in the user's configuration folder.
    explicit FileSettings(std::string path = {});

    std::string read(const std::string & section, const std::string & name, const std::string & start) override;
    bool write(const std::string & section, const std::string & name, const std::string & text) override;

private:
    std::string path_;
};
