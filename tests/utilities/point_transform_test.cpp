#include "utilities/point_transform.h"

#include <gtest/gtest.h>

namespace {

PointTransform with(void (*change)(PointTransform &))
{
    PointTransform transform;
    change(transform);
    normalise_point_transform(transform);
    return transform;
}

struct UseCase {
    const char * name;
    void (*change)(PointTransform &);
    bool in_use;
};

const UseCase use_cases[] = {
    { "identity", [](PointTransform &) {}, false },
    { "rotation_rounds_to_none", [](PointTransform & t) { t.rotation = 0.4; }, false },
    { "half_a_degree_rounds_to_even", [](PointTransform & t) { t.rotation = -0.5; }, false },
    { "rotation_rounds_to_one", [](PointTransform & t) { t.rotation = -0.6; }, true },
    { "full_turn", [](PointTransform & t) { t.rotation = -719.7; }, false },
    { "equal_origins", [](PointTransform & t) { t.x_origin = t.new_x_origin = 500; }, false },
    { "moved_origin", [](PointTransform & t) { t.new_y_origin = 1e-9; }, true },
    { "scale_within_tolerance", [](PointTransform & t) { t.x_scale = 1.0000009; }, false },
    { "scale_beyond_tolerance", [](PointTransform & t) { t.y_scale = 0.999998; }, true },
    { "zero_scales_are_one", [](PointTransform & t) { t.x_scale = t.y_scale = t.elevation_scale = 0; }, false },
    { "elevation_shift", [](PointTransform & t) { t.elevation_shift = -0.01; }, true },
    { "elevation_scale_within_tolerance", [](PointTransform & t) { t.elevation_scale = 1.00009; }, false },
};

struct Point {
    double x, y, z;
};

void expect_near(const Point & found, const Point & expected, const char * name)
{
    EXPECT_NEAR(found.x, expected.x, 1e-4) << name;
    EXPECT_NEAR(found.y, expected.y, 1e-4) << name;
    EXPECT_NEAR(found.z, expected.z, 1e-9) << name;
}

struct PointCase {
    const char * name;
    PointTransform transform;
    Point from, to;
};

// A quarter turn clockwise takes east to south and north to east.
const PointCase point_cases[] = {
    { "shift",
      with([](PointTransform & t) { t.x_origin = 100, t.new_x_origin = 1100, t.new_y_origin = -50; }),
      { 101, 2, 3 },
      { 1101, -48, 3 } },
    { "quarter_turn", with([](PointTransform & t) { t.rotation = 90; }), { 10, 0, 0 }, { 0, -10, 0 } },
    { "turn_about_origin",
      with([](PointTransform & t) { t.rotation = 90, t.y_origin = 5, t.new_x_origin = 7; }),
      { 0, 25, 0 },
      { 27, 0, 0 } },
    { "scale_before_turn",
      with([](PointTransform & t) { t.rotation = 90, t.x_scale = 2, t.y_scale = 3; }),
      { 1, 1, 0 },
      { 3, -2, 0 } },
    { "elevation",
      with([](PointTransform & t) { t.elevation_shift = 10, t.elevation_scale = 0.5; }),
      { 0, 0, 30 },
      { 0, 0, 20 } },
    { "missing_elevation", with([](PointTransform & t) { t.elevation_shift = 10; }), { 0, 0, -1e30 }, { 0, 0, -1e30 } },
    { "negative_scale_does_nothing",
      with([](PointTransform & t) { t.x_scale = -1, t.elevation_shift = 10; }),
      { 1, 2, 3 },
      { 1, 2, 3 } },
};

struct PairCase {
    const char * name;
    TransformPoint second; ///< the first is 100, 200 -> 0, 0
    double rotation, scale;
};

const PairCase pair_cases[] = {
    { "same_direction", { 200, 200, 100, 0 }, 0, 1 },
    { "east_to_north_doubled", { 200, 200, 0, 200 }, -90, 2 },
    { "east_to_south", { 110, 200, 0, -10 }, 90, 1 },
    { "north_east_to_east", { 103, 203, 4.242640687, 0 }, 45, 1 },
    { "west_to_south_west", { 0, 200, -70.71067812, -70.71067812 }, -45, 1 },
    { "east_to_north_west", { 200, 200, -70.71067812, 70.71067812 }, -135, 1 },
};

}

