#include "data/point_gatherer.h"

#include "support/fault.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>

namespace {

// So many points may be filled in whatever the file, and so many more for each of its readings. One that is far off for a slip of
// the pen would otherwise bring as many as there is room for, and more.
constexpr std::int64_t most_filled_in = 100000, most_filled_in_each = 100;

void update(RecordTexts::Text & text, const RecordTexts::Text & later)
{
    if (later.known) text = later;
}

}

PointGatherer::PointGatherer(const LocationSource & source, ReadMode mode, std::int64_t expected)
    : source_(source), stores_(mode == ReadMode::store)
{
    if (!stores_) return;
    for (List<double> & list : points_.xyz) list.reserve(expected);
    for (std::size_t i = 0; i < source.value_column.size(); ++i)
        if (source.value_column[i] > 0) points_.value[i].reserve(expected);
    if (source.line_column > 0) points_.line_index.reserve(expected);
    if (source.category_column > 0) points_.category_index.reserve(expected);
    if (source.text_column > 0) points_.text.reserve(expected);
}

void PointGatherer::take(const PointBlock & block)
{
    count_in(block);
    take_categories(block);
    // A block opens a line by the first name in it, but that may be the line that runs already.
    const List<std::string> & names = block.points.line_name;
    const std::int32_t first_line = !names.empty() && names[1] == texts_.line.text ? 2 : 1;
    if (source_.interpolation_interval > 0)
        append_filled_in(block, first_line);
    else
        append(block, first_line);
    update(texts_.category, block.texts.category);
    update(texts_.text, block.texts.text);
}

void PointGatherer::count_in(const PointBlock & block)
{
    statistics_.minimum_x = std::min(statistics_.minimum_x, block.minimum_x);
    statistics_.maximum_x = std::max(statistics_.maximum_x, block.maximum_x);
    statistics_.minimum_y = std::min(statistics_.minimum_y, block.minimum_y);
    statistics_.maximum_y = std::max(statistics_.maximum_y, block.maximum_y);
    z_.add(block.z);
    for (std::size_t i = 0; i < value_.size(); ++i) value_[i].add(block.value[i]);
}

void PointGatherer::open_line(const std::string & name, std::int64_t first_point)
{
    texts_.line.text = name;
    line_count_ = add_counts(line_count_, 1);
    if (!stores_) return;
    points_.line_name.push_back(name);
    points_.line_first_point.push_back(round_to_count(static_cast<double>(first_point)));
}

void PointGatherer::append(const PointBlock & block, std::int32_t first_line)
{
    const ObservedData & points = block.points;
    const std::int32_t lines_before = line_count_ - (first_line - 1);
    for (std::int32_t line = first_line; line <= points.line_name.size(); ++line)
        open_line(points.line_name[line], point_count_ + points.line_first_point[line]);
    point_count_ += points.point_count;
    if (!stores_) return;
    for (std::size_t i = 0; i < 3; ++i) {
        points_.xyz[i].append(points.xyz[i].items());
        points_.value[i].append(points.value[i].items());
    }
    for (const std::int32_t line : points.line_index.items()) points_.line_index.push_back(lines_before + line);
    for (const std::int32_t category : points.category_index.items())
        points_.category_index.push_back(block_categories_[static_cast<std::size_t>(category) - 1]);
    points_.text.append(points.text.items());
}

void PointGatherer::append_filled_in(const PointBlock & block, std::int32_t first_line)
{
    const ObservedData & points = block.points;
    std::int32_t line = first_line;
    for (std::int32_t number = 1; number <= points.point_count + 1; ++number) {
        for (; line <= points.line_name.size() && points.line_first_point[line] == number; ++line)
            open_line(points.line_name[line], point_count_ + 1);
        if (number <= points.point_count) fill_in(points, number);
    }
}

/// Takes a point, after those that fill the gap between the previous reading of its line and this one.
void PointGatherer::fill_in(const ObservedData & points, std::int32_t number)
{
    const Place place{ points.xyz[0][number], points.xyz[1][number], points.xyz[2][number] };
    const Place before = previous_;
    const bool same_line = source_.line_column > 0 && point_count_ >= 1 && texts_.line.text == previous_line_;
    previous_ = place;
    previous_line_ = texts_.line.text;
    const double interval = source_.interpolation_interval;
    const double distance = std::hypot(place.x - before.x, place.y - before.y);
    if (same_line && distance > interval) {
        std::int32_t steps = round_to_count(distance / interval);
        if (distance - interval / 10 > steps * interval) steps = add_counts(steps, 1);
        filled_in_ += steps - 1;
        if (filled_in_ > most_filled_in + most_filled_in_each * (point_count_ - filled_in_ + steps))
            throw Fault("a reading of line " + texts_.line.text + " lies " + general_text(distance) +
                        " m from the one before, too far to fill in points every " + general_text(interval) + " m");
        for (std::int32_t i = 1; stores_ && i < steps; ++i) {
            const double part = static_cast<double>(i) / steps;
            store({ before.x + part * (place.x - before.x), before.y + part * (place.y - before.y),
                    before.z + part * (place.z - before.z) },
                  points, number);
        }
        point_count_ += steps - 1;
    }
    ++point_count_;
    if (stores_) store(place, points, number);
}

/// Stores a point that has everything but its place from point `number` of a block.
void PointGatherer::store(const Place & place, const ObservedData & points, std::int32_t number)
{
    points_.xyz[0].push_back(place.x);
    points_.xyz[1].push_back(place.y);
    points_.xyz[2].push_back(place.z);
    for (std::size_t i = 0; i < points.value.size(); ++i)
        if (!points.value[i].empty()) points_.value[i].push_back(points.value[i][number]);
    if (!points.line_index.empty()) points_.line_index.push_back(line_count_);
    if (!points.category_index.empty())
        points_.category_index.push_back(block_categories_[static_cast<std::size_t>(points.category_index[number]) - 1]);
    if (!points.text.empty()) points_.text.push_back(points.text[number]);
}

void PointGatherer::take_categories(const PointBlock & block)
{
    has_categories_ = has_categories_ || block.has_categories;
    block_categories_.clear();
    for (const std::string & name : block.points.category_name.items()) {
        const auto next = static_cast<std::int32_t>(category_numbers_.size()) + 1;
        block_categories_.push_back(category_numbers_.try_emplace(name, next).first->second);
    }
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
        statistics_.value[i] = value_[i].range();
        if (i >= source_.value_window.size() || !source_.value_window[i]) continue;
        statistics_.value[i].minimum = statistics.value[i].minimum;
        statistics_.value[i].maximum = statistics.value[i].maximum;
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
