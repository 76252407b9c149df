#include "grid/grid_statistics.h"

#include "grid/grid_source.h"
#include "support/fault.h"
#include "support/missing.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

double median_of(std::vector<double> & values)
{
    if (values.empty()) return missing_value;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 != 0) return *middle;
    return (*std::max_element(values.begin(), middle) + *middle) / 2;
}

}

void GridSummary::add(std::span<const double> values)
{
    for (const double value : values) {
        if (is_missing(value)) {
            ++found_.null_count;
            continue;
        }
        if (found_.count == 0) found_.minimum = found_.maximum = shift_ = value;
        ++found_.count;
        found_.minimum = std::min(found_.minimum, value);
        found_.maximum = std::max(found_.maximum, value);
        const double difference = value - shift_;
        sum_ += difference;
        sum_of_squares_ += difference * difference;
    }
}

GridStatistics GridSummary::statistics() const
{
    GridStatistics statistics = found_;
    if (found_.count == 0) return statistics;
    const auto count = static_cast<double>(found_.count);
    const double mean = sum_ / count;
    statistics.mean = shift_ + mean;
    statistics.deviation = std::sqrt(std::max(0.0, sum_of_squares_ / count - mean * mean));
    return statistics;
}

Status grid_statistics(const GridHeader & header, Median median, GridStatistics & statistics, Dialogs & dialogs)
{
    const std::string & path = header.work_name.empty() ? header.file_name : header.work_name;
    try {
        std::string fault;
        const auto source = open_grid_source(path, header.work_name.empty() ? header.band : 1, fault);
        if (!source) throw FileFault("cannot read", path, fault.empty() ? "it is not a grid" : fault);
        GridSummary summary;
        std::vector<double> all;
        for_each_strip(*source, whole_grid(source->header()), [&](const GridWindow &, std::span<const double> values) {
            summary.add(values);
            if (median == Median::wanted)
                std::ranges::copy_if(values, std::back_inserter(all), [](double v) { return !is_missing(v); });
        });
        statistics = summary.statistics();
        statistics.median = median_of(all);
        return Status::good;
    } catch (const Fault & fault) {
        dialogs.message(std::string("There was an error calculating the grid file statistics: ") + fault.what());
        return Status::bad;
    }
}
