#pragma once

#include "host/cancelled_dialogs.h"
#include "host/host.h"
#include "utilities/point_transform.h"

#include <string>
#include <string_view>

/// What a reader must not do. No `std::exception`, so that no handler of the program takes it for a fault of the file.
struct Find {
    std::string what;
};

/// A find unless the condition holds.
inline void must(bool holds, const std::string & what)
{
    if (!holds) throw Find{ what };
}

/// True for the words of an exception that is not the program's own.
bool speaks_of_the_library(std::string_view message);

/// A user who closes every message, ticks nothing and answers a prompt with the text proposed. A message in the words of the
/// standard library is a find: it tells a person nothing.
class ClosedDialogs : public CancelledDialogs {
public:
    std::string answer; ///< to a prompt; empty for the text proposed
    int messages = 0;

    void message(const std::string & text) override
    {
        ++messages;
        must(!speaks_of_the_library(text), "the message \"" + text + "\"");
    }
    std::optional<std::string> input(const std::string &, const std::string &, const std::string & start) override
    {
        return answer.empty() ? start : answer;
    }
    bool check_options(const std::string &, std::vector<CheckOption> &) override { return true; }
    std::optional<PointTransform> define_transform(const PointTransform &) override { return std::nullopt; }
};

struct WatchedProgress : NoProgress {
    void percent(int percent) override { must(percent >= 0 && percent <= 100, "a percentage of " + std::to_string(percent)); }
};

struct FuzzHost {
    ClosedDialogs dialogs;
    WatchedProgress progress;
    NoSettings settings;
    NoLauncher launcher;
    DebugLog debug;
    Host host{ dialogs, progress, settings, launcher, debug };
};

/// Writes a file of the process's own folder, in memory where the system has such a place, and gives its definition path.
std::string scratch_file(const std::string & name, std::string_view content);
/// The definition path of that folder, without a "\" at its end.
const std::string & scratch_folder();
