#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "form/main_form.h"
#include "grid/grid_detection.h"
#include "rules/validation.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

void put(Setup & s, const char * box, const char * text, int index = 0) { s.form(box, index).text = text; }

/// A form that passes the check with any method: own solver, magnetic, points and topography from files in `folder`.
Setup valid_setup(const TemporaryFolder & folder)
{
    Setup s;
    s.form = make_main_form();
    for (const int axis : { 0, 1, 2 }) {
        put(s, "Text_min_val", "0", axis);
        put(s, "Text_max_val", "100", axis);
        put(s, "Text_cell_size", "10", axis);
    }
    put(s, "Text_cell_size", "1", 3);
    put(s, "Text_padding_multipliers", "1,2", 0);
    put(s, "Text_padding_multipliers", "1,2,4", 1);
    for (const char * box : { "Text_percent_error", "Text_UBC_regional_field", "Text_weighting_znot", "Text_alpha_s" })
        put(s, box, "0");
    for (const char * box :
         { "Text_error_floor", "Text_UBC_regional_scale", "Text_UBC_locations_valcount", "Text_mag_intensity", "Text_iterations",
           "Text_chi_factor", "Text_subspace", "Text_weighting_beta", "Text_wavelet_itol", "Text_wavelet_eps",
           "Text_inversion_par", "Text_inversion_tolc", "Text_alpha_e", "Text_alpha_n", "Text_alpha_v" })
        put(s, box, "1");
    for (const char * box : { "Text_UBC_integration_interval", "Text_mag_inclination", "Text_mag_declination" }) put(s, box, "0");
    for (const int slot : { 0, 1 }) {
        put(s, "Text_UBC_locations_nhead", "2", slot);
        s.definition.data_file[static_cast<std::size_t>(slot)] =
            folder.write(slot == 0 ? "points.dat" : "topo.dat", "X Y Z\n1 2 3\n");
    }
    for (const int i : { 0, 1, 2 }) put(s, "Text_UBC_elevation_offset", "0", i);
    for (const char * option : { "Option_depth_weighting_parameters", "Option_wavelet_parameters", "Option_alphas" })
        s.form(option, 1).on = true;
    return s;
}

struct Faulty {
    std::int32_t method;
    void (*make)(Setup &);
    const char * message;
};

#define BOX(box, text) [](::Setup & s) { put(s, box, text); }
#define BOX_OF(box, index, text) [](::Setup & s) { put(s, box, text, index); }
#define RECORD(change) [](::Setup & s) { s.definition.change; }

