#pragma once

/// The map from the coordinates of the data to those of the mesh: shift, scale, rotation, and the elevation's own shift and
/// scale. Lengths in metres, angles in degrees. `normalise_point_transform` keeps the computed fields.
struct PointTransform {
    bool in_use = false;               ///< computed
    double rotation = 0;               ///< degrees, clockwise
    double rotation_cos = 1;           ///< computed
    double rotation_sin = 0;           ///< computed
    double x_scale = 1, y_scale = 1;   ///< never 0
    double x_origin = 0, y_origin = 0; ///< point of the original system that stands at the new origin
    double new_x_origin = 0, new_y_origin = 0;
    bool two_point = false; ///< defined by two points, the first of which is the origin
    double x2 = 0, y2 = 0;
    double new_x2 = 0, new_y2 = 0;
    double elevation_shift = 0; ///< added to an elevation before scaling
    double elevation_scale = 1; ///< never 0

    bool operator==(const PointTransform &) const = default;
};

enum class TransformDirection { forward, inverse };

/// Sets the identity.
void reset_point_transform(PointTransform & transform);
/// Recomputes the derived fields; scales of exactly 0 become 1. To be called whenever a transform has been read or changed.
void normalise_point_transform(PointTransform & transform);
/// Takes x, y and z through the transform, in place. A missing z stays. Does nothing unless both scales are above 0.
void apply_point_transform(const PointTransform & transform, TransformDirection direction, double & x, double & y, double & z);
/// Turns the transform into its inverse. One defined by two points only changes its points and elevation fields: its rotation
/// and scales follow when it is defined from those points again.
void invert_point_transform(PointTransform & transform);

/// A pair of points in the original and the new system.
struct TransformPoint {
    double x = 0, y = 0, new_x = 0, new_y = 0;
};

/// Defines the transform by two points. False, with the transform unchanged, when points are less than 0.0001 apart.
bool define_transform_from_points(const TransformPoint & first, const TransformPoint & second, double elevation_shift,
                                  double elevation_scale, PointTransform & transform);
