#include "rules/box_groups.h"
#include "rules/checked_setup.h"
#include "rules/live_checks.h"
#include "rules/refined_setup.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

/// Puts faulty and good texts into each box of the groups: what is said of the box must be what the check says, or nothing.
void expect_words_of_the_check(const Setup & good, std::initializer_list<std::span<const CheckGroup>> tables)
{
    for (const auto & groups : tables) {
        for (const CheckGroup & group : groups) {
            for (const BoxCheck & box : group.boxes) {
                for (const char * text : { "", "x", "-1", "0", "12.5", "1,2" }) {
                    SCOPED_TRACE(std::string(box.control) + " " + std::to_string(box.index) + " = " + text);
                    RecordedHost host;
                    Setup setup = good;
                    setup.form(box.control, box.index).text = text;
                    const std::string said = box_fault(setup, box.control, box.index);
                    std::optional<ValidatedDefinition> validated;
                    (void)check_inversion_definitions(setup, validated, host.host);
                    EXPECT_EQ(said.empty() ? Texts{} : Texts{ said }, host.dialogs.messages);
                }
            }
        }
    }
}

}

TEST(box_fault, given_a_single_fault_then_the_words_of_the_check_in_every_method_and_mode)
{
    const TemporaryFolder folder;
    for (const char * method : { "1", "2", "3", "4" }) {
        SCOPED_TRACE(method);
        Checked c(folder, method);
        expect_words_of_the_check(c.setup,
                                  { mesh_box_groups(), data_file_groups(), parameter_groups(), tile_definition_groups() });
    }
    Checked grids(folder);
    grids.make("Data file type: 1; Obs data types: 4; Text_line_azimuth = 1; Obs data grid: " +
               folder.write("a.grd", "DSAA\n2 2\n0 1\n0 1\n1 4\n1 2\n3 4\n"));
    expect_words_of_the_check(grids.setup, { data_file_groups(), parameter_groups() });

    Checked refined(folder);
    const std::string mesh = folder.write("base.msh", base_mesh_text);
    ASSERT_EQ(start_refinement(refined.setup, mesh, refined.host), Status::good);
    refined.record().data_file[0] = folder.file("points.dat");
    refined.act("Check_topo_type 1 = on; Text_mag_intensity = 1; Text_cell_size 0 = 2; Text_cell_size 1 = 2; Text_cell_size 2 = "
                "5; Text_x_tile_size := 30; Text_y_tile_size := 30;"
                "Text_tile_overlap := 2; Text_blend_overlap := 2; Text_z_blend := 0; Text_minimum_points := 1");
    ASSERT_EQ(refined.check(), Texts{});
    expect_words_of_the_check(refined.setup, { tile_layout_groups(), tile_definition_groups() });
}

TEST(box_fault, given_what_no_box_text_shows_then_its_words)
{
    const TemporaryFolder folder;
    for (const auto & [steps, box, message] : cases_of<3>("live_checks.cases")) {
        SCOPED_TRACE(steps + " | " + box);
        Checked c(folder);
        c.make(steps);
        const std::size_t blank = box.find(' ');
        EXPECT_EQ(box_fault(c.setup, box.substr(0, blank), blank == box.npos ? 0 : number_in(box.substr(blank + 1))), message);
    }
}
