#pragma once

#include "utilities/point_transform.h"

/// A rectangle along the axes, metres.
struct Extents {
    double west = 0, east = 0, south = 0, north = 0;
};

/// The limits, along the axes of the other system, of the rectangle's four corners taken through the transform.
/// A transform that is not in use leaves the rectangle as it is.
Extents rotated_extents(const PointTransform & transform, TransformDirection direction, const Extents & extents);
