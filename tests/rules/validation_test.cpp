#include "fakes/temporary_folder.h"
#include "grid/grid_detection.h"
#include "rules/started_setup.h"
#include "rules/validation.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;
using Record = InversionDefinition;

/// A form that passes the check with any method: points and topography from files in `folder`, all optional boxes in use.
struct Checked : StartedSetup {
    explicit Checked(const TemporaryFolder & folder, std::int32_t method = 4)
    {
        Record record;
        record.inversion_method = method;
        record.mesh_max = { 100, 100, 100, 0 };
        record.mesh_cell_size = { 10, 10, 10, 1 };
        record.padding_multipliers = { "1,2", "1,2,4" };
        record.data_file[0] = folder.write("points.dat", "X Y Z\n1 2 3\n");
        record.data_file[1] = folder.write("topo.dat", "X Y Z\n1 2 3\n");
        record.depth_weighting_mode = 1;
        record.mag_intensity = 1;
        load(record);
        for (const char * box : { "Text_line_azimuth", "Text_inversion_background_value" })
            setup.form[box].text.clear(); // unread
    }
    Record & record() { return setup.definition; }
    /// The messages of the check; a validated record goes with none and only with none.
    Texts check()
    {
        dialogs.messages.clear();
        std::optional<ValidatedDefinition> validated;
        const Status status = check_inversion_definitions(setup, validated, host);
        EXPECT_EQ(status, dialogs.messages.empty() ? Status::good : Status::bad);
        EXPECT_EQ(validated.has_value(), dialogs.messages.empty());
        return dialogs.messages;
    }
};

struct Faulty {
    std::int32_t method;
    std::function<void(Checked &)> make;
    std::string message;
};

/// Each way to fail, for each method in the order of the check.
std::vector<Faulty> all_faults()
{
    std::vector<Faulty> faults;
    // Boxes are changed without the change rules, so that the record keeps what the box no longer says.
    const auto box = [&](std::int32_t method, const char * name, const char * text, std::string message, int index = 0) {
        faults.push_back({ method, [=](Checked & c) { c.setup.form(name, index).text = text; }, message });
    };
    const auto number = [&](std::int32_t method, const char * name, const std::string & subject, const char * bad,
                            const char * why) {
        box(method, name, "", subject + " is not numeric");
        box(method, name, bad, subject + why);
    };
    const auto record = [&](const char * message, void (*make)(Record &)) {
        faults.push_back({ 4, [=](Checked & c) { make(c.record()); }, message });
    };
    box(4, "Text_max_val", "x", "The maximum Z value is not valid", 2);
    box(4, "Text_cell_size", "300", "Min y mesh must be less than max", 1); // a third of a cell is no cell
    box(4, "Text_UBC_regional_field", "", "The regional field base level is not numeric");
    number(4, "Text_UBC_regional_scale", "The field scale value", "0.0", " cannot be 0");
    number(4, "Text_percent_error", "The percent error field", "-1", " must be positive");
    number(4, "Text_error_floor", "The error floor field", "-0.1", " must be non-negative");
    box(4, "Text_error_floor", "0", "The percent error and error floor fields cannot both be zero");
    record("The observed data file must be specified", [](Record & r) { r.data_file[0] = " "; });
    record("The specified observed data file does not exist", [](Record & r) { r.data_file[0] = "gone.dat"; });
    number(4, "Text_UBC_locations_nhead", "The number of the first data line", "0", " must be positive");
    record("The X column location must be defined", [](Record & r) { r.data_x_column[0] = 0; });
    record("The Y column location must be defined", [](Record & r) { r.data_y_column[0] = 0; });
    record("The mag column location must be defined", [](Record & r) { r.data_value_column[0] = 0; });
    number(4, "Text_UBC_locations_valcount", "The nuber of values per cell", "-1", " must be non-negative");
    number(4, "Text_UBC_integration_interval", "The integration interval", "-1", " cannot be negative");
    record("There are not enough distinct fields for the observed data file",
           [](Record & r) { r.data_z_column[0] = r.data_value_column[0] = 2; });
    box(4, "Text_UBC_elevation_offset", "", "The elevation offset value is not numeric");
    record("The topo file does not exist", [](Record & r) { r.data_file[1] = "gone.dat"; });
    record("The Z column location must be defined", [](Record & r) { r.data_z_column[1] = 0; });
    record("No data types have been selected", [](Record & r) { r.obs_data_type_count = 0; });
    box(3, "Text_mag_inclination", "", "The mag inclination is not numeric");
    box(3, "Text_mag_declination", "", "The mag declination is not numeric");
    number(3, "Text_mag_intensity", "The mag intensity", "0", " must be positive");
    box(4, "Text_mag_intensity", "0", "The mag intensity must be positive");
    faults.back().make = [zero = faults.back().make](Checked & c) { c.record().obs_data_types[0] = 30, zero(c); };
    record("The line azimuth is not numeric", [](Record & r) { r.obs_data_types[0] = 4; });
    record("The model background value is not numeric", [](Record & r) { r.background_method = 2; });
    number(1, "Text_iterations", "The number of iterations", "0", " must be positive");
    number(1, "Text_chi_factor", "The Chi factor", "0", " must be positive");
    number(1, "Text_subspace", "The Subspace size", "-1", " cannot be negative");
    number(4, "Text_weighting_beta", "The beta value", "0", " must be positive");
    box(4, "Text_weighting_znot", "", "The znot value is not numeric");
    box(4, "Text_wavelet_itol", "1.0", "The itol parameter must be either 1 or 2");
    number(4, "Text_wavelet_eps", "The wavelet compression tolerance value", "0", " must be positive");
    number(4, "Text_inversion_par", "The misfit/smoothness trade-off parameter", "0", " must be positive");
    number(3, "Text_inversion_tolc", "The misfit tolerance value", "0", " must be positive");
    number(4, "Text_alpha_s", "The alpha s value", "-1", " must be positive");
    number(4, "Text_alpha_e", "The alpha E value", "-1", " must be positive");
    number(4, "Text_alpha_n", "The alpha N value", "-1", " must be positive");
    number(4, "Text_alpha_v", "The alpha V value", "-1", " must be positive");
    record("The specified weighting matrix model file does not exist", [](Record & r) { r.weighting_model = "gone.w"; });
    box(4, "Text_initial_file", "gone.sus", "The specified initial model file does not exist in the folder: " + current_folder());
    box(4, "Text_reference_file", "gone.sus", "The specified reference model file does not exist");
    box(4, "Text_depth_weighting_file", "0 1", "The specified bounds file does not exist");
    box(1, "Text_depth_weighting_file", "gone.w", "The specified depth weighting matrix model file does not exist");
    box(4, "Text_rock_propery_file", "gone.lkp", "The specified rock property file does not exist");
    box(4, "Text_max_iter", "-1", "The number of iterations is not valid");
    return faults;
}

}

