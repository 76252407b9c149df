#include "data/triangulation.h"

#include "data/quick_predicates.h"
#include "support/missing.h"

#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>
#include <CGAL/spatial_sort.h>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace {

using ExactKernel = CGAL::Exact_predicates_inexact_constructions_kernel;

quick_predicates::Place place_of(const ExactKernel::Point_2 & point) { return { point.x(), point.y() }; }

/// The kernel with quick answers in front of its own, which take over where those are undecided. All answers are exact.
struct GroundKernel : ExactKernel {
    double scale = 1;

    struct Orientation_2 {
        double scale;
        using result_type = CGAL::Orientation;
        result_type operator()(const Point_2 & a, const Point_2 & b, const Point_2 & c) const
        {
            const auto sign = quick_predicates::orientation(place_of(a), place_of(b), place_of(c), scale);
            return sign ? static_cast<result_type>(*sign) : ExactKernel::Orientation_2()(a, b, c);
        }
    };
    struct Side_of_oriented_circle_2 {
        double scale;
        using result_type = CGAL::Oriented_side;
        result_type operator()(const Point_2 & a, const Point_2 & b, const Point_2 & c, const Point_2 & d) const
        {
            const auto sign = quick_predicates::in_circle(place_of(a), place_of(b), place_of(c), place_of(d), scale);
            return sign ? static_cast<result_type>(*sign) : ExactKernel::Side_of_oriented_circle_2()(a, b, c, d);
        }
    };
    Orientation_2 orientation_2_object() const { return { scale }; }
    Side_of_oriented_circle_2 side_of_oriented_circle_2_object() const { return { scale }; }
};

/// A point on its way into the triangulation.
struct NumberedPlace {
    double x, y;
    std::uint32_t number;
};

struct SortTraits {
    using Point_2 = NumberedPlace;
    struct Less_x_2 {
        bool operator()(const NumberedPlace & a, const NumberedPlace & b) const { return a.x < b.x; }
    };
    struct Less_y_2 {
        bool operator()(const NumberedPlace & a, const NumberedPlace & b) const { return a.y < b.y; }
    };
    Less_x_2 less_x_2_object() const { return {}; }
    Less_y_2 less_y_2_object() const { return {}; }
};

// The number kept with a vertex is that of its point while the triangulation is built, afterwards its elevation.
using VertexBase = CGAL::Triangulation_vertex_base_with_info_2<double, GroundKernel>;
using Delaunay = CGAL::Delaunay_triangulation_2<GroundKernel, CGAL::Triangulation_data_structure_2<VertexBase>>;

std::vector<NumberedPlace> sorted_places(std::span<const double> x, std::span<const double> y)
{
    std::vector<NumberedPlace> places(x.size());
    for (std::size_t i = 0; i < x.size(); ++i) places[i] = { x[i], y[i], static_cast<std::uint32_t>(i) };
    CGAL::spatial_sort(places.begin(), places.end(), SortTraits());
    return places;
}

double largest_size(std::span<const double> values)
{
    double largest = 0;
    for (const double value : values) largest = std::max(largest, std::abs(value));
    return largest;
}

Delaunay::Face_handle handle_of(const Delaunay::Face & face)
{
    return Delaunay::Triangulation_data_structure::Face_range::s_iterator_to(const_cast<Delaunay::Face &>(face));
}

/// The triangle that answers for the edge opposite to a corner. A search gives the one it comes to first, and the other may
/// differ from it in the last digit.
Delaunay::Face_handle chosen_side(const Delaunay & delaunay, Delaunay::Face_handle face, int corner)
{
    const Delaunay::Face_handle other = face->neighbor(corner);
    if (delaunay.is_infinite(other)) return face;
    const auto & here = face->vertex(corner)->point();
    const auto & there = delaunay.mirror_vertex(face, corner)->point();
    return std::pair(here.x(), here.y()) < std::pair(there.x(), there.y()) ? face : other;
}

