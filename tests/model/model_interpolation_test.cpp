#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "model/model_interpolation.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr float null = -1e32F;
using Widths = std::vector<double>;

void lay_axis(const Widths & widths, double start, double sign, List<double> & nodes, List<double> & centres)
{
    nodes.push_back(start);
    for (const double width : widths) {
        centres.push_back(start + sign * width / 2);
        nodes.push_back(start += sign * width);
    }
}

/// z: from the top, which is at `top`.
UbcMesh mesh_of(const Widths & x, const Widths & y, const Widths & z, double west = 0, double south = 0, double top = 0)
{
    UbcMesh mesh;
    mesh.total_cells = { static_cast<int>(x.size()), static_cast<int>(y.size()), static_cast<int>(z.size()) };
    lay_axis(x, west, 1, mesh.nodes_x, mesh.centres_x);
    lay_axis(y, south, 1, mesh.nodes_y, mesh.centres_y);
    lay_axis(z, top, -1, mesh.nodes_z, mesh.centres_z);
    for (int i = mesh.nodes_z.size(); i > 0; --i) mesh.nodes_z_ascending.push_back(mesh.nodes_z[i]);
    return mesh;
}

List<float> interpolated(const UbcMesh & base, const List<float> & values, const UbcMesh & target, const Interpolation & how = {})
{
    RecordedProgress progress;
    List<float> given = values, result;
    interpolate_ubc_model(base, given, target, result, how, progress);
    EXPECT_EQ(given, values);
    return result;
}

/// The value at one position: that of a target of a single cell around it.
float at(const UbcMesh & base, const List<float> & values, std::array<double, 3> p, const Interpolation & how = {})
{
    return interpolated(base, values, mesh_of({ 2 }, { 2 }, { 2 }, p[0] - 1, p[1] - 1, p[2] + 1), how)[1];
}

using Field = std::function<double(double, double, double)>;
List<float> sampled(const UbcMesh & mesh, const Field & field)
{
    List<float> values;
    for (const double z : mesh.centres_z.items())
        for (const double y : mesh.centres_y.items())
            for (const double x : mesh.centres_x.items()) values.push_back(static_cast<float>(field(x, y, z)));
    return values;
}

const UbcMesh graded = mesh_of({ 8, 4, 2, 1, 1, 1.5, 3, 6 }, { 5, 2, 1, 2, 5 }, { 1, 1, 2, 4, 8 }, 100, -7, 50);
const UbcMesh around_graded = mesh_of(Widths(15, 1.9), Widths(13, 1.3), Widths(14, 1.3), 99, -8, 51);

}

TEST(interpolate_ubc_model, given_a_null_then_constants_are_kept_to_the_bit_and_planes_to_the_digit)
{
    const Field fields[] = { [](auto...) { return 0.1; }, [](double x, auto...) { return x - 100; },
                             [](double, double y, double) { return y; }, [](auto, auto, double z) { return z; },
                             [](double x, double y, double z) { return x - 3 * y + z / 2; } };
    for (const Field & field : fields)
        for (int hole = 0; hole <= 200; ++hole) { // 0: none
            const int hx = (hole + 7) % 8 + 1, hy = (hole + 39) / 8 % 5 + 1, hz = (hole + 39) / 40;
            // beside a null in the second cell from an end the outer one has no neighbour
            if (hx == 2 || hx == 7 || hy == 2 || hy == 4 || hz == 2 || hz == 4) continue;
            List<float> values = sampled(graded, field);
            if (hole > 0) values[hole] = null;
            const List<float> result = interpolated(graded, values, around_graded);
            std::int64_t i = 0;
            sampled(around_graded, [&](double x, double y, double z) {
                const float value = result[++i];
                const bool inside = x >= 100 && x < 126.5 && y >= -7 && y < 8 && z >= 34 && z < 50;
                const bool in_hole = hole > 0 && x >= graded.nodes_x[hx] && x < graded.nodes_x[hx + 1] &&
                                     y >= graded.nodes_y[hy] && y < graded.nodes_y[hy + 1] && z < graded.nodes_z[hz] &&
                                     z >= graded.nodes_z[hz + 1];
                EXPECT_EQ(value != null, inside && !in_hole) << x << " " << y << " " << z;
                const double wanted = value == null ? value : field(x, y, z);
                EXPECT_NEAR(value, wanted, &field == fields ? 2e-9 : 1e-5) << x << " " << y << " " << z;
                return 0;
            });
        }
}

TEST(interpolate_ubc_model, given_cells_in_a_row_then_values_worked_by_hand)
{
    const auto numbers = [](const std::string & words) {
        std::vector<double> list;
        for (const std::string & word : parts_of(words, ' ')) list.push_back(word == "*" ? -1e32 : number_in<double>(word));
        return list;
    };
    for (const auto & [widths, values, x, expected] : cases_of<4>("cells_in_a_row.cases")) {
        List<float> row;
        for (const double value : numbers(values)) row.push_back(static_cast<float>(value));
        EXPECT_EQ(at(mesh_of(numbers(widths), { 1 }, { 1 }), row, { number_in<double>(x), 0.5, -0.5 }),
                  static_cast<float>(numbers(expected)[0]))
            << values << " at " << x;
    }
}

