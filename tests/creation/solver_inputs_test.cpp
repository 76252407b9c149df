#include "creation/given_creation.h"
#include "creation/solver_inputs.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

constexpr float not_set = -1e30F;

struct WholeCase {
    std::int32_t method, data_type;
    const char *weights, *sensitivity, *inversion; // lines with "/" between them; empty: there is no such file
};
const WholeCase whole_cases[] = {
    { 0, 1, "", "mesh/mag.obs/topo.dat/1/12.5 3/daub4/2 0.005",
      "0/3/ .5  .02/mag.obs/maginv3d.mtx/start.sus/ref.sus/0.0001 2 3 4.5/weights.wt/0" },
    { 1, 0, "", "", "0 25/1.000/0/50/mesh/topo.dat/gzinv3d.mtx/grav.obs/start.sus/ref.sus/0.0001 2 3 4.5/weights.wt/low.bnd/0" },
    { 5, 0, "GRAV/mesh/grav.obs/topo.dat/1/12.5 3", "mesh/grav.obs/topo.dat/depth_weight.txt/daub4/2 0.005/1",
      "3/ .5  .02/grav.obs/gzinv3d.mtx/start.sus/ref.sus/null/low.bnd/up.bnd/0.0001 2 3 4.5/SMOOTH_MOD_DIF/weights.wt" },
};

using Change = void (*)(GivenCreation & given, InversionDefinition & definition);

/// One line of a file after one change. line: from 1, or from -1 for the last one backwards.
struct LineCase {
    const char * name;
    std::int32_t method, data_type;
    Change change;
    int line;
    const char * expected;
};

const std::string & line_of(const Lines & lines, int number)
{
    return lines.at(static_cast<std::size_t>(number > 0 ? number - 1 : static_cast<int>(lines.size()) + number));
}

void given_three_components(GivenCreation & given, InversionDefinition & definition)
{
    given.mode = CreateMode::variation;
    definition.matrix_files[0] = "QVinv3D_Tx.mtx|QVinv3D_Ty.mtx|QVinv3D_Tz.mtx";
    definition.max_iterations = 0;
    definition.mag_inclination = 60;
    definition.mag_declination = -30;
}

#define CHANGE(...)                                                                                                              \
    [](GivenCreation & g, InversionDefinition & d) {                                                                             \
        (void)g, (void)d;                                                                                                        \
        __VA_ARGS__;                                                                                                             \
    }

const LineCase sensitivity_cases[] = {
    { "default wavelet", 0, 1, CHANGE(d.wavelet_mode = 0; d.background_topo = 7), 7, "null" },
    { "last wavelet", 5, 0, CHANGE(d.wavelet_type = 9), 5, "null" },
    { "default wavelet", 4, 1, CHANGE(d.wavelet_mode = 0; d.background_topo = 120.5F), 7, "1 0.001 120.5" },
    { "no background topo", 4, 1, CHANGE(d.wavelet_mode = 0; d.background_topo = not_set), 7, "null" },
    { "three components", 4, 100, CHANGE(d.calc_data_type_count = 1), 8, "20 21 22" },
    { "azimuth", 4, 3, CHANGE(d.line_azimuth = 45.25F), 8, "3 0 45.3" },
    { "turned", 4, 6, CHANGE(d.coordinate_transform.in_use = true; d.coordinate_transform.rotation = -30), 8, "6 0 -30.0" },
    { "turned, unused", 4, 5, CHANGE(d.coordinate_transform.rotation = -30), 8, "5" },
};