/// Linear interpolation within a triangle, around its first corner.
double interpolated(const Delaunay::Face & face, double x, double y)
{
    const Delaunay::Vertex &a = *face.vertex(0), &b = *face.vertex(1), &c = *face.vertex(2);
    const double bx = b.point().x() - a.point().x(), by = b.point().y() - a.point().y();
    const double cx = c.point().x() - a.point().x(), cy = c.point().y() - a.point().y();
    const double area = bx * cy - cx * by;
    if (!(area > 0)) return a.info(); // flatter than the arithmetic can tell
    x -= a.point().x();
    y -= a.point().y();
    // In a sliver rounding can put a weight outside 0 to 1; held there, no elevation leaves the range of the corners.
    const double b_share = std::clamp((x * cy - cx * y) / area, 0.0, 1.0);
    const double c_share = std::clamp((bx * y - x * by) / area, 0.0, 1.0 - b_share);
    return a.info() + b_share * (b.info() - a.info()) + c_share * (c.info() - a.info());
}

}

namespace CGAL {
// Walks test with plain floating point first, as they do for the kernel beneath; the last steps are exact.
template <>
struct Triangulation_structural_filtering_traits<GroundKernel> {
    using Use_structural_filtering_tag = Tag_true;
};
}

struct Triangulation::Faces {
    Delaunay delaunay;
    Trail trail; ///< of all who bring none

    explicit Faces(const GroundKernel & kernel) : delaunay(kernel) {}
};

Triangulation::Triangulation() = default;
Triangulation::~Triangulation() = default;
Triangulation::Triangulation(Triangulation &&) noexcept = default;
Triangulation & Triangulation::operator=(Triangulation &&) noexcept = default;

bool Triangulation::build(std::span<const double> x, std::span<const double> y, std::span<const double> z)
{
    GroundKernel kernel;
    kernel.scale = quick_predicates::fixed_scale(std::max(largest_size(x), largest_size(y)));
    faces_ = std::make_unique<Faces>(kernel);
    Delaunay & delaunay = faces_->delaunay;

    Delaunay::Face_handle near;
    for (const NumberedPlace & place : sorted_places(x, y)) {
        Delaunay::Locate_type kind;
        int corner = 0;
        const auto face = delaunay.locate({ place.x, place.y }, kind, corner, near);
        const auto vertex = delaunay.insert({ place.x, place.y }, kind, face, corner);
        // The order of insertion is not the caller's, so it is the number that tells which of two points was first.
        const double number = place.number;
        vertex->info() = kind == Delaunay::VERTEX ? std::min(vertex->info(), number) : number;
        near = vertex->face();
    }
    if (delaunay.dimension() < 2) {
        faces_.reset();
        return false;
    }
    for (const auto & vertex : delaunay.finite_vertex_handles()) vertex->info() = z[static_cast<std::size_t>(vertex->info())];
    return true;
}

double Triangulation::at(double x, double y) const { return faces_ ? at(x, y, faces_->trail) : missing_value; }

double Triangulation::at(double x, double y, Trail & trail) const
{
    if (!faces_ || !std::isfinite(x) || !std::isfinite(y)) return missing_value;
    const Delaunay & delaunay = faces_->delaunay;
    Delaunay::Face_handle near;
    if (trail.face_ != nullptr) near = handle_of(*static_cast<const Delaunay::Face *>(trail.face_));
    Delaunay::Locate_type kind;
    int corner = 0;
    const auto face = delaunay.locate({ x, y }, kind, corner, near);
    trail.face_ = &*face;
    switch (kind) {
    case Delaunay::VERTEX:
        return face->vertex(corner)->info();
    case Delaunay::EDGE:
        return interpolated(*chosen_side(delaunay, face, corner), x, y);
    case Delaunay::FACE:
        return interpolated(*face, x, y);
    default:
        return missing_value;
    }
}
