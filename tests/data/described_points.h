#pragma once

#include "data/given_mesh.h"
#include "data/location_reader.h"
#include "fakes/recorded_host.h"

/// "x y z value line" of each point; what is missing is a star, an unread line is left out.
inline std::string described(const ObservedData & data)
{
    std::string text;
    for (std::int32_t i = 1; i <= data.point_count; ++i) {
        if (i > 1) text += "; ";
        for (const int axis : { 0, 1, 2 }) text += (axis > 0 ? " " : "") + number_or_star(data.xyz[axis][i]);
        if (!data.value[0].empty()) text += " " + number_or_star(data.value[0][i]);
        if (!data.line_index.empty()) text += " [" + data.line_name[data.line_index[i]] + "]";
    }
    return text;
}

/// Reads points, and keeps what came of it.
struct PointsReader {
    RecordedHost recorded;
    ObservedData data;
    LocationStatistics statistics;

    Status read(const LocationSource & source, ReadMode mode = ReadMode::store, const ReadShares & shares = {})
    {
        return read_locations_file(source, mode, data, statistics, recorded.host, shares);
    }
};