TEST(check_inversion_definitions, given_one_fault_or_all_later_ones_too_then_the_first_has_its_message)
{
    const TemporaryFolder folder;
    const std::vector<Faulty> faults = all_faults();
    for (auto fault = faults.begin(); fault != faults.end(); ++fault) {
        Checked single(folder, fault->method), several(folder, fault->method);
        fault->make(single);
        EXPECT_EQ(single.check(), Texts{ fault->message });
        for (auto later = faults.end(); later-- != fault;)
            if (later->method == fault->method) later->make(several);
        EXPECT_EQ(several.check(), Texts{ fault->message });
    }
}

TEST(check_inversion_definitions, given_quirks_that_users_rely_on_then_the_check_passes)
{
    const TemporaryFolder folder;
    const std::tuple<std::int32_t, std::int32_t, const char *, const char *> cases[] = {
        { 4, 1, "Text_weighting_znot", "-5" },
        { 4, 1, "Text_inversion_tolc", "" }, // hidden
        { 4, 1, "Text_cell_size", "100" },   // one cell
        { 4, 1, "Text_max_iter", "many" },
        { 4, 2, "Text_mag_intensity", "" },
        { 4, -1, "Text_mag_intensity", "" },
        { 5, 1, "Text_mag_intensity", "" },
        { 2, 1, "Text_alpha_s", "unread" },
        { 1, 1, "Text_inversion_par", "" },
        { 0, 1, "Text_depth_weighting_file", "gone.sus" },
        { 0, 1, "Text_rock_propery_file", "gone.lkp" },
    };
    for (const auto & [method, type, box, text] : cases) {
        Checked c(folder, method);
        c.record().obs_data_types[0] = type;
        c.setup.form[box].text = text;
        EXPECT_EQ(c.check(), Texts{}) << box;
    }
    Checked zeros(folder, 2); // the unread box counts in the one test of all four
    for (const char * box : { "Text_alpha_e", "Text_alpha_n", "Text_alpha_v" }) zeros.type(box, "0");
    EXPECT_EQ(zeros.check(), Texts{});
    zeros.type("Text_alpha_s", "0");
    EXPECT_EQ(zeros.check(), Texts{ "The alpha values cannot all be zero" });
}