// For each method in the order of the check.
const Faulty faults[] = {
    { 4, BOX_OF("Text_max_val", 2, "x"), "The maximum Z value is not valid" },
    { 4, BOX_OF("Text_cell_size", 1, "300"), "Min y mesh must be less than max" }, // a third of a cell is no cell
    { 4, BOX("Text_UBC_regional_field", ""), "The regional field base level is not numeric" },
    { 4, BOX("Text_UBC_regional_scale", "x"), "The field scale value is not numeric" },
    { 4, BOX("Text_UBC_regional_scale", "0.0"), "The field scale value cannot be 0" },
    { 4, BOX("Text_percent_error", ""), "The percent error field is not numeric" },
    { 4, BOX("Text_percent_error", "-1"), "The percent error field must be positive" },
    { 4, BOX("Text_error_floor", "1,5"), "The error floor field is not numeric" },
    { 4, BOX("Text_error_floor", "-0.1"), "The error floor field must be non-negative" },
    { 4, BOX("Text_error_floor", "0"), "The percent error and error floor fields cannot both be zero" },
    { 4, RECORD(data_file[0] = " "), "The observed data file must be specified" },
    { 4, RECORD(data_file[0] = "gone.dat"), "The specified observed data file does not exist" },
    { 4, BOX("Text_UBC_locations_nhead", ""), "The number of the first data line is not numeric" },
    { 4, BOX("Text_UBC_locations_nhead", "0"), "The number of the first data line must be positive" },
    { 4, RECORD(data_x_column[0] = 0), "The X column location must be defined" },
    { 4, RECORD(data_y_column[0] = 0), "The Y column location must be defined" },
    { 4, RECORD(data_value_column[0] = 0), "The mag column location must be defined" },
    { 4, BOX("Text_UBC_locations_valcount", "all"), "The nuber of values per cell is not numeric" },
    { 4, BOX("Text_UBC_locations_valcount", "-1"), "The nuber of values per cell must be non-negative" },
    { 4, BOX("Text_UBC_integration_interval", ""), "The integration interval is not numeric" },
    { 4, BOX("Text_UBC_integration_interval", "-1"), "The integration interval cannot be negative" },
    { 4, RECORD(data_z_column[0] = s.definition.data_value_column[0] = 2),
      "There are not enough distinct fields for the observed data file" },
    { 4, BOX_OF("Text_UBC_elevation_offset", 0, ""), "The elevation offset value is not numeric" },
    { 4, RECORD(data_file[1] = "gone.dat"), "The topo file does not exist" },
    { 4, RECORD(data_z_column[1] = 0), "The Z column location must be defined" },
    { 4, RECORD(obs_data_type_count = 0), "No data types have been selected" },
    { 4, [](::Setup & s) { s.definition.background_method = 2; }, "The model background value is not numeric" },
    { 4, BOX("Text_weighting_beta", ""), "The beta value is not numeric" },
    { 4, BOX("Text_weighting_beta", "0"), "The beta value must be positive" },
    { 4, BOX("Text_weighting_znot", ""), "The znot value is not numeric" },
    { 4, BOX("Text_wavelet_itol", "1.0"), "The itol parameter must be either 1 or 2" },
    { 4, BOX("Text_wavelet_eps", ""), "The wavelet compression tolerance value is not numeric" },
    { 4, BOX("Text_wavelet_eps", "0"), "The wavelet compression tolerance value must be positive" },
    { 4, BOX("Text_inversion_par", ""), "The misfit/smoothness trade-off parameter is not numeric" },
    { 4, BOX("Text_inversion_par", "0"), "The misfit/smoothness trade-off parameter must be positive" },
    { 4, BOX("Text_alpha_s", ""), "The alpha s value is not numeric" },
    { 4, BOX("Text_alpha_s", "-1"), "The alpha s value must be positive" },
    { 4, BOX("Text_alpha_e", ""), "The alpha E value is not numeric" },
    { 4, BOX("Text_alpha_e", "-1"), "The alpha E value must be positive" },
    { 4, BOX("Text_alpha_n", ""), "The alpha N value is not numeric" },
    { 4, BOX("Text_alpha_n", "-1"), "The alpha N value must be positive" },
    { 4, BOX("Text_alpha_v", ""), "The alpha V value is not numeric" },
    { 4, BOX("Text_alpha_v", "-1"), "The alpha V value must be positive" },
    { 4, RECORD(weighting_model = "gone.w"), "The specified weighting matrix model file does not exist" },
    { 4, BOX("Text_reference_file", "gone.sus"), "The specified reference model file does not exist" },
    { 4, BOX("Text_depth_weighting_file", "0 1"), "The specified bounds file does not exist" },
    { 4, BOX("Text_rock_propery_file", "gone.lkp"), "The specified rock property file does not exist" },
    { 4, BOX("Text_max_iter", "-1"), "The number of iterations is not valid" },
    { 3, BOX("Text_mag_inclination", ""), "The mag inclination is not numeric" },
    { 3, BOX("Text_mag_declination", ""), "The mag declination is not numeric" },
    { 3, BOX("Text_mag_intensity", ""), "The mag intensity is not numeric" },
    { 3, BOX("Text_mag_intensity", "0"), "The mag intensity must be positive" },
    { 3, BOX("Text_inversion_tolc", ""), "The misfit tolerance value is not numeric" },
    { 3, BOX("Text_inversion_tolc", "0"), "The misfit tolerance value must be positive" },
    { 1, BOX("Text_iterations", ""), "The number of iterations is not numeric" },
    { 1, BOX("Text_iterations", "0"), "The number of iterations must be positive" },
    { 1, BOX("Text_chi_factor", ""), "The Chi factor is not numeric" },
    { 1, BOX("Text_chi_factor", "0"), "The Chi factor must be positive" },
    { 1, BOX("Text_subspace", ""), "The Subspace size is not numeric" },
    { 1, BOX("Text_subspace", "-1"), "The Subspace size cannot be negative" },
    { 1, BOX("Text_depth_weighting_file", "gone.w"), "The specified depth weighting matrix model file does not exist" },
};

