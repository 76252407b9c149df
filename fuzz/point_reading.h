#pragma once

#include "data/location_reader.h"
#include "fuzz/input.h"

/// Columns, lines and the rest as an input chooses them.
LocationSource take_source(Input & input);

/// The points of a source and what is said of them; a find when that is not one message for a bad end and none for a good one.
struct PointReading {
    ObservedData data;
    LocationStatistics statistics;
    Status status;

    PointReading(const LocationSource & source, ReadMode mode, const ReadShares & shares = {});
};

bool same_points(const ObservedData & a, const ObservedData & b);
/// Means apart, which depend on the blocks.
bool same_limits(const LocationStatistics & a, const LocationStatistics & b);

/// The numbers that count the points must fit the lists.
void check_lists(const LocationSource & source, const ObservedData & data);
/// A read that only counts must find what a read that stores has found.
void check_counted(const PointReading & counted, const PointReading & stored);

/// Shows a file in the form as the data of slot 0 or 1.
void show_columns(const std::string & path, Input choices);
