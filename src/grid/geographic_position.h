#pragma once

#include <optional>
#include <string>

/// A place on earth: decimal degrees, WGS84.
struct GeographicPosition {
    double longitude = 0, latitude = 0; ///< east and north positive; longitude -180 to 180
};

// Where a position in a file's own coordinates lies on earth. Nothing when the file does not say which projection they are in, or
// the position lies outside of it. Neither fails.

/// path: a grid, which names its projection or has a *.prj of its name beside it.
std::optional<GeographicPosition> geographic_position_in_grid(const std::string & path, double x, double y);
/// path: a file of points with a *.prj of its name beside it.
std::optional<GeographicPosition> geographic_position_of_point(const std::string & path, double x, double y);