/// The messages of the check; a validated record goes with none and only with none.
Texts messages_of(Setup & setup, RecordedHost & host)
{
    std::optional<ValidatedDefinition> validated;
    const Status status = check_inversion_definitions(setup, validated, host.host);
    EXPECT_EQ(status, host.dialogs.messages.empty() ? Status::good : Status::bad);
    EXPECT_EQ(validated.has_value(), host.dialogs.messages.empty());
    return host.dialogs.messages;
}
Texts messages_of(Setup & setup)
{
    RecordedHost host;
    return messages_of(setup, host);
}

}

TEST(check_inversion_definitions, given_one_fault_or_all_later_ones_too_then_the_first_has_its_message)
{
    const TemporaryFolder folder;
    for (const Faulty * fault = std::begin(faults); fault != std::end(faults); ++fault) {
        auto single = valid_setup(folder);
        single.definition.inversion_method = fault->method;
        auto several = single;
        fault->make(single);
        EXPECT_EQ(messages_of(single), Texts{ fault->message });
        for (const Faulty * later = std::end(faults); later-- != fault;)
            if (later->method == fault->method) later->make(several);
        EXPECT_EQ(messages_of(several), Texts{ fault->message });
    }
}

TEST(check_inversion_definitions, given_quirks_that_users_rely_on_then_the_check_passes)
{
    const Faulty good[] = {
        { 4, BOX("Text_weighting_znot", "-5"), "" },
        { 4, BOX("Text_inversion_tolc", ""), "hidden" },
        { 4, BOX("Text_max_iter", "many"), "" },
        { 2, BOX("Text_alpha_s", "unread"), "" },
        { 1, BOX("Text_inversion_par", ""), "" },
        { 0, BOX("Text_depth_weighting_file", "gone.sus"), "" },
        { 0, BOX("Text_rock_propery_file", "gone.lkp"), "" },
        { 4, RECORD(obs_data_types[0] = -1), "" },
        { 4, RECORD(data_file[2] = "gone.grd"), "" },
        { 4, [](::Setup & s) { put(s, "Text_min_val", "90", 2); }, "one cell" },
        { 5, [](::Setup & s) { put(s, "Text_mag_intensity", ""); }, "" },
    };
    const TemporaryFolder folder;
    for (const Faulty & row : good) {
        auto setup = valid_setup(folder);
        setup.definition.inversion_method = row.method;
        setup.form["Text_inversion_tolc"].visible = row.method != 4;
        row.make(setup);
        EXPECT_EQ(messages_of(setup), Texts{}) << &row - good;
    }
    auto zeros = valid_setup(folder); // the unread box counts in the one test of all four
    zeros.definition.inversion_method = 2;
    for (const char * box : { "Text_alpha_e", "Text_alpha_n", "Text_alpha_v" }) put(zeros, box, "0");
    EXPECT_EQ(messages_of(zeros), Texts{ "The alpha values cannot all be zero" });
    put(zeros, "Text_alpha_s", "1");
    EXPECT_EQ(messages_of(zeros), Texts{});
}

