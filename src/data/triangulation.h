#pragma once

#include <memory>
#include <span>

/// A Delaunay triangulation of scattered points with elevations, evaluated by linear interpolation within its triangles.
///
/// All decisions are exact, so the triangles do not depend on the order of the points, nor an elevation on where the search for
/// its position began.
class Triangulation {
public:
    /// Where a search in one triangulation has come to. Each thread has one of its own; building anew ends it.
    class Trail {
        friend class Triangulation;
        const void * face_ = nullptr;
    };

    Triangulation();
    ~Triangulation();
    Triangulation(Triangulation &&) noexcept;
    Triangulation & operator=(Triangulation &&) noexcept;

    /// Builds it from lists of equal length; x and y are finite. Of points at the same place the first counts. False when all
    /// points lie on one line.
    bool build(std::span<const double> x, std::span<const double> y, std::span<const double> z);

    /// The elevation at a position, -1e32 outside the hull. Quick when asked for neighbouring positions one after the other.
    double at(double x, double y, Trail & trail) const;
    /// The same for one thread at a time, on a trail of its own.
    double at(double x, double y) const;

private:
    struct Faces;
    std::unique_ptr<Faces> faces_;
};
