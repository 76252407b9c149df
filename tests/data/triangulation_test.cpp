#include "data/quick_predicates.h"
#include "data/triangulation.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace {

struct Place {
    double x, y, z;
};

struct Points {
    std::vector<double> x, y, z;
    void add(double east, double north, double elevation)
    {
        x.push_back(east);
        y.push_back(north);
        z.push_back(elevation);
    }
    bool build(Triangulation & surface) const { return surface.build(x, y, z); }
};

double plane(double x, double y) { return 250 + 0.125 * (x - 430000) - 0.5 * (y - 7200000); }

}

TEST(triangulation, given_points_on_a_plane_then_the_plane_comes_back_and_nothing_outside_the_hull)
{
    // A lattice with steps that no double holds, so its cells are squares only nearly or exactly by chance; and random points.
    for (const double step : { 10.0, 10.1, 0.0 }) {
        Points points;
        std::mt19937 random(7);
        std::uniform_real_distribution<double> within(0, 303);
        for (int i = 0; i < 31 * 31; ++i) {
            const double x = 430000.1 + (step > 0 ? step * (i % 31) : within(random));
            const double y = 7200000.1 + (step > 0 ? step * (i / 31) : within(random));
            points.add(x, y, plane(x, y));
        }
        Triangulation surface;
        ASSERT_TRUE(points.build(surface));
        for (int i = 0; i < 1000; ++i) {
            const double x = 430020 + within(random) * 0.8, y = 7200020 + within(random) * 0.8;
            ASSERT_NEAR(surface.at(x, y), plane(x, y), 1e-8) << "step " << step;
        }
        for (std::size_t i = 0; i < points.x.size(); ++i) ASSERT_EQ(surface.at(points.x[i], points.y[i]), points.z[i]);
        EXPECT_EQ(surface.at(429990, 7200100), -1e32);
        EXPECT_EQ(surface.at(430100, std::numeric_limits<double>::quiet_NaN()), -1e32);
        EXPECT_NEAR(surface.at(430100, 7200100), plane(430100, 7200100), 1e-8); // after a walk that left the hull
    }
}

TEST(triangulation, given_a_kite_then_the_short_diagonal_is_the_edge_and_edges_and_corners_have_values)
{
    Points points; // the last two again, and so without effect
    for (const auto & [x, y, z] : { Place{ 0, 0, 0 }, { 4, -1, 8 }, { 8, 0, 0 }, { 4, 1, 8 }, { 4, 1, 99 }, { 0, 0, 99 } })
        points.add(x, y, z);
    Triangulation surface;
    ASSERT_TRUE(points.build(surface));
    const Place places[] = {
        { 4, 0, 8 }, { 2, 0, 4 }, { 2, 0.5, 4 }, { 2, -0.5, 4 }, { 0, 0, 0 }, { 4, 1, 8 }, { 2, 0.51, -1e32 }
    };
    for (const auto & [x, y, z] : places) EXPECT_DOUBLE_EQ(surface.at(x, y), z) << x << " " << y;
}

TEST(triangulation, given_searches_from_anywhere_then_the_same_elevations_to_the_last_digit)
{
    std::mt19937 random(9);
    Points points;
    for (int i = 0; i < 21 * 21; ++i) points.add(i % 21, i / 21, static_cast<double>(random() % 1000) / 7);
    Triangulation surface;
    ASSERT_TRUE(points.build(surface));
    Triangulation::Trail trail;
    for (int i = 0; i < 5000; ++i) { // a quarter of them on an edge of the lattice, many more on a diagonal
        const double x = static_cast<double>(random() % 61) / 3, y = static_cast<double>(random() % 41) / 2;
        Triangulation::Trail fresh;
        ASSERT_EQ(surface.at(x, y, trail), surface.at(x, y, fresh)) << x << " " << y;
    }
}

TEST(triangulation, given_fewer_than_three_directions_then_there_is_no_surface)
{
    Triangulation surface;
    EXPECT_EQ(surface.at(0, 0), -1e32);
    Points points;
    EXPECT_FALSE(points.build(surface));
    for (int i = 0; i < 5; ++i) points.add(3.0 * i, 7.0 * i, i);
    EXPECT_FALSE(points.build(surface));
    EXPECT_EQ(surface.at(3, 7), -1e32);
}

TEST(quick_predicates, given_the_corners_of_a_rectangle_then_they_are_on_one_circle_and_one_step_off_is_told)
{
    using quick_predicates::in_circle, quick_predicates::orientation;
    // Whatever the doubles, equal ones make an exact rectangle. Small numbers, mid-sized ones and such as need all bits.
    const struct {
        double west, east, south, north;
    } cases[] = { { 0, 1, 0, 1 },
                  { -50, -25, 1000, 1025 },
                  { 430000.1, 430000.2, 7200000.1, 7200000.2 },
                  { 430000.1, 435000.7, 7200000.1, 7299000.3 },
                  { -430000.1, 435000.7, -7200000.1, 7299000.3 } };
    for (const auto & at : cases) {
        const double scale = quick_predicates::fixed_scale(std::max(std::abs(at.north), std::abs(at.south)));
        const auto corner = [&](double north) {
            return in_circle({ at.west, at.south }, { at.east, at.south }, { at.east, at.north }, { at.west, north }, scale);
        };
        EXPECT_EQ(corner(at.north), 0) << at.west;
        EXPECT_EQ(corner(std::nextafter(at.north, 1e9)), -1) << at.west;
        EXPECT_EQ(corner(std::nextafter(at.north, -1e9)), 1) << at.west;

        const auto middle = [&](double y) { return orientation({ at.west, at.south }, { at.east, at.south }, { 0, y }, scale); };
        EXPECT_EQ(middle(at.south), 0) << at.west;
        EXPECT_EQ(middle(std::nextafter(at.south, at.north)), at.south == 0 ? std::nullopt : std::optional(1)) << at.west;
    }
}