TEST(check_inversion_definitions, given_a_good_form_then_the_record_holds_the_numbers_of_the_boxes)
{
    const TemporaryFolder folder;
    auto setup = valid_setup(folder);
    setup.definition.obs_data_types = { 100, 3, -1, -1, -1, -1, -1 };
    put(setup, "Text_description", "two lines");
    put(setup, "Text_inversion_par", "0.123456789");
    put(setup, "Text_UBC_locations_nstep", "0");
    put(setup, "Text_UBC_elevation_offset", "-2.5", 1);
    put(setup, "Text_initial_file", " 0.01 ");
    setup.definition.max_iterations = 50;
    setup.definition.data_extra_value_column = 9;
    RecordedHost host;
    std::optional<ValidatedDefinition> validated;
    ASSERT_EQ(check_inversion_definitions(setup, validated, host.host), Status::good);
    const InversionDefinition & record = **validated;
    EXPECT_EQ(record.description, "two lines");
    EXPECT_EQ(record.trade_off, 0.123456789F);
    EXPECT_EQ(record.data_first_line[0], 2);
    EXPECT_EQ(record.data_read_step[0], 1);
    EXPECT_EQ(record.data_max_column[0], 9);
    EXPECT_EQ(record.data_max_column[1], 3);
    EXPECT_EQ(record.topo_offset(), -2.5F);
    EXPECT_EQ(record.initial_model, "0.01");
    EXPECT_EQ(record.reference_model, "null");
    EXPECT_EQ(record.max_iterations, 0); // blank: the solver's own
    EXPECT_EQ(record.obs_data_type_count, 2);
    EXPECT_EQ(record.data_type_names[0] + " " + record.data_type_names[1], "VMI VKa");
    EXPECT_EQ(record.matrix_files[0], "QVinv3D_Tx.mtx|QVinv3D_Ty.mtx|QVinv3D_Tz.mtx");
    EXPECT_EQ(setup.design_mesh.total_cells, (std::array{ 14, 14, 13 }));
}

TEST(check_inversion_definitions, given_no_topography_file_then_the_top_of_the_mesh_is_used_in_silence)
{
    const TemporaryFolder folder;
    auto setup = valid_setup(folder);
    setup.definition.data_file[1] = "";
    EXPECT_EQ(messages_of(setup), Texts{});
    EXPECT_EQ(setup.definition.topo_type, 1);
    EXPECT_TRUE(setup.form("Check_topo_type", 1).on);
}

TEST(check_inversion_definitions, given_line_azimuth_data_then_the_azimuth_is_needed)
{
    const TemporaryFolder folder;
    auto setup = valid_setup(folder);
    setup.definition.obs_data_types[0] = 4;
    put(setup, "Text_mag_intensity", "");
    EXPECT_EQ(messages_of(setup), Texts{ "The line azimuth is not numeric" });
}

TEST(check_inversion_definitions, given_grids_or_databases_then_they_are_refused_after_the_files_have_been_found)
{
    struct Case {
        std::size_t slot;
        std::string file, message;
    };
    const TemporaryFolder folder;
    const std::string grid = folder.write("a.grd", "DSAA\n2 2\n0 1\n0 1\n1 4\n1 2\n3 4\n"), points = folder.write("a.xyz", "DSAA");
    const std::string no_grid =
        "Gridded files are not available yet: a.grd. Export the grid to a point file (.xyz or .csv) and use that";
    const Case cases[] = {
        { 2, "", "The observed data grid file must be specified" },
        { 2, "gone.grd", "The observed data grid file does not exist" },
        { 2, points, "The grid file format could not be dertermined for the file: a.xyz" },
        { 3, "gone.grd", "The observed data 2 grid file does not exist" },
        { 4, "gone.grd", "The observed data 3 grid file does not exist" },
        { 4, points, "The grid file format could not be dertermined for the file: a.xyz" },
        { 5, "gone.grd", "The sensor grid file does not exist" },
        { 5, grid, no_grid },
        { 1, grid, no_grid },
    };
    for (const Case & c : cases) {
        auto setup = valid_setup(folder);
        setup.definition.data_file_type = 1;
        setup.definition.data_file[2] = grid;
        setup.definition.data_file[c.slot] = c.file;
        EXPECT_EQ(messages_of(setup), Texts{ c.message });
    }
    auto setup = valid_setup(folder);
    setup.definition.data_file[0] = folder.write("a.GDB", "");
    EXPECT_EQ(
        messages_of(setup),
        Texts{ "Databases are not available here: a.GDB. Export the channels to a point file (.xyz or .csv) and use that" });
}

