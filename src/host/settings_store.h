#pragma once

#include <string>

/// Where small settings of the user live. Reads never fail: they give the default.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    virtual std::string read(const std::string & section, const std::string & name, const std::string & start) = 0;
    /// False when the text could not be kept.
    virtual bool write(const std::string & section, const std::string & name, const std::string & text) = 0;
};

/// The text that marks a setting which has not been set.
inline constexpr const char * no_setting = "<no value>";
