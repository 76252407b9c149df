#include "rules/checked_setup.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

}

TEST(check_inversion_definitions, given_one_fault_or_all_later_ones_too_then_the_first_has_its_message)
{
    const TemporaryFolder folder;
    const auto faults = cases_of<3>("validation.cases");
    for (auto row = faults.begin(); row != faults.end(); ++row) {
        const auto & [method, fault, message] = *row;
        Checked single(folder, method), several(folder, method);
        single.make(fault);
        const bool has_folder = message.ends_with('@');
        const Texts expected = { has_folder ? message.substr(0, message.size() - 1) + current_folder() : message };
        EXPECT_EQ(single.check(), expected);
        for (auto later = faults.end(); later-- != row;)
            if ((*later)[0] == method) several.make((*later)[1]);
        EXPECT_EQ(several.check(), expected);
    }
}

TEST(check_inversion_definitions, given_quirks_that_users_rely_on_then_the_check_passes)
{
    const TemporaryFolder folder;
    for (const auto & [method, quirk] : cases_of<2>("validation_passes.cases")) {
        Checked c(folder, method);
        c.make(quirk);
        EXPECT_EQ(c.check(), Texts{}) << quirk;
    }
    Checked zeros(folder, "2");
    zeros.act("Text_alpha_e = 0; Text_alpha_n = 0; Text_alpha_v = 0; Text_alpha_s = 0");
    EXPECT_EQ(zeros.check(), Texts{ "The alpha values cannot all be zero" });
}

TEST(check_inversion_definitions, given_a_record_of_different_numbers_then_each_box_goes_back_to_its_own_field)
{
    const TemporaryFolder folder;
    const std::string common = "Obs data base value: 9; Obs data scale value: 9; Error percent and floor: 9 9;"
                               "Number of Obs data per cell: 9 3; Sensor height definitions: -1 9 -12;";
    const std::pair<const char *, std::string> cases[] = {
        { "1", common + "Grav3D V2: 9 9 9" },
        { "3", common + "Alpha values: 9 9 9 9; Mag field: 9 9 9; Misfit tolerance: 9" },
        { "4", common + "Alpha values: 9 9 9 9; Trade-off parameter: 9; Wavelet definitions: 1 3 9 9" },
    };
    for (const auto & [method, forgotten] : cases) {
        Checked c(folder, method);
        InversionDefinition & r = c.record();
        take_lines("Obs data base value: 5; Obs data scale value: 6; Error percent and floor: 7 0.7;"
                   "Number of Obs data per cell: 8 9; Sensor height definitions: -1 -10 -12; Topo offset: -11;"
                   "Line azimuth: 13; Background removal: 0 14 0; Mag field: 15 16 17; Trade-off parameter: 18;"
                   "Misfit tolerance: 19; Grav3D V2: 30 20 50; Maximum iterations: 21; Alpha values: 0.0001 22 23 24;"
                   "Depth weighting: 1 0 3 25; Wavelet definitions: 1 3 2 0.001",
                   r);
        c.load(InversionDefinition(r));
        const std::string loaded = definition_text(r);
        take_lines(forgotten, r); // what the boxes alone still know
        EXPECT_EQ(c.check(), Texts{});
        EXPECT_EQ((std::array{ r.data_max_column[0], r.data_max_column[1] }), (std::array{ 4, 3 }));
        EXPECT_EQ(definition_text(r), loaded) << method;
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
    const InversionDefinition & r = c.record();
    EXPECT_EQ((Texts{ r.initial_model, r.reference_model }), (Texts{ "0.01", "null" }));
    EXPECT_EQ(
        (std::array{ r.data_first_line[0], r.data_read_step[0], r.data_max_column[0], r.max_iterations, r.obs_data_type_count }),
        (std::array{ 2, 1, 9, 0, 2 }));
    EXPECT_EQ(r.data_type_names[0] + " " + r.data_type_names[1], "VMI VKa");
    EXPECT_EQ(r.matrix_files[0], "QVinv3D_Tx.mtx|QVinv3D_Ty.mtx|QVinv3D_Tz.mtx");
    EXPECT_EQ(c.setup.design_mesh.total_cells, (std::array{ 14, 14, 13 }));
}

const std::string bitmap_of_one_pixel("BM\x3A\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\4\0\0\0"
                                      "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\2\3\0",
                                      58);

TEST(check_inversion_definitions, given_files_models_and_bounds_then_they_are_found_or_refused_and_noted_as_in_use)
{
    const TemporaryFolder folder;
    make_folder_path(folder.file("Run"));
    for (const char * file : { "b.mod", "Run\\w.mod", "r.lkp" }) folder.write(file, "");
    folder.write("a.grd", "DSAA\n2 2\n0 1\n0 1\n1 4\n1 2\n3 4\n");
    folder.write("a.xyz", "DSAA");
    folder.write("p.bmp", bitmap_of_one_pixel);
    folder.write("p.bpw", "10\n0\n0\n-10\n5\n5\n");
    const auto here = [&](std::string text) {
        for (auto at = text.find('@'); at != text.npos; at = text.find('@')) text.replace(at, 1, folder.path());
        return text;
    };
    for (const auto & [method, steps, asked, message, seen, in_use] : cases_of<6>("validation_files.cases")) {
        SCOPED_TRACE(method + " " + steps);
        Checked c(folder, method);
        c.record().model_bounds = { "old", "old" };
        c.make(here(steps));
        const auto arrow = asked.find(" ->");
        if (arrow + 3 < asked.size()) c.dialogs.picks = { here(asked.substr(arrow + 4)) };
        EXPECT_EQ(c.check(), message.empty() ? Texts{} : Texts{ message });
        EXPECT_EQ(c.dialogs.questions, asked.empty() ? Texts{} : Texts{ "Locate the missing file: " + asked.substr(0, arrow) });
        if (!message.empty()) continue;
        if (!seen.empty()) c.expect(here(seen));
        for (std::size_t slot = 0; slot < 6; ++slot)
            EXPECT_EQ(c.record().data_kind[slot] == 1, c.record().data_file[slot].ends_with(".grd")) << slot;
        std::string used;
        if (c.setup.in_use.rock_properties) used += "rock ";
        if (c.setup.in_use.reference) used += "reference ";
        if (c.setup.in_use.bounds) used += "bounds ";
        if (c.setup.in_use.model_file) used += "model ";
        EXPECT_EQ(trim(used), in_use);
    }
}
