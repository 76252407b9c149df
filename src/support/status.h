#pragma once

/// How a procedure that can fail ended. Whoever finds a fault shows its message; callers only stop.
enum class [[nodiscard]] Status{
    good = 0, bad = -1,
    stopped = -2 ///< the user's Stop
};
