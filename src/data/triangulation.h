#pragma once

#include <memory>
#include <span>

/// A Delaunay triangulation of scattered points with elevations, evaluated by linear interpolation within its triangles.
class Triangulation {
public:
    Triangulation();
    ~Triangulation();
    Triangulation(Triangulation &&) noexcept;
    Triangulation & operator=(Triangulation &&) noexcept;

    /// Builds it from points of equal count. Of points at the same place the first counts. False when all points lie on one line.
    bool build(std::span<const double> x, std::span<const double> y, std::span<const double> z);

    /// The elevation at a position, -1e32 outside the hull. Quick when asked for neighbouring positions one after the other.
    double at(double x, double y) const;

private:
    struct Faces;
    std::unique_ptr<Faces> faces_;
};