TEST(normalise_point_transform, given_a_transform_then_only_a_change_that_counts_is_in_use)
{
    for (const UseCase & row : use_cases) EXPECT_EQ(with(row.change).in_use, row.in_use) << row.name;
}

TEST(apply_point_transform, given_a_point_then_forward_moves_it_and_inverse_and_inverted_bring_it_back)
{
    for (const PointCase & row : point_cases) {
        Point point = row.from;
        apply_point_transform(row.transform, TransformDirection::forward, point.x, point.y, point.z);
        expect_near(point, row.to, row.name);
        Point back = point;
        apply_point_transform(row.transform, TransformDirection::inverse, back.x, back.y, back.z);
        expect_near(back, row.from, row.name);
    }
}

TEST(define_transform_from_points, given_two_points_then_both_land_on_their_new_places)
{
    const TransformPoint first = { 100, 200, 0, 0 };
    for (const PairCase & row : pair_cases) {
        PointTransform transform;
        ASSERT_TRUE(define_transform_from_points(first, row.second, 5, 2, transform)) << row.name;
        EXPECT_NEAR(transform.rotation, row.rotation, 1e-6) << row.name;
        EXPECT_NEAR(transform.x_scale, row.scale, 1e-8) << row.name;
        EXPECT_EQ(transform.x_scale, transform.y_scale) << row.name;
        EXPECT_TRUE(transform.in_use && transform.two_point) << row.name;
        Point point = { row.second.x, row.second.y, 1 };
        apply_point_transform(transform, TransformDirection::forward, point.x, point.y, point.z);
        expect_near(point, { row.second.new_x, row.second.new_y, 12 }, row.name);
    }
}

TEST(define_transform_from_points, given_points_that_coincide_in_either_system_then_nothing_changes)
{
    PointTransform transform = with([](PointTransform & t) { t.rotation = 30; });
    const PointTransform before = transform;
    EXPECT_FALSE(define_transform_from_points({ 1, 1, 5, 5 }, { 1.00009, 1, 9, 9 }, 0, 1, transform));
    EXPECT_FALSE(define_transform_from_points({ 1, 1, 5, 5 }, { 2, 2, 5, 5 }, 0, 1, transform));
    EXPECT_EQ(transform, before);
}

TEST(invert_point_transform, given_a_turn_with_equal_scales_then_the_inverse_undoes_it)
{
    PointTransform transform = with([](PointTransform & t) {
        t.rotation = 30, t.x_scale = t.y_scale = 4, t.x_origin = 10, t.new_y_origin = 20, t.elevation_shift = 10,
        t.elevation_scale = 0.5;
    });
    Point point = { 17, -3, 100 };
    apply_point_transform(transform, TransformDirection::forward, point.x, point.y, point.z);
    invert_point_transform(transform);
    EXPECT_EQ(transform.elevation_shift, -5); // (z + 10) / 2 back is (z - 5) * 2
    EXPECT_EQ(transform.elevation_scale, 2);
    apply_point_transform(transform, TransformDirection::forward, point.x, point.y, point.z);
    expect_near(point, { 17, -3, 100 }, "there and back");
}

TEST(invert_point_transform, given_the_identity_or_a_two_point_transform_then_only_the_points_change_places)
{
    PointTransform identity;
    normalise_point_transform(identity);
    invert_point_transform(identity);
    EXPECT_EQ(identity, PointTransform());

    PointTransform pair;
    ASSERT_TRUE(define_transform_from_points({ 0, 0, 5, 6 }, { 10, 0, 5, 26 }, 0, 1, pair));
    invert_point_transform(pair);
    EXPECT_NEAR(pair.rotation, -90, 1e-6);
    EXPECT_EQ(pair.x_scale, 2);
    EXPECT_EQ(pair.new_x2, 10);
    EXPECT_EQ(pair.y2, 26);
}