const LineCase inversion_cases[] = {
    // the own solver's positivity: the sign takes the blank's place
    { "positive", 4, 0, CHANGE(d.positivity = 3), 3, " .5  .02 1" },
    { "default", 4, 30, CHANGE(), 3, " .5  .02 1" },
    { "background", 4, 0, CHANGE(d.background_method = 2; d.background_value = -0.12345F), 2, "2 2 -0.1235" },
    // data and matrices
    { "variation", 3, 1, CHANGE(g.mode = CreateMode::variation_with_data), 4, R"(..\mag.obs)" },
    { "variation", 2, 0, CHANGE(g.mode = CreateMode::variation), 5, R"(..\gzinv3d.mtx)" },
    { "new data", 4, 0, CHANGE(g.mode = CreateMode::variation_with_data), 4, "grav.obs" },
    { "new data", 4, 0, CHANGE(g.mode = CreateMode::variation_with_data), 5, R"(..\qvinv3d.mtx)" },
    { "two types", 4, 2, CHANGE(g.mode = CreateMode::variation; d.obs_data_type_count = 2; d.matrix_files = { "A.mtx", "B.mtx" }),
      5, R"(..\A.mtx|..\B.mtx)" },
    { "three components", 4, 100, given_three_components, 1, "0 3 1 1" },
    { "three components", 4, 100, given_three_components, 5, "QVinv3D_Tx.mtx|QVinv3D_Ty.mtx|QVinv3D_Tz.mtx" },
    { "three components", 4, 100, given_three_components, -2, "300" },
    // cos 60 sin -30, cos 60 cos -30, sin 60
    { "three components", 4, 100, given_three_components, -1, "3 1,1,-0.2500 2,1,0.4330 3,1,0.8660 RMS" },
    { "no iterations", 4, 1, CHANGE(d.max_iterations = 0), -1, "0" },
    // initial model
    { "variation", 0, 1, CHANGE(g.mode = CreateMode::variation), 6, R"(..\start.sus)" },
    { "Null", 4, 1, CHANGE(d.initial_model = "Null"), 6, "Null" },
    { "Null", 5, 0, CHANGE(d.initial_model = "Null"), 5, "VALUE 0.0" },
    // reference model
    { "unused", 6, 1, CHANGE(g.in_use.reference = false), 6, "VALUE 0.0" },
    { "variation", 4, 1, CHANGE(g.mode = CreateMode::variation), 7, R"(..\ref.sus)" },
    { "elsewhere", 4, 1, CHANGE(g.mode = CreateMode::variation; d.reference_model = R"(D:\r.sus)"), 7, R"(D:\r.sus)" },
    { "rock", 4, 0, CHANGE(g.in_use.rock_properties = true), 7, "mag3d_ref.sus" },
    { "rock", 5, 0, CHANGE(g.in_use.rock_properties = true; d.rock_property_application = 1), 6, "grav3d_ref.den" },
    { "rock", 3, 1, CHANGE(g.in_use.rock_properties = true; d.rock_property_application = 2), 7, "ref.sus" },
    // bounds
    { "unused", 5, 0, CHANGE(g.in_use.bounds = false), 8, "low.bnd" },
    { "variation", 3, 1, CHANGE(g.mode = CreateMode::variation), 8, "low.bnd" },
    { "variation", 4, 1, CHANGE(g.mode = CreateMode::variation), 8, R"(..\low.bnd)" },
    { "variation", 5, 0, CHANGE(g.mode = CreateMode::variation), 9, R"(..\up.bnd)" },
    { "rock", 2, 0, CHANGE(g.in_use.rock_properties = true; d.rock_property_application = 2), 8, "grav3d_bounds.den" },
    { "rock", 4, 1, CHANGE(g.in_use.rock_properties = true; d.rock_property_application = 1), 8, "low.bnd" },
    { "Null", 5, 0, CHANGE(d.model_bounds = { "Null", "null" }), 8, "VALUE -2.0" },
    { "Null", 6, 1, CHANGE(d.model_bounds = { "Null", "null" }), 9, "VALUE 2.0" },
    { "blank", 6, 1, CHANGE(d.model_bounds = { "-0.5", "" }), 9, "VALUE " },
    // weights of the norm
    { "lengths", 1, 0, CHANGE(d.alpha_method = 1), 11, "0.0001 2 3" },
    { "smallest", 6, 1, CHANGE(d.smoothness_method = 0), 11, "SMOOTH_MOD" },
    { "no multipliers", 6, 1, CHANGE(d.create_weighting_file = 1; d.weight_multipliers = ""), 12, "weights.wt" },
};

}

TEST(solver_inputs, given_each_method_then_the_whole_inputs)
{
    for (const WholeCase & row : whole_cases) {
        SCOPED_TRACE(row.method);
        const GivenCreation given(row.method, row.data_type);
        const Creation creation = given.creation();
        EXPECT_EQ(*row.weights ? joined(weight_input_lines(creation)) : "", row.weights);
        EXPECT_EQ(*row.sensitivity ? joined(sensitivity_input_lines(creation)) : "", row.sensitivity);
        EXPECT_EQ(joined(inversion_input_lines(creation, SolverStart::fresh)), row.inversion);
    }
}

TEST(solver_inputs, given_one_change_then_its_line)
{
    const auto expect_line = [](const LineCase & row, auto input) {
        SCOPED_TRACE(std::string(row.name) + ", method " + std::to_string(row.method));
        GivenCreation given(row.method, row.data_type);
        row.change(given, given.definition);
        EXPECT_EQ(line_of(input(given.creation()), row.line), row.expected);
    };
    for (const LineCase & row : sensitivity_cases) expect_line(row, sensitivity_input_lines);
    for (const LineCase & row : inversion_cases)
        expect_line(row, [](const Creation & creation) { return inversion_input_lines(creation, SolverStart::fresh); });
}

TEST(solver_inputs, given_a_wavelet_outside_the_list_then_a_fault_and_no_blank_name)
{
    GivenCreation given(2, 0);
    given.definition.wavelet_type = 10;
    EXPECT_THROW(sensitivity_input_lines(given.creation()), SubscriptFault);
}
