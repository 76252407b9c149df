#pragma once

#include "host/cancelled_dialogs.h"
#include "host/host.h"
#include "utilities/point_transform.h"

/// A host without a user, which keeps the last message for whoever looks.
struct SilentHost {
    struct HeldMessage : CancelledDialogs {
        std::string text;

        void message(const std::string & shown) override { text = shown; }
        std::optional<PointTransform> define_transform(const PointTransform &) override { return std::nullopt; }
    };
    struct NoProgress : Progress {
        void begin() override {}
        void end() override {}
        void line(const std::string &) override {}
        void step(const std::string &) override {}
        void percent(int) override {}
    };
    struct NoLauncher : ScriptLauncher {
        void start(const std::string &, const std::string &) override {}
    };

    HeldMessage dialogs;
    NoProgress progress;
    NoSettings settings;
    NoLauncher launcher;
    DebugLog debug;
    Host host{ dialogs, progress, settings, launcher, debug };
};