TEST(interpolate_ubc_model, given_noise_and_nulls_then_bounds_hold_and_neither_threads_nor_the_way_matter)
{
    const UbcMesh base = mesh_of(Widths(12, 1), Widths(11, 1), Widths(10, 1));
    const UbcMesh target = mesh_of(Widths(47, 0.3), Widths(38, 0.3), Widths(55, 0.2), -1, 0, 0.5);
    PointTransform nothing;
    for (const unsigned nulls : { 0U, 3U, 30U }) {
        std::mt19937 random(5);
        List<float> values(1320);
        for (float & value : values.items()) value = random() % 100 < nulls ? null : static_cast<float>(random() % 2);
        const List<float> expected = interpolated(base, values, target, { .threads = 1 });
        for (const unsigned threads : { 2U, 3U, 5U })
            EXPECT_EQ(interpolated(base, values, target, { .threads = threads }), expected);
        const List<float> singly = interpolated(base, values, target, { .transform = &nothing });
        float low = 0, high = 1;
        for (std::int64_t i = 1; i <= expected.size(); ++i) {
            ASSERT_NEAR(singly[i], expected[i], 1e-6);
            low = expected[i] == null ? low : std::min(low, expected[i]);
            high = std::max(high, expected[i]);
        }
        EXPECT_TRUE(low >= -0.5F && low < -0.2F && high <= 1.5F && high > 1.2F) << low << " " << high;
    }
}

TEST(interpolate_ubc_model, given_air_then_it_is_filled_for_the_while_and_masked_from_the_ground_up)
{
    // two columns of four cells; the second is empty, and 5 lies over a hole
    const UbcMesh mesh = mesh_of({ 1, 1 }, { 1 }, { 1, 1, 1, 1 });
    const List<float> values = { null, null, 5, null, null, null, 7, null };
    const List<float> ground = { -0.25F, -1.5F }; // a centre on the ground is not below it
    EXPECT_EQ(interpolated(mesh, values, mesh, { .fill_above = true }), (List<float>{ 5, 0, 5, 0, null, 0, 7, 0 }));
    EXPECT_EQ(interpolated(mesh, values, mesh, { .fill_above = true, .mask_surface = &ground }),
              (List<float>{ 5, null, 5, null, null, 0, 7, 0 }));
    EXPECT_EQ(at(mesh, values, { 1, 0.5, -0.5 }, { .fill_above = true }), 2.5F); // half way to the empty column
    EXPECT_EQ(at(mesh, values, { 0.5, 0.5, 0 }, { .fill_above = true }), null);  // z counts upwards: the top is outside,
    EXPECT_EQ(at(mesh, values, { 0.5, 0.5, -2 }), 5);                            // a node belongs to the cell above it,
    EXPECT_EQ(at(mesh, values, { 0.5, 0.5, -4 }), 7);                            // and the bottom is inside

    for (const unsigned threads : { 1U, 3U }) {
        RecordedProgress progress;
        progress.stop_at_percent = 50;
        List<float> given = values, result;
        const Interpolation how{ .fill_above = true, .threads = threads };
        EXPECT_THROW(interpolate_ubc_model(mesh, given, mesh, result, how, progress), Stopped);
        EXPECT_EQ(given, values);
        EXPECT_EQ(progress.percents, (std::vector<int>{ 0, 25, 50 }));
    }
    EXPECT_THROW(interpolated(mesh, { 1 }, mesh), SubscriptFault);
    EXPECT_THROW(interpolated(mesh, values, mesh, { .mask_surface = &values }), SubscriptFault);
}

TEST(interpolate_ubc_model, given_a_transform_then_a_cell_lies_in_the_base_before_and_after_it)
{
    const UbcMesh base = mesh_of({ 1, 1, 1, 1 }, { 1, 1, 1, 1 }, { 1, 1, 1, 1 }, -2, -2);
    const List<float> values = sampled(base, [](double x, double y, double z) { return 10 * x + y + 100 * z; });
    const struct {
        PointTransform transform;
        std::array<double, 3> position;
        float expected;
    } cases[] = {
        { { .rotation = 90 }, { 0.5, 1.5, -1 }, 10 * 1.5F - 0.5F - 100 }, // clockwise: north becomes east
        { { .new_x_origin = 1 }, { 0.5, 0, -1 }, 15 - 100 },
        { { .elevation_shift = -1 }, { 0.5, 0, -1 }, 5 - 200 },
        { { .new_x_origin = 3 }, { 0.5, 0, -1 }, null },
        { { .new_x_origin = -3 }, { 3.5, 0, -1 }, null }, // would come to lie inside
        { { .elevation_shift = 1 }, { 0.5, 0, -1 }, null },
        { { .elevation_shift = -1 }, { 0.5, 0, 0.5 }, null },
    };
    for (auto [transform, position, expected] : cases) {
        normalise_point_transform(transform);
        EXPECT_NEAR(at(base, values, position, { .transform = &transform }), expected, 1e-4) << position[0];
    }
}
