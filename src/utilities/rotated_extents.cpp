#include "utilities/rotated_extents.h"

#include "support/missing.h"

#include <algorithm>

Extents rotated_extents(const PointTransform & transform, TransformDirection direction, const Extents & extents)
{
    if (!transform.in_use) return extents;
    Extents rotated = { 1e32, -1e32, 1e32, -1e32 };
    for (double x : { extents.west, extents.east })
        for (double y : { extents.south, extents.north }) {
            double corner_x = x, corner_y = y, no_z = missing_value;
            apply_point_transform(transform, direction, corner_x, corner_y, no_z);
            rotated.west = std::min(rotated.west, corner_x);
            rotated.east = std::max(rotated.east, corner_x);
            rotated.south = std::min(rotated.south, corner_y);
            rotated.north = std::max(rotated.north, corner_y);
        }
    return rotated;
}
