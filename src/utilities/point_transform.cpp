#include "utilities/point_transform.h"

#include "support/missing.h"

#include <cmath>
#include <utility>

namespace {

// Both constants are cut where the formats' own programs cut them; more digits would move points in the last place.
constexpr double radians_per_degree = 0.017453292;
constexpr double degrees_per_radian = 57.29577951;

/// The rotation counts in whole degrees, so a turn of less than half a degree alone is not "in use".
bool rotates(double rotation) { return std::abs(std::fmod(std::nearbyint(rotation), 360)) > 0.01; }

bool changes_points(const PointTransform & t)
{
    return t.x_origin != t.new_x_origin || t.y_origin != t.new_y_origin || std::abs(t.x_scale - 1) > 1e-6 ||
           std::abs(t.y_scale - 1) > 1e-6 || rotates(t.rotation) || t.elevation_shift != 0 ||
           std::abs(t.elevation_scale - 1) > 0.0001;
}

double usable_scale(double scale) { return scale == 0 ? 1 : scale; }

/// The angle of a unit vector, in degrees, clockwise from the x axis.
double clockwise_angle(double x, double y)
{
    if (x > 0) return -std::atan(y / x) * degrees_per_radian;
    if (x == 0) return y > 0 ? -90 : 90;
    const double angle = 180 - std::abs(std::atan(y / x)) * degrees_per_radian;
    return y > 0 ? -angle : angle;
}

/// The way from the first point to the second: how far and in which direction.
struct Leg {
    Leg(double dx, double dy) : length(std::hypot(dx, dy)), angle(clockwise_angle(dx / length, dy / length)) {}
    bool usable() const { return length >= 0.0001; } // false for NaN too

    double length;
    double angle;
};

void apply_forward(const PointTransform & t, double & x, double & y, double & z)
{
    const double dx = (x - t.x_origin) * t.x_scale;
    const double dy = (y - t.y_origin) * t.y_scale;
    x = dx * t.rotation_cos + dy * t.rotation_sin + t.new_x_origin;
    y = dy * t.rotation_cos - dx * t.rotation_sin + t.new_y_origin;
    if (!is_missing(z)) z = (z + t.elevation_shift) * t.elevation_scale;
}

void apply_inverse(const PointTransform & t, double & x, double & y, double & z)
{
    const double dx = x - t.new_x_origin;
    const double dy = y - t.new_y_origin;
    x = (dx * t.rotation_cos - dy * t.rotation_sin) / t.x_scale + t.x_origin;
    y = (dy * t.rotation_cos + dx * t.rotation_sin) / t.y_scale + t.y_origin;
    if (!is_missing(z)) z = z / t.elevation_scale - t.elevation_shift;
}

}

void reset_point_transform(PointTransform & transform) { transform = PointTransform(); }

void normalise_point_transform(PointTransform & transform)
{
    transform.rotation_cos = std::cos(transform.rotation * radians_per_degree);
    transform.rotation_sin = std::sin(transform.rotation * radians_per_degree);
    transform.x_scale = usable_scale(transform.x_scale);
    transform.y_scale = usable_scale(transform.y_scale);
    transform.elevation_scale = usable_scale(transform.elevation_scale);
    transform.in_use = changes_points(transform);
}

void apply_point_transform(const PointTransform & transform, TransformDirection direction, double & x, double & y, double & z)
{
    if (!(transform.x_scale > 0 && transform.y_scale > 0)) return;
    if (direction == TransformDirection::forward)
        apply_forward(transform, x, y, z);
    else
        apply_inverse(transform, x, y, z);
}

void invert_point_transform(PointTransform & transform)
{
    if (!transform.two_point) {
        transform.rotation = 0 - transform.rotation; // never "-0"
        transform.x_scale = 1 / usable_scale(transform.x_scale);
        transform.y_scale = 1 / usable_scale(transform.y_scale);
    }
    std::swap(transform.x_origin, transform.new_x_origin);
    std::swap(transform.y_origin, transform.new_y_origin);
    std::swap(transform.x2, transform.new_x2);
    std::swap(transform.y2, transform.new_y2);
    transform.elevation_scale = usable_scale(transform.elevation_scale);
    transform.elevation_shift = 0 - transform.elevation_shift * transform.elevation_scale;
    transform.elevation_scale = 1 / transform.elevation_scale;
    normalise_point_transform(transform);
}

bool define_transform_from_points(const TransformPoint & first, const TransformPoint & second, double elevation_shift,
                                  double elevation_scale, PointTransform & transform)
{
    const Leg original(second.x - first.x, second.y - first.y);
    const Leg moved(second.new_x - first.new_x, second.new_y - first.new_y);
    if (!original.usable() || !moved.usable()) return false;

    transform.x_origin = first.x;
    transform.y_origin = first.y;
    transform.new_x_origin = first.new_x;
    transform.new_y_origin = first.new_y;
    transform.x2 = second.x;
    transform.y2 = second.y;
    transform.new_x2 = second.new_x;
    transform.new_y2 = second.new_y;
    transform.elevation_shift = elevation_shift;
    transform.elevation_scale = elevation_scale;
    transform.rotation = moved.angle - original.angle;
    transform.x_scale = transform.y_scale = moved.length / original.length;
    transform.two_point = true;
    normalise_point_transform(transform);
    transform.in_use = true; // the user asked for it, whatever the points amount to
    return true;
}
