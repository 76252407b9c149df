#include "data/point_block.h"

#include "data/record_lines.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace {

/// Empties a block, but keeps the memory of the lists that every point adds to.
void clear(PointBlock & block)
{
    PointBlock fresh;
    fresh.points.xyz.swap(block.points.xyz);
    fresh.points.value.swap(block.points.value);
    std::swap(fresh.points.line_index, block.points.line_index);
    for (auto & list : fresh.points.xyz) list.clear();
    for (auto & list : fresh.points.value) list.clear();
    fresh.points.line_index.clear();
    block = std::move(fresh);
}

class BlockFiller {
public:
    BlockFiller(const PointRules & rules, PointBlock & block)
        : rules_(rules), source_(rules.source), block_(block), points_(block.points), texts_(block.texts)
    {
    }

    void take(const LocationRecord & record)
    {
        take_texts(record);
        if (is_missing(record.number[0]) || is_missing(record.number[1])) return;
        if (!knows_texts_) look_for_texts();
        Point point = point_of(record);
        if (source_.line_column > 0 && point.x == 0 && point.y == 0 && point.z == 0 && texts_.line.text == "0") return;
        if (source_.transform.in_use)
            apply_point_transform(source_.transform, TransformDirection::forward, point.x, point.y, point.z);
        if (is_outside_windows(point)) return;
        ++points_.point_count;
        if (rules_.stores) store(point);
        count_in(point);
    }

private:
    /// A record on its way to being a point: in the mesh's frame.
    struct Point {
        double x = 0, y = 0, z = 0;
        std::array<float, 3> value = {};
    };

    // Texts that a record does not reach stay those of the record before.
    void take_texts(const LocationRecord & record)
    {
        if (record.line && (*record.line != texts_.line.text || !texts_.line.known)) {
            texts_.line = { std::string(*record.line) };
            points_.line_name.push_back(texts_.line.text);
            points_.line_first_point.push_back(points_.point_count + 1);
        }
        if (record.category) {
            block_.has_categories = true;
            const std::string_view name = record.category->empty() ? "NA" : *record.category;
            if (name != texts_.category.text || !texts_.category.known) {
                texts_.category = { std::string(name) };
                category_number_ = 0;
            }
        }
        if (record.text) texts_.text = { std::string(*record.text) };
    }

    void look_for_texts()
    {
        knows_texts_ = (source_.line_column <= 0 || texts_.line.known) &&
                       (source_.category_column <= 0 || texts_.category.known) && (source_.text_column <= 0 || texts_.text.known);
        if (!knows_texts_) block_.asks_for_texts = true;
    }

    Point point_of(const LocationRecord & record) const
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

    bool is_outside_windows(const Point & point) const
    {
        for (std::size_t i = 0; i < rules_.window.size(); ++i) {
            const Range & limits = rules_.limits[i];
            if (rules_.window[i] && (point.value[i] < limits.minimum || point.value[i] > limits.maximum)) return true;
        }
        return false;
    }

    void count_in(const Point & point)
    {
        block_.minimum_x = std::min(block_.minimum_x, point.x);
        block_.maximum_x = std::max(block_.maximum_x, point.x);
        block_.minimum_y = std::min(block_.minimum_y, point.y);
        block_.maximum_y = std::max(block_.maximum_y, point.y);
        if (source_.z_column > 0) block_.z.add(point.z);
        for (std::size_t i = 0; i < block_.value.size(); ++i)
            if (source_.value_column[i] > 0) block_.value[i].add(static_cast<double>(point.value[i]));
    }

    void store(const Point & point)
    {
        points_.xyz[0].push_back(point.x);
        points_.xyz[1].push_back(point.y);
        points_.xyz[2].push_back(point.z);
        for (std::size_t i = 0; i < point.value.size(); ++i)
            if (source_.value_column[i] > 0) points_.value[i].push_back(point.value[i]);
        if (source_.line_column > 0) points_.line_index.push_back(points_.line_name.size());
        if (source_.category_column > 0) points_.category_index.push_back(category_number());
        if (source_.text_column > 0) points_.text.push_back(texts_.text.text);
    }

    std::int32_t category_number()
    {
        if (category_number_ != 0) return category_number_;
        const auto [found, is_new] = category_numbers_.try_emplace(texts_.category.text, points_.category_name.size() + 1);
        if (is_new) points_.category_name.push_back(found->first);
        return category_number_ = found->second;
    }

    const PointRules & rules_;
    const LocationSource & source_;
    PointBlock & block_;
    ObservedData & points_;
    RecordTexts & texts_;
    bool knows_texts_ = false;
    std::int32_t category_number_ = 0; // 0 while no point has the category
    std::unordered_map<std::string, std::int32_t> category_numbers_;
};

/// next: puts the next record into its argument; false when there is none.
template <class NextRecord>
bool fill_block(const PointRules & rules, std::int64_t most, const RecordTexts & before, PointBlock & block, NextRecord next)
{
    clear(block);
    block.texts = before;
    BlockFiller filler(rules, block);
    LocationRecord record;
    for (std::int64_t count = 0; count < most && !block.asks_for_texts; ++count) {
        if (!next(record)) return false;
        filler.take(record);
    }
    return true;
}

}

void Tally::add(double added)
{
    if (is_missing(added)) {
        if (!(added > missing_value)) return; // the mean's own limit, lower than the usual one
    } else {
        minimum = std::min(minimum, added);
        maximum = std::max(maximum, added);
    }
    sum += added;
    ++count;
}

void Tally::add(const Tally & later)
{
    minimum = std::min(minimum, later.minimum);
    maximum = std::max(maximum, later.maximum);
    sum += later.sum;
    count += later.count;
}

Range Tally::range() const
{
    return { to_f32(minimum), to_f32(maximum), count == 0 ? 0.0F : to_f32(sum / static_cast<double>(count)) };
}

PointRules::PointRules(const LocationSource & from, ReadMode mode, const LocationStatistics & given)
    : source(from), parser(from), stores(mode == ReadMode::store || from.interpolation_interval > 0)
{
    for (std::size_t i = 0; i < window.size(); ++i) {
        window[i] = source.value_window[i] && source.value_column[i] > 0;
        limits[i] = given.value[i];
    }
}

bool read_block(const PointRules & rules, LineScanner & lines, std::int64_t most, const RecordTexts & before, PointBlock & block)
{
    std::string_view line;
    return fill_block(rules, most, before, block, [&](LocationRecord & record) {
        if (!next_record(lines, rules.source.read_increment, line)) return false;
        rules.parser.parse(line, record);
        return true;
    });
}

void read_block(const PointRules & rules, const NextFields & next, const RecordTexts & before, PointBlock & block)
{
    std::vector<std::string> fields;
    fill_block(rules, std::numeric_limits<std::int64_t>::max(), before, block, [&](LocationRecord & record) {
        if (!next(fields)) return false;
        rules.parser.parse(fields, record);
        return true;
    });
}
