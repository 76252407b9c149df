#pragma once

#include "host/settings_store.h"

#include <string>

/// Settings in one UTF-8 file of the user's, replaced whole at each write. A file that is missing, damaged or cannot be written
/// costs nothing but the settings; a damaged one is kept as "settings.json.damaged" when the next is written.
///
/// Each read and write looks at the file anew, and only one program writes at a time, so two that run at once lose no more than a
/// key that both write.
class FileSettings : public SettingsStore {
public:
    /// path: a definition path; empty for the user's own settings: settings.json in the folder zeb_qvinv3d of the user's
    /// configuration folder, or the registry where there is one.
    explicit FileSettings(std::string path = {});

    std::string read(const std::string & section, const std::string & name, const std::string & start) override;
    bool write(const std::string & section, const std::string & name, const std::string & text) override;
    std::vector<std::string> names(const std::string & section) override; ///< in the order of their bytes

private:
    std::string path_; ///< empty where the user has no such folder: nothing is kept
};
