#include "data/point_gatherer.h"

#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <cmath>
#include <numeric>

PointGatherer::PointGatherer(const LocationSource & source, ReadMode mode, const LocationStatistics & limits,
                             std::int64_t expected)
    : source_(source), stores_(mode == ReadMode::store)
{
    for (std::size_t i = 0; i < window_.size(); ++i) {
        window_[i] = source.value_window[i] && source.value_column[i] > 0;
        if (source.value_window[i]) statistics_.value[i] = limits.value[i];
    }
    if (!stores_) return;
    for (List<double> & list : points_.xyz) list.reserve(expected);
    for (std::size_t i = 0; i < source.value_column.size(); ++i)
        if (source.value_column[i] > 0) points_.value[i].reserve(expected);
    if (source.line_column > 0) points_.line_index.reserve(expected);
    if (source.category_column > 0) points_.category_index.reserve(expected);
    if (source.text_column > 0) points_.text.reserve(expected);
}

void PointGatherer::take(const LocationRecord & record)
{
    take_texts(record);
    if (is_missing(record.x) || is_missing(record.y)) return;
    Position position = { record.x, record.y, record.z };
    if (source_.line_column > 0 && line_name_ == "0" && position.x == 0 && position.y == 0 && position.z == 0) return;
    if (source_.transform.in_use)
        apply_point_transform(source_.transform, TransformDirection::forward, position.x, position.y, position.z);
    if (is_outside_windows(record)) return;

    ++point_count_;
    if (source_.interpolation_interval > 0) interpolate(position, record);
    if (stores_) store(position, record);
    count_in(position, record);
}

// Texts that a record does not reach stay those of the record before.
void PointGatherer::take_texts(const LocationRecord & record)
{
    if (record.line && *record.line != line_name_) {
        line_name_ = *record.line;
        line_count_ = add_counts(line_count_, 1);
        if (stores_) {
            points_.line_name.push_back(line_name_);
            points_.line_first_point.push_back(round_to_count(static_cast<double>(point_count_ + 1)));
        }
    }
    if (record.category) {
        has_categories_ = true;
        const std::string_view name = record.category->empty() ? "NA" : *record.category;
        if (name != category_) {
            category_ = name;
            category_number_ = 0;
        }
    }
    if (record.text) text_ = *record.text;
}

bool PointGatherer::is_outside_windows(const LocationRecord & record) const
{
    for (std::size_t i = 0; i < window_.size(); ++i) {
        const Range & limits = statistics_.value[i];
        if (window_[i] && (record.value[i] < limits.minimum || record.value[i] > limits.maximum)) return true;
    }
    return false;
}

void PointGatherer::count_in(const Position & position, const LocationRecord & record)
{
    statistics_.minimum_x = std::min(statistics_.minimum_x, position.x);
    statistics_.maximum_x = std::max(statistics_.maximum_x, position.x);
    statistics_.minimum_y = std::min(statistics_.minimum_y, position.y);
    statistics_.maximum_y = std::max(statistics_.maximum_y, position.y);
    const auto tally = [](Tally & t, double exact, float value) {
        if (!is_missing(exact)) {
            t.minimum = std::min(t.minimum, value);
            t.maximum = std::max(t.maximum, value);
        }
        // The mean's own limit is lower than the usual one for missing values.
        if (exact > missing_value) {
            t.sum += exact;
            ++t.count;
        }
    };
    if (source_.z_column > 0) tally(z_, position.z, to_f32(position.z));
    for (std::size_t i = 0; i < value_.size(); ++i)
        if (source_.value_column[i] > 0) tally(value_[i], static_cast<double>(record.value[i]), record.value[i]);
}

/// Fills in points between the previous reading of a line and this one.
void PointGatherer::interpolate(const Position & position, const LocationRecord & record)
{
    const Position before = previous_;
    const bool same_line = source_.line_column > 0 && point_count_ >= 2 && line_name_ == previous_line_;
    previous_ = position;
    previous_line_ = line_name_;
    if (!same_line) return;
    const double interval = source_.interpolation_interval;
    const double distance = std::hypot(position.x - before.x, position.y - before.y);
    if (!(distance > interval)) return;
    std::int32_t steps = round_to_count(distance / interval);
    if (distance - interval / 10 > steps * interval) ++steps;
    for (std::int32_t i = 1; stores_ && i < steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        store({ before.x + part * (position.x - before.x), before.y + part * (position.y - before.y),
                before.z + part * (position.z - before.z) },
              record);
    }
    point_count_ += steps - 1;
}

void PointGatherer::store(const Position & position, const LocationRecord & record)
{
    points_.xyz[0].push_back(position.x);
    points_.xyz[1].push_back(position.y);
    points_.xyz[2].push_back(position.z);
    for (std::size_t i = 0; i < record.value.size(); ++i)
        if (source_.value_column[i] > 0) points_.value[i].push_back(record.value[i]);
    if (source_.line_column > 0) points_.line_index.push_back(line_count_);
    if (source_.category_column > 0) points_.category_index.push_back(category_number());
    if (source_.text_column > 0) points_.text.push_back(text_);
}

std::int32_t PointGatherer::category_number()
{
    if (category_number_ == 0) {
        const auto next = static_cast<std::int32_t>(category_numbers_.size()) + 1;
        category_number_ = category_numbers_.try_emplace(category_, next).first->second;
    }
    return category_number_;
}

/// Numbers the categories by their sorted names in place of their first appearance.
void PointGatherer::sort_categories()
{
    for (const auto & [name, number] : category_numbers_) points_.category_name.push_back(name);
    std::ranges::sort(points_.category_name.items());
    List<std::int32_t> sorted_number(points_.category_name.size());
    for (std::int32_t i = 1; i <= points_.category_name.size(); ++i)
        sorted_number[category_numbers_[points_.category_name[i]]] = i;
    for (std::int32_t & number : points_.category_index.items()) number = sorted_number[number];
    points_.category_count = points_.category_name.size();
}

void PointGatherer::finish(ObservedData & data, LocationStatistics & statistics)
{
    const auto range_of = [](const Tally & t) {
        return Range{ t.minimum, t.maximum, t.count == 0 ? 0.0F : to_f32(t.sum / static_cast<double>(t.count)) };
    };
    statistics_.z = range_of(z_);
    for (std::size_t i = 0; i < value_.size(); ++i) {
        const Range limits = statistics_.value[i];
        statistics_.value[i] = range_of(value_[i]);
        if (i >= window_.size() || !source_.value_window[i]) continue;
        statistics_.value[i].minimum = limits.minimum;
        statistics_.value[i].maximum = limits.maximum;
    }
    statistics = statistics_;
    data = {};
    if (point_count_ == 0) return;
    if (stores_)
        hand_over_points(data);
    else
        data.line_count = line_count_;
    data.point_count = round_to_count(static_cast<double>(point_count_));
}

void PointGatherer::hand_over_points(ObservedData & data)
{
    points_.line_count = line_count_;
    if (line_count_ > 0) points_.line_first_point.push_back(round_to_count(static_cast<double>(point_count_ + 1)));
    if (has_categories_)
        sort_categories();
    else
        points_.category_index.clear();
    data = std::move(points_);
}
