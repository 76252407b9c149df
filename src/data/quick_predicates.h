#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

/// Exact answers to the two questions of a Delaunay triangulation, quickly where points lie regularly.
///
/// A question is first asked in floating point, whose answer stands when it is clear of the largest error it can have. On a
/// regular lattice four points of a cell lie on one circle, so it never is clear; the coordinates are then taken as whole
/// numbers of a quantum, the same for all points, and the question is settled in wide integers. What does not fit is left
/// undecided (no value), never guessed.
///
/// The bounds of the floating-point errors: Shewchuk (1997), Adaptive precision floating-point arithmetic and fast robust
/// geometric predicates, tables 4 and 9.
namespace quick_predicates {

struct Place {
    double x, y;
};

inline constexpr double rounding = 0x1p-53;
inline constexpr double orientation_error = (3 + 16 * rounding) * rounding;
inline constexpr double in_circle_error = (10 + 96 * rounding) * rounding;
inline constexpr double underflow_error = 1e-250; ///< what products too small for a double can add

/// Whole numbers are held below this size, so that a difference takes 62 bits and a sum of two squares 126.
inline constexpr double fixed_limit = 0x1p61;

/// The factor, a power of two, that takes coordinates up to `largest` into the range of whole numbers.
inline double fixed_scale(double largest)
{
    if (!(largest > 0) || !std::isfinite(largest)) return 1;
    return std::ldexp(1.0, 60 - std::ilogb(largest));
}

inline int sign_of(double value) { return (value > 0) - (value < 0); }

#ifdef __SIZEOF_INT128__
__extension__ using Wide = __int128;
__extension__ using UnsignedWide = unsigned __int128;

inline int sign_of(Wide value) { return (value > 0) - (value < 0); }

/// A coordinate as a whole number; false when it is none or too large.
inline bool to_fixed(double value, double scale, std::int64_t & fixed)
{
    const double scaled = value * scale;
    if (!(std::abs(scaled) < fixed_limit)) return false;
    fixed = static_cast<std::int64_t>(scaled);
    return static_cast<double>(fixed) == scaled;
}

struct FixedPlace {
    std::int64_t x, y;
};

inline bool to_fixed(const Place & place, double scale, FixedPlace & fixed)
{
    return to_fixed(place.x, scale, fixed.x) && to_fixed(place.y, scale, fixed.y);
}

/// A signed number of 256 bits in two's complement.
struct DoubleWide {
    Wide high = 0;
    UnsignedWide low = 0;

    /// Adds size * factor; size is not negative.
    void add_product(Wide size, Wide factor)
    {
        const bool negative = factor < 0;
        const auto a = static_cast<UnsignedWide>(size);
        const auto b = negative ? -static_cast<UnsignedWide>(factor) : static_cast<UnsignedWide>(factor);
        const UnsignedWide a0 = static_cast<std::uint64_t>(a), a1 = a >> 64;
        const UnsignedWide b0 = static_cast<std::uint64_t>(b), b1 = b >> 64;
        const UnsignedWide bottom = a0 * b0;
        const UnsignedWide middle = a0 * b1 + (bottom >> 64); // no overflow: a1 and b1 are below 2^62
        const UnsignedWide middle_2 = a1 * b0 + static_cast<std::uint64_t>(middle);
        UnsignedWide product_low = (middle_2 << 64) | static_cast<std::uint64_t>(bottom);
        UnsignedWide product_high = a1 * b1 + (middle >> 64) + (middle_2 >> 64);
        if (negative) {
            product_low = -product_low;
            product_high = ~product_high + (product_low == 0);
        }
        low += product_low;
        high = static_cast<Wide>(static_cast<UnsignedWide>(high) + product_high + (low < product_low));
    }

