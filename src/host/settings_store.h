#pragma once

#include <string>
#include <vector>

/// Where small settings of the user live. Reads never fail: they give the default.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    virtual std::string read(const std::string & section, const std::string & name, const std::string & start) = 0;
    /// False when the text could not be kept.
    virtual bool write(const std::string & section, const std::string & name, const std::string & text) = 0;
    /// The names that have a text in a section; empty when there are none.
    virtual std::vector<std::string> names(const std::string & section) = 0;
};

/// No settings at all: for a batch run, which leaves no trace in those of the desktop program, and for work that needs none.
class NoSettings : public SettingsStore {
public:
    std::string read(const std::string &, const std::string &, const std::string & start) override { return start; }
    bool write(const std::string &, const std::string &, const std::string &) override { return false; }
    std::vector<std::string> names(const std::string &) override { return {}; }
};

/// The text that marks a setting which has not been set.
inline constexpr const char * no_setting = "<no value>";
