#include "host/progress.h"

#include <algorithm>
#include <cmath>

void Percentage::show(std::int64_t done)
{
    if (total_ <= 0) return;
    const int percent = static_cast<int>(std::nearbyint(100.0 * static_cast<double>(done) / static_cast<double>(total_)));
    if (percent > shown_) {
        shown_ = percent;
        progress_.percent(std::min(percent, 100));
    }
    // Nothing can change before the next half percent is passed.
    next_ = std::max(done + 1, static_cast<std::int64_t>((shown_ + 0.5) * static_cast<double>(total_) / 100.0));
}
