#pragma once

#include "data/location_reader.h"
#include "data/record_parser.h"

#include <string>
#include <unordered_map>

/// Makes points of records: names lines, drops what is no point, brings coordinates into the mesh's frame, gathers the statistics
/// and, when asked to, stores.
class PointGatherer {
public:
    /// expected: about how many points will come, so that the lists need not grow.
    PointGatherer(const LocationSource & source, ReadMode mode, const LocationStatistics & limits, std::int64_t expected);

    void take(const LocationRecord & record);

    /// Replaces `data` by the points; by their counts alone when only statistics were wanted.
    void finish(ObservedData & data, LocationStatistics & statistics);

private:
    struct Tally {
        double minimum = 1e32, maximum = -1e32;
        double sum = 0;
        std::int64_t count = 0;

        void add(double value);
        Range range() const;
    };
    /// A record on its way to being a point: in the mesh's frame.
    struct Point {
        double x = 0, y = 0, z = 0;
        std::array<float, 3> value = {};
    };

    Point point_of(const LocationRecord & record) const;
    void take_texts(const LocationRecord & record);
    bool is_outside_windows(const Point & point) const;
    void count_in(const Point & point);
    void interpolate(const Point & point);
    void store(const Point & point);
    std::int32_t category_number();
    void sort_categories();
    void hand_over_points(ObservedData & data);

    const LocationSource & source_;
    bool stores_;
    std::array<bool, 2> window_;
    LocationStatistics statistics_;
    Tally z_;
    std::array<Tally, 3> value_;
    std::int64_t point_count_ = 0;

    std::string line_name_; // the last one seen, also on records that were dropped
    std::int32_t line_count_ = 0;
    std::string category_, text_;
    std::int32_t category_number_ = 0; // of `category_`, 0 while no point has it
    bool has_categories_ = false;
    Point previous_; // the point before, and the line it lies on
    std::string previous_line_;

    ObservedData points_;
    std::unordered_map<std::string, std::int32_t> category_numbers_;
};
