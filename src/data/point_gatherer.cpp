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
    if (is_missing(record.number[0]) || is_missing(record.number[1])) return;
    Point point = point_of(record);
    if (source_.line_column > 0 && point.x == 0 && point.y == 0 && point.z == 0 && line_name_ == "0") return;
    if (source_.transform.in_use)
        apply_point_transform(source_.transform, TransformDirection::forward, point.x, point.y, point.z);
    if (is_outside_windows(point)) return;

    ++point_count_;
    if (source_.interpolation_interval > 0) interpolate(point);
    if (stores_) store(point);
    count_in(point);
}

PointGatherer::Point PointGatherer::point_of(const LocationRecord & record) const
{
    const auto & number = record.number;
    Point point{ number[0], number[1], number[2], {} };
    if (number[2] != missing_value)
        point.z = (source_.z_is_depth == 1 ? -number[2] : number[2]) + static_cast<double>(source_.elevation_offset);
    for (std::size_t i = 0; i < point.value.size(); ++i) {
        point.value[i] = static_cast<float>(number[3 + i]);
        if (!std::isfinite(point.value[i])) point.value[i] = to_f32(number[3 + i]); // fails, with words
    }
    return point;
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

bool PointGatherer::is_outside_windows(const Point & point) const
{
    for (std::size_t i = 0; i < window_.size(); ++i) {
        const Range & limits = statistics_.value[i];
        if (window_[i] && (point.value[i] < limits.minimum || point.value[i] > limits.maximum)) return true;
    }
    return false;
}

void PointGatherer::Tally::add(double value)
{
    if (is_missing(value)) {
        if (!(value > missing_value)) return; // the mean's own limit, lower than the usual one
    } else {
        minimum = std::min(minimum, value);
        maximum = std::max(maximum, value);
    }
    sum += value;
    ++count;
}

Range PointGatherer::Tally::range() const
{
    return { to_f32(minimum), to_f32(maximum), count == 0 ? 0.0F : to_f32(sum / static_cast<double>(count)) };
}

void PointGatherer::count_in(const Point & point)
{
    statistics_.minimum_x = std::min(statistics_.minimum_x, point.x);
    statistics_.maximum_x = std::max(statistics_.maximum_x, point.x);
    statistics_.minimum_y = std::min(statistics_.minimum_y, point.y);
    statistics_.maximum_y = std::max(statistics_.maximum_y, point.y);
    if (source_.z_column > 0) z_.add(point.z);
    for (std::size_t i = 0; i < value_.size(); ++i)
        if (source_.value_column[i] > 0) value_[i].add(static_cast<double>(point.value[i]));
}

/// Fills in points between the previous reading of a line and this one.
void PointGatherer::interpolate(const Point & point)
{
    const Point before = previous_;
    const bool same_line = source_.line_column > 0 && point_count_ >= 2 && line_name_ == previous_line_;
    previous_ = point;
    previous_line_ = line_name_;
    if (!same_line) return;
    const double interval = source_.interpolation_interval;
    const double distance = std::hypot(point.x - before.x, point.y - before.y);
    if (!(distance > interval)) return;
    std::int32_t steps = round_to_count(distance / interval);
    if (distance - interval / 10 > steps * interval) ++steps;
    for (std::int32_t i = 1; stores_ && i < steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        store({ before.x + part * (point.x - before.x), before.y + part * (point.y - before.y),
                before.z + part * (point.z - before.z), point.value });
    }
    point_count_ += steps - 1;
}

void PointGatherer::store(const Point & point)
{
    points_.xyz[0].push_back(point.x);
    points_.xyz[1].push_back(point.y);
    points_.xyz[2].push_back(point.z);
    for (std::size_t i = 0; i < point.value.size(); ++i)
        if (source_.value_column[i] > 0) points_.value[i].push_back(point.value[i]);
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
    statistics_.z = z_.range();
    for (std::size_t i = 0; i < value_.size(); ++i) {
        const Range limits = statistics_.value[i];
        statistics_.value[i] = value_[i].range();
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
