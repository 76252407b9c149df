#pragma once

#include "grid/grid_access.h"
#include "host/dialogs.h"
#include "support/status.h"

#include <span>

/// The statistics of a grid's values; missing values do not count. All missing when no value is left.
struct GridStatistics {
    double minimum = -1e32, maximum = -1e32, mean = -1e32;
    double deviation = -1e32; ///< from the mean, over the count itself and not one less
    double median = -1e32;    ///< the mean of the two in the middle for an even count
    std::int64_t count = 0, null_count = 0;
};

/// Gathers all of the statistics but the median, in one pass.
class GridSummary {
public:
    void add(std::span<const double> values);
    GridStatistics statistics() const;

private:
    GridStatistics found_;
    double shift_ = 0; ///< the first value: what is summed stays small beside the differences
    double sum_ = 0, sum_of_squares_ = 0;
};

/// The median needs all values at a time (8 bytes each); the rest takes no memory to speak of.
enum class Median { wanted, left_out };

/// The statistics of a grid's selected band: of its working copy where it has one, of the file otherwise. A file that cannot be
/// read is one message.
Status grid_statistics(const GridHeader & header, Median median, GridStatistics & statistics, Dialogs & dialogs);
