#pragma once

#include <string>

/// Starts a run script through the system's command interpreter.
class ScriptLauncher {
public:
    virtual ~ScriptLauncher() = default;

    /// Starts `script`, a bare name in `folder`, detached, with that folder current, and returns at once. Fails with a `Fault`.
    virtual void start(const std::string & folder, const std::string & script) = 0;
};

/// Starts nothing: for work that must not.
class NoLauncher : public ScriptLauncher {
public:
    void start(const std::string &, const std::string &) override {}
};