TEST(check_inversion_definitions, given_a_record_of_different_numbers_then_each_box_goes_back_to_its_own_field)
{
    const TemporaryFolder folder;
    for (const std::int32_t method : { 1, 3, 4 }) {
        Checked c(folder, method);
        Record & r = c.record();
        r.obs_base_value = 5, r.obs_scale_value = 6, r.error_percent = 7, r.error_floor = 0.7F;
        r.data_values_per_cell = 8, r.data_integration_time = 9, r.elevation_offset = { -10, -11, -12 };
        r.line_azimuth = 13, r.background_value = 14, r.mag_inclination = 15, r.mag_declination = 16, r.mag_intensity = 17;
        r.trade_off = 18, r.misfit_tolerance = 19, r.grav_chi_factor = 20, r.max_iterations = 21;
        r.alpha_e = 22, r.alpha_n = 23, r.alpha_v = 24, r.weighting_znot = 25, r.wavelet_itol = 2;
        c.load(r);
        const Record loaded = r;
        EXPECT_EQ(c.check(), Texts{});
        EXPECT_EQ((std::array{ r.data_max_column[0], r.data_max_column[1] }), (std::array{ 4, 3 }));
        r.data_max_column = loaded.data_max_column;
        r.data_type_names = loaded.data_type_names;
        r.matrix_files = loaded.matrix_files;
        EXPECT_EQ(r, loaded) << method;
    }
}

TEST(check_inversion_definitions, given_boxes_then_what_follows_from_them_is_derived)
{
    const TemporaryFolder folder;
    Checked c(folder);
    c.record().obs_data_types = { 100, 3, -1, -1, -1, -1, -1 };
    c.record().max_iterations = 50; // of a box that is blank: the solver's own
    c.record().data_extra_value_column = 9;
    c.record().data_file[2] = "gone.grd"; // not looked at
    c.setup.form["Text_initial_file"].text = " 0.01 ";
    c.setup.form["Text_UBC_locations_nstep"].text = "0";
    EXPECT_EQ(c.check(), Texts{});
    const Record & r = c.record();
    EXPECT_EQ((Texts{ r.initial_model, r.reference_model }), (Texts{ "0.01", "null" }));
    EXPECT_EQ(
        (std::array{ r.data_first_line[0], r.data_read_step[0], r.data_max_column[0], r.max_iterations, r.obs_data_type_count }),
        (std::array{ 2, 1, 9, 0, 2 }));
    EXPECT_EQ(r.data_type_names[0] + " " + r.data_type_names[1], "VMI VKa");
    EXPECT_EQ(r.matrix_files[0], "QVinv3D_Tx.mtx|QVinv3D_Ty.mtx|QVinv3D_Tz.mtx");
    EXPECT_EQ(c.setup.design_mesh.total_cells, (std::array{ 14, 14, 13 }));
}

TEST(check_inversion_definitions, given_a_file_that_is_not_there_then_the_user_is_asked_or_the_top_of_the_mesh_is_used)
{
    const TemporaryFolder folder;
    Checked c(folder);
    const std::string there = c.record().data_file[0];
    c.record().data_file = { "gone.dat", "" };
    c.dialogs.picks = { there };
    EXPECT_EQ(c.check(), Texts{});
    EXPECT_EQ(c.dialogs.questions, Texts{ "Locate the missing file: Observed Data file" });
    EXPECT_EQ((Texts{ c.record().data_file[0], c.text("Text_data_locations") }), (Texts{ there, there }));
    EXPECT_EQ(c.record().topo_type, 1);
    EXPECT_TRUE(c.setup.form("Check_topo_type", 1).on);
}

