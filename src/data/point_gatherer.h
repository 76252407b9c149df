#pragma once

#include "data/location_reader.h"
#include "data/point_block.h"

#include <span>
#include <string>
#include <unordered_map>

/// Joins the blocks of a file in their order: numbers lines and categories through, fills in points along lines when asked to,
/// and adds up the statistics.
class PointGatherer {
public:
    /// expected: about how many points will come, so that the lists need not grow.
    PointGatherer(const LocationSource & source, ReadMode mode, std::int64_t expected);

    void take(const PointBlock & block);
    /// Those that the next block comes behind.
    const RecordTexts & texts() const { return texts_; }

    /// Replaces `data` by the points; by their counts alone when only statistics were wanted. Limits of windows stay.
    void finish(ObservedData & data, LocationStatistics & statistics);

private:
    struct Place {
        double x = 0, y = 0, z = 0;
    };

    void count_in(const PointBlock & block);
    void open_line(const std::string & name, std::int64_t first_point);
    void append(const PointBlock & block, std::int32_t first_line);
    void append_filled_in(const PointBlock & block, std::int32_t first_line);
    void fill_in(const ObservedData & points, std::int32_t number);
    void store(const Place & place, const ObservedData & points, std::int32_t number);
    void take_categories(const PointBlock & block);
    void sort_categories();
    void hand_over_points(ObservedData & data);

    const LocationSource & source_;
    bool stores_;
    LocationStatistics statistics_;
    Tally z_;
    std::array<Tally, 3> value_;
    std::int64_t point_count_ = 0, filled_in_ = 0; ///< all points, and those of them between readings
    RecordTexts texts_;
    std::int32_t line_count_ = 0;
    bool has_categories_ = false;
    Place previous_; // the reading before, and the line it lies on
    std::string previous_line_;

    ObservedData points_;
    std::unordered_map<std::string, std::int32_t> category_numbers_;
    std::vector<std::int32_t> block_categories_; // the numbers here of the block's categories
};