TEST(check_inversion_definitions, given_a_missing_data_file_then_the_picked_one_is_used_and_shown)
{
    const TemporaryFolder folder;
    auto setup = valid_setup(folder);
    const std::string there = setup.definition.data_file[0];
    setup.definition.data_file[0] = "gone.dat";
    RecordedHost host;
    host.dialogs.picks = { there };
    EXPECT_EQ(messages_of(setup, host), Texts{});
    EXPECT_EQ(host.dialogs.questions, Texts{ "Locate the missing file: Observed Data file" });
    EXPECT_EQ(setup.definition.data_file[0], there);
    EXPECT_EQ(setup.form("Text_data_locations", 0).text, there);
}

TEST(check_inversion_definitions, given_model_files_then_they_are_found_where_the_solvers_run)
{
    const TemporaryFolder folder;
    make_folder_path(folder.file("Run"));
    const std::string inside = folder.write("Run\\w.mod", ""), outside = folder.write("b.mod", "");
    struct Case {
        std::string given, pick, expected;
    };
    const Case cases[] = {
        { inside, "", "w.mod" },                          // the folder is dropped
        { folder.file("elsewhere\\w.mod"), "", "w.mod" }, // moved into the inversion folder
        { outside, "", outside },                         // stays where it is
        { "gone.mod", outside, outside },                 // asked for
        { " NULL ", "", "null" },
    };
    for (const Case & c : cases) {
        auto setup = valid_setup(folder);
        put(setup, "Dir1", folder.path().c_str());
        put(setup, "Text_directory_name", "run"); // folders are compared without case
        setup.definition.weighting_model = c.given;
        if (c.given.ends_with("elsewhere\\w.mod")) put(setup, "Text_directory_name", "Run");
        RecordedHost host;
        if (!c.pick.empty()) host.dialogs.picks = { c.pick };
        EXPECT_EQ(messages_of(setup, host), Texts{});
        EXPECT_EQ(setup.definition.weighting_model, c.expected);
        EXPECT_EQ(setup.in_use.model_file, c.expected != "null");
    }
    auto setup = valid_setup(folder);
    put(setup, "Text_initial_file", "gone.sus");
    EXPECT_EQ(messages_of(setup), Texts{ "The specified initial model file does not exist in the folder: " + current_folder() });
}

TEST(check_inversion_definitions, given_bounds_and_reference_then_what_is_in_use_is_noted)
{
    const TemporaryFolder folder;
    const std::string rock = folder.write("r.lkp", "");
    struct Case {
        std::int32_t method;
        const char *reference, *lower, *upper;
        std::array<std::string, 2> bounds;
        InUse in_use; // rock table, reference, bounds, model file
    };
    const Case cases[] = {
        { 4, "", "0.5", "9", { "0.5", "old" }, { true, false, true, true } },
        { 5, "", "0 1", "9", { "0 1", "9" }, { true, false, true, true } }, // the first token decides
        { 6, "1", "Null", "", { "old", "old" }, { true, true, false, true } },
        { 6, "", "", "", { "old", "old" }, { false, false, false, false } }, // nothing for the table to convert
        { 0, "1", "0.5", "", { "old", "old" }, { false, true, false, true } },
    };
    for (const Case & c : cases) {
        auto setup = valid_setup(folder);
        setup.definition.inversion_method = c.method;
        setup.definition.model_bounds = { "old", "old" };
        put(setup, "Text_reference_file", c.reference);
        put(setup, "Text_depth_weighting_file", c.lower, 0);
        put(setup, "Text_depth_weighting_file", c.upper, 1);
        put(setup, "Text_rock_propery_file", rock.c_str());
        EXPECT_EQ(messages_of(setup), Texts{});
        EXPECT_EQ(setup.definition.model_bounds, c.bounds);
        const InUse & found = setup.in_use;
        EXPECT_EQ((std::array{ found.rock_properties, found.reference, found.bounds, found.model_file }),
                  (std::array{ c.in_use.rock_properties, c.in_use.reference, c.in_use.bounds, c.in_use.model_file }));
    }
}
