#include "utilities/point_transform.h"
#include "utilities/rotated_extents.h"

#include <gtest/gtest.h>

namespace {

PointTransform with(void (*change)(PointTransform &))
{
    PointTransform transform;
    change(transform);
    normalise_point_transform(transform);
    return transform;
}

struct Point {
    double x, y, z;
};

void expect_near(const Point & found, const Point & expected)
{
    EXPECT_NEAR(found.x, expected.x, 1e-4);
    EXPECT_NEAR(found.y, expected.y, 1e-4);
    EXPECT_NEAR(found.z, expected.z, 1e-9);
}

struct PointCase {
    PointTransform transform;
    Point from, to;
};

// A quarter turn clockwise takes east to south and north to east.
const PointCase point_cases[] = {
    { with([](PointTransform & t) { t.rotation = 90, t.y_origin = 5, t.new_x_origin = 7; }), { 0, 25, 0 }, { 27, 0, 0 } },
    { with([](PointTransform & t) { t.rotation = 90, t.x_scale = 2, t.y_scale = 3; }), { 1, 1, 0 }, { 3, -2, 0 } },
    { with([](PointTransform & t) { t.elevation_shift = 10, t.elevation_scale = 0.5; }), { 0, 0, 30 }, { 0, 0, 20 } },
    { with([](PointTransform & t) { t.elevation_shift = 10; }), { 0, 0, -1e30 }, { 0, 0, -1e30 } },         // missing
    { with([](PointTransform & t) { t.x_scale = -1, t.elevation_shift = 10; }), { 1, 2, 3 }, { 1, 2, 3 } }, // does nothing
};

struct PairCase {
    TransformPoint second; ///< the first is 100, 200 -> 0, 0
    double rotation, scale;
};

const PairCase pair_cases[] = {
    { { 200, 200, 0, 200 }, -90, 2 },                     // east to north, doubled
    { { 110, 200, 0, -10 }, 90, 1 },                      // east to south
    { { 103, 203, 4.242640687, 0 }, 45, 1 },              // north-east to east
    { { 0, 200, -70.71067812, -70.71067812 }, -45, 1 },   // west to south-west
    { { 200, 200, -70.71067812, 70.71067812 }, -135, 1 }, // east to north-west
};

}

TEST(normalise_point_transform, given_a_transform_then_only_a_change_that_counts_is_in_use)
{
    EXPECT_FALSE(with([](PointTransform & t) { t.rotation = 0.4; }).in_use); // rounded to whole degrees first
    EXPECT_TRUE(with([](PointTransform & t) { t.rotation = -0.6; }).in_use);
    EXPECT_FALSE(with([](PointTransform & t) { t.rotation = -719.7; }).in_use);
    EXPECT_TRUE(with([](PointTransform & t) { t.new_y_origin = 1e-9; }).in_use);
    EXPECT_TRUE(with([](PointTransform & t) { t.y_scale = 0.999998; }).in_use);
    EXPECT_FALSE(with([](PointTransform & t) { t.x_scale = 1.0000009, t.elevation_scale = 1.00009; }).in_use);
    EXPECT_TRUE(with([](PointTransform & t) { t.elevation_shift = -0.01; }).in_use);
    EXPECT_FALSE(with([](PointTransform & t) { t.x_scale = t.y_scale = t.elevation_scale = 0; }).in_use); // they become 1
}

TEST(apply_point_transform, given_a_point_then_forward_moves_it_and_inverse_brings_it_back)
{
    for (const PointCase & row : point_cases) {
        Point point = row.from;
        apply_point_transform(row.transform, TransformDirection::forward, point.x, point.y, point.z);
        expect_near(point, row.to);
        apply_point_transform(row.transform, TransformDirection::inverse, point.x, point.y, point.z);
        expect_near(point, row.from);
    }
}

TEST(define_transform_from_points, given_two_points_then_both_land_on_their_new_places)
{
    for (const PairCase & row : pair_cases) {
        PointTransform transform;
        ASSERT_TRUE(define_transform_from_points({ 100, 200, 0, 0 }, row.second, 5, 2, transform));
        EXPECT_NEAR(transform.rotation, row.rotation, 1e-6);
        EXPECT_NEAR(transform.x_scale, row.scale, 1e-8);
        EXPECT_TRUE(transform.in_use && transform.two_point && transform.x_scale == transform.y_scale);
        Point point = { row.second.x, row.second.y, 1 };
        apply_point_transform(transform, TransformDirection::forward, point.x, point.y, point.z);
        expect_near(point, { row.second.new_x, row.second.new_y, 12 });
    }
}

TEST(define_transform_from_points, given_points_that_coincide_in_either_system_then_nothing_changes)
{
    PointTransform transform;
    EXPECT_FALSE(define_transform_from_points({ 1, 1, 5, 5 }, { 1.00009, 1, 9, 9 }, 0, 1, transform));
    EXPECT_FALSE(define_transform_from_points({ 1, 1, 5, 5 }, { 2, 2, 5, 5 }, 0, 1, transform));
    EXPECT_EQ(transform, PointTransform());
}

TEST(invert_point_transform, given_equal_scales_then_it_undoes_itself_and_two_points_only_change_places)
{
    PointTransform transform = with([](PointTransform & t) {
        t.rotation = 30, t.x_scale = t.y_scale = 4, t.x_origin = 10, t.new_y_origin = 20;
        t.elevation_shift = 10, t.elevation_scale = 0.5; // (z + 10) / 2 back is (z - 5) * 2
    });
    Point point = { 17, -3, 100 };
    apply_point_transform(transform, TransformDirection::forward, point.x, point.y, point.z);
    invert_point_transform(transform);
    apply_point_transform(transform, TransformDirection::forward, point.x, point.y, point.z);
    expect_near(point, { 17, -3, 100 });

    PointTransform identity;
    invert_point_transform(identity);
    EXPECT_EQ(identity, PointTransform());

    PointTransform pair;
    ASSERT_TRUE(define_transform_from_points({ 0, 0, 5, 6 }, { 10, 0, 5, 26 }, 0, 1, pair));
    invert_point_transform(pair);
    EXPECT_NEAR(pair.rotation, -90, 1e-6);
    EXPECT_TRUE(pair.x_scale == 2 && pair.new_x2 == 10 && pair.y2 == 26);
}

TEST(rotated_extents, given_a_turned_rectangle_then_the_limits_of_all_its_corners)
{
    PointTransform transform = with([](PointTransform & t) { t.rotation = 53.13010235; }); // the angle of 3, 4 and 5
    const struct {
        bool in_use;
        TransformDirection direction;
        Extents limits;
    } cases[] = { { true, TransformDirection::forward, { 0, 22, -8, 12 } },
                  { true, TransformDirection::inverse, { -16, 6, 0, 20 } },
                  { false, TransformDirection::forward, { 0, 10, 0, 20 } } };
    for (const auto & c : cases) {
        transform.in_use = c.in_use;
        const Extents found = rotated_extents(transform, c.direction, { 0, 10, 0, 20 });
        expect_near({ found.west, found.south, 0 }, { c.limits.west, c.limits.south, 0 });
        expect_near({ found.east, found.north, 0 }, { c.limits.east, c.limits.north, 0 });
    }
}