TEST(check_inversion_definitions, given_grids_then_they_are_refused_after_the_files_have_been_found)
{
    const TemporaryFolder folder;
    const std::string grid = folder.write("a.grd", ""), points = folder.write("a.xyz", "DSAA");
    const std::string no_grid = "Gridded files are not available yet: a.grd. Export the grid to a point file (.xyz or .csv) ";
    const std::tuple<std::size_t, std::string, std::string> cases[] = {
        { 1, grid, no_grid + "and use that" },
        { 2, "", "The observed data grid file must be specified" },
        { 2, "gone.grd", "The observed data grid file does not exist" },
        { 3, "gone.grd", "The observed data 2 grid file does not exist" },
        { 4, "gone.grd", "The observed data 3 grid file does not exist" },
        { 4, points, "The grid file format could not be dertermined for the file: a.xyz" },
        { 5, "gone.grd", "The sensor grid file does not exist" },
    };
    for (const auto & [slot, file, message] : cases) {
        Checked c(folder);
        c.record().data_file_type = 1;
        c.record().data_file[2] = grid;
        c.record().data_file[slot] = file;
        EXPECT_EQ(c.check(), Texts{ message });
    }
}

TEST(check_inversion_definitions, given_model_files_then_they_are_found_where_the_solvers_run)
{
    const TemporaryFolder folder;
    make_folder_path(folder.file("Run"));
    const std::string inside = folder.write("Run\\w.mod", ""), outside = folder.write("b.mod", "");
    const std::array<std::string, 4> cases[] = {
        { "run", inside, "", "w.mod" },                          // the folder is dropped, compared without case
        { "Run", folder.file("elsewhere\\w.mod"), "", "w.mod" }, // moved into the inversion folder
        { "Run", outside, "", outside },                         // stays where it is
        { "Run", "gone.mod", outside, outside },                 // asked for
        { "Run", " NULL ", "", "null" },
    };
    for (const auto & [run, given, pick, expected] : cases) {
        Checked c(folder);
        c.type("Dir1", folder.path());
        c.type("Text_directory_name", run);
        c.record().weighting_model = given;
        if (!pick.empty()) c.dialogs.picks = { pick };
        EXPECT_EQ(c.check(), Texts{});
        EXPECT_EQ(c.record().weighting_model, expected);
        EXPECT_EQ(c.setup.in_use.model_file, expected != "null");
    }
}

TEST(check_inversion_definitions, given_bounds_and_reference_then_what_is_in_use_is_noted)
{
    const TemporaryFolder folder;
    const std::string rock = folder.write("r.lkp", "");
    struct Case {
        std::int32_t method;
        const char *reference, *lower, *upper;
        std::array<std::string, 2> bounds;
        std::array<bool, 4> in_use; // rock table, reference, bounds, model file
    };
    const Case cases[] = {
        { 4, "", "0.5", "9", { "0.5", "old" }, { true, false, true, true } },
        { 5, "", "0 1", "9", { "0 1", "9" }, { true, false, true, true } }, // the first token decides
        { 6, "1", "Null", "", { "old", "old" }, { true, true, false, true } },
        { 6, "", "", "", { "old", "old" }, {} }, // nothing for the table to convert
        { 0, "1", "0.5", "", { "old", "old" }, { false, true, false, true } },
    };
    for (const auto & [method, reference, lower, upper, bounds, in_use] : cases) {
        Checked c(folder, method);
        c.record().model_bounds = { "old", "old" };
        c.type("Text_reference_file", reference);
        c.type("Text_depth_weighting_file", lower, 0);
        c.type("Text_depth_weighting_file", upper, 1);
        c.type("Text_rock_propery_file", rock);
        EXPECT_EQ(c.check(), Texts{});
        EXPECT_EQ(c.record().model_bounds, bounds);
        const auto & [rock_properties, used_reference, used_bounds, model_file] = c.setup.in_use;
        EXPECT_EQ((std::array{ rock_properties, used_reference, used_bounds, model_file }), in_use);
    }
}

TEST(is_grid_file, given_names_and_first_bytes_then_grids_are_told_from_points)
{
    using namespace std::string_view_literals;
    const TemporaryFolder folder;
    const std::pair<const char *, std::string_view> grids[] = {
        { "a.grd", "" }, { "a.TIFF", "" }, { "a.dat", "II*\0"sv }, { "b.dat", "NCols 3" }, { "e.dat", "\x89HDF" }
    };
    for (const auto & [name, content] : grids) EXPECT_TRUE(is_grid_file(folder.write(name, content))) << name;
    for (const auto & [name, content] : { std::pair("a.xyz", "DSAA"), { "c.dat", "CDF X Y" }, { "d.dat", "" } })
        EXPECT_FALSE(is_grid_file(folder.write(name, content))) << name;
}
