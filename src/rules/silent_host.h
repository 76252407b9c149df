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

    HeldMessage dialogs;
    NoProgress progress;
    NoSettings settings;
    NoLauncher launcher;
    DebugLog debug;
    Host host{ dialogs, progress, settings, launcher, debug };
};