    int sign() const { return high < 0 ? -1 : (high > 0 || low > 0); }
};

inline bool is_small(std::int64_t value) { return std::abs(value) < (std::int64_t{ 1 } << 30); }

/// The in-circle determinant of differences without their common power of two; lattices leave small numbers there.
inline int in_circle_sign(FixedPlace a, FixedPlace b, FixedPlace c)
{
    const auto bits = static_cast<std::uint64_t>(a.x | a.y | b.x | b.y | c.x | c.y);
    const int shift = bits == 0 ? 0 : std::countr_zero(bits);
    for (FixedPlace * place : { &a, &b, &c }) *place = { place->x >> shift, place->y >> shift };

    if (is_small(a.x) && is_small(a.y) && is_small(b.x) && is_small(b.y) && is_small(c.x) && is_small(c.y)) {
        const auto part = [](const FixedPlace & p, const FixedPlace & q, const FixedPlace & r) {
            return static_cast<Wide>(p.x * p.x + p.y * p.y) * (q.x * r.y - r.x * q.y);
        };
        return sign_of(part(a, b, c) + part(b, c, a) + part(c, a, b));
    }
    DoubleWide sum;
    const auto add = [&sum](const FixedPlace & p, const FixedPlace & q, const FixedPlace & r) {
        sum.add_product(Wide{ p.x } * p.x + Wide{ p.y } * p.y, Wide{ q.x } * r.y - Wide{ r.x } * q.y);
    };
    add(a, b, c);
    add(b, c, a);
    add(c, a, b);
    return sum.sign();
}

inline std::optional<int> fixed_orientation(const Place & a, const Place & b, const Place & c, double scale)
{
    FixedPlace p, q, r;
    if (!to_fixed(a, scale, p) || !to_fixed(b, scale, q) || !to_fixed(c, scale, r)) return std::nullopt;
    return sign_of(Wide{ p.x - r.x } * (q.y - r.y) - Wide{ p.y - r.y } * (q.x - r.x));
}

inline std::optional<int> fixed_in_circle(const Place & a, const Place & b, const Place & c, const Place & d, double scale)
{
    FixedPlace p, q, r, s;
    if (!to_fixed(a, scale, p) || !to_fixed(b, scale, q) || !to_fixed(c, scale, r) || !to_fixed(d, scale, s)) return std::nullopt;
    return in_circle_sign({ p.x - s.x, p.y - s.y }, { q.x - s.x, q.y - s.y }, { r.x - s.x, r.y - s.y });
}
#else
// Without wide integers everything unclear is left to the slower arithmetic of the caller.
inline std::optional<int> fixed_orientation(const Place &, const Place &, const Place &, double) { return std::nullopt; }
inline std::optional<int> fixed_in_circle(const Place &, const Place &, const Place &, const Place &, double)
{
    return std::nullopt;
}
#endif

/// 1 when a, b, c turn left, -1 when right, 0 on one line. scale: of `fixed_scale`.
inline std::optional<int> orientation(const Place & a, const Place & b, const Place & c, double scale)
{
    const double left = (a.x - c.x) * (b.y - c.y);
    const double right = (a.y - c.y) * (b.x - c.x);
    const double determinant = left - right;
    if (std::abs(determinant) > orientation_error * (std::abs(left) + std::abs(right)) + underflow_error)
        return sign_of(determinant);
    return fixed_orientation(a, b, c, scale);
}

/// For a, b, c that turn left: 1 when d lies inside their circle, -1 outside, 0 on it; the other sign when they turn right.
inline std::optional<int> in_circle(const Place & a, const Place & b, const Place & c, const Place & d, double scale)
{
    const double ax = a.x - d.x, ay = a.y - d.y, bx = b.x - d.x, by = b.y - d.y, cx = c.x - d.x, cy = c.y - d.y;
    const double bx_cy = bx * cy, cx_by = cx * by, cx_ay = cx * ay, ax_cy = ax * cy, ax_by = ax * by, bx_ay = bx * ay;
    const double a_size = ax * ax + ay * ay, b_size = bx * bx + by * by, c_size = cx * cx + cy * cy;
    const double determinant = a_size * (bx_cy - cx_by) + b_size * (cx_ay - ax_cy) + c_size * (ax_by - bx_ay);
    const double permanent = (std::abs(bx_cy) + std::abs(cx_by)) * a_size + (std::abs(cx_ay) + std::abs(ax_cy)) * b_size +
                             (std::abs(ax_by) + std::abs(bx_ay)) * c_size;
    if (std::abs(determinant) > in_circle_error * permanent + underflow_error) return sign_of(determinant);
    return fixed_in_circle(a, b, c, d, scale);
}

}
