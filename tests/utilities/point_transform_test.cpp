#include "utilities/given_transform.h"
#include "utilities/rotated_extents.h"

#include <gtest/gtest.h>

namespace {

struct Point {
    double x, y, z;
};

void expect_near(const Point & found, const Point & expected)
{
    EXPECT_NEAR(found.x, expected.x, 1e-4);
    EXPECT_NEAR(found.y, expected.y, 1e-4);
    EXPECT_NEAR(found.z, expected.z, 1e-9);
}

Point point_of(const std::string & numbers)
{
    const auto parts = parts_of(numbers, ' ');
    return { number_in<double>(parts.at(0)), number_in<double>(parts.at(1)), parts.size() > 2 ? number_in<double>(parts[2]) : 0 };
}

}

TEST(normalise_point_transform, given_a_transform_then_only_a_change_that_counts_is_in_use)
{
    for (const auto & [transform, in_use] : cases_of<2>("transforms_in_use.cases"))
        EXPECT_EQ(transform_of(transform).in_use, in_use == "yes") << transform;
}

TEST(apply_point_transform, given_a_point_then_forward_moves_it_and_inverse_brings_it_back)
{
    for (const auto & [lines, from, to] : cases_of<3>("points_moved.cases")) {
        const PointTransform transform = transform_of(lines);
        Point point = point_of(from);
        apply_point_transform(transform, TransformDirection::forward, point.x, point.y, point.z);
        expect_near(point, point_of(to));
        apply_point_transform(transform, TransformDirection::inverse, point.x, point.y, point.z);
        expect_near(point, point_of(from));
    }
}

TEST(define_transform_from_points, given_two_points_then_both_land_on_their_new_places)
{
    for (const auto & [second, place, rotation, scale] : cases_of<4>("two_points.cases")) {
        const Point old = point_of(second), moved = point_of(place);
        PointTransform transform;
        ASSERT_TRUE(define_transform_from_points({ 100, 200, 0, 0 }, { old.x, old.y, moved.x, moved.y }, 5, 2, transform));
        EXPECT_NEAR(transform.rotation, number_in(rotation), 1e-6);
        EXPECT_NEAR(transform.x_scale, number_in(scale), 1e-8);
        EXPECT_TRUE(transform.in_use && transform.two_point && transform.x_scale == transform.y_scale);
        Point point = { old.x, old.y, 1 };
        apply_point_transform(transform, TransformDirection::forward, point.x, point.y, point.z);
        expect_near(point, { moved.x, moved.y, 12 });
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
    PointTransform transform = transform_of("30 10 0.5 / 10 4 / 0 4 20"); // (z + 10) / 2 back is (z - 5) * 2
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
    PointTransform transform = transform_of("53.13010235 0 1"); // the angle of 3, 4 and 5
    const std::tuple<bool, TransformDirection, Extents> cases[] = { { true, TransformDirection::forward, { 0, 22, -8, 12 } },
                                                                    { true, TransformDirection::inverse, { -16, 6, 0, 20 } },
                                                                    { false, TransformDirection::forward, { 0, 10, 0, 20 } } };
    for (const auto & [in_use, direction, limits] : cases) {
        transform.in_use = in_use;
        const Extents found = rotated_extents(transform, direction, { 0, 10, 0, 20 });
        expect_near({ found.west, found.south, 0 }, { limits.west, limits.south, 0 });
        expect_near({ found.east, found.north, 0 }, { limits.east, limits.north, 0 });
    }
}
