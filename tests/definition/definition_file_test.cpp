#include "definition/definition_file.h"
#include "definition/definition_text.h"
#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "support/missing.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

/// The tests' own way to a record that may be saved.
struct DefinitionCheck {
    static ValidatedDefinition pass(const InversionDefinition & record) { return { record, InUse() }; }
};

namespace {

using R = InversionDefinition;

/// The record of every_field.inp: every field that a file holds off its default, within the digits that a file keeps.
R example()
{
    R r;
    r.inversion_method = 6, r.inversion_mode = 2, r.refinement_mode = 1;
    r.mesh_min = { 500000.5, 6499999.25, -1000, 0 };
    r.mesh_max = { 506400.125, 6506400, 600, 0 };
    r.mesh_cell_size = { 49.9969726, 50, 25, 1.15 };
    r.mesh_cells = { 128, 96, 64, 12 };
    r.add_padding_cells = 2, r.use_expanded_mesh = 0, r.padding_multipliers = { "1,2,4", "1,1,2" };
    r.create_weighting_file = 1, r.weight_multipliers = "8,4,2";
    r.trade_off = 1.5F, r.misfit_tolerance = 0.05F, r.max_iterations = 40;
    r.obs_data_types = { 20, 21, 22, -1, -1, -1, -1 }, r.obs_data_type_count = 3, r.line_azimuth = 12.5F;
    r.calc_data_types = { 30, 5, -1, -1, -1, -1, -1 }, r.calc_data_type_count = 2;
    r.background_method = 2, r.background_value = -0.0125F, r.background_topo = 350.25F;
    r.positivity = 3, r.slog_scaling = 1;
    r.data_file_type = 1;
    r.data_file = { "C:\\my survey\\Élan 1.dat", "topo.xyz", "grid one.grd", "g2.grd", "g3.ers", "sensor.grd" };
    r.data_first_line = { 3, 4, 2, 2, 2, 2 }, r.data_name_line = { 1, 2 }, r.data_read_step = { 5, 3, 1, 1, 1, 1 };
    r.data_x_column = { 4, 2, 1, 1, 1, 1 }, r.data_y_column = { 5, 1, 2, 2, 2, 2 }, r.data_z_column = { 6, 5, 3, 3, 3, 3 };
    r.data_line_column = 9, r.data_value_column = { 7, 8, 11 }, r.data_extra_value_column = 10;
    r.data_values_per_cell = 4, r.data_integration_time = 0.0125F, r.obs_base_value = -48000.25F, r.obs_scale_value = 0.5F;
    r.sensor_height_type = 1, r.sensor_offset() = -1.25F, r.sensor_min_height() = 30;
    r.error_percent = 2.5F, r.error_floor = 0.05F;
    r.topo_type = 1, r.topo_offset() = 2.75F, r.topo_shift_option = 0;
    r.initial_model = "start.sus", r.reference_model = "0.001", r.weighting_model = "w.dat";
    r.model_bounds = { "-1", "low high.den" }, r.rock_property_file = "rocks.txt", r.rock_property_application = 2;
    r.alpha_method = 1, r.alpha_mode = 0, r.alpha_s = 0.00001F, r.alpha_e = 2, r.alpha_n = 0.3333333F, r.alpha_v = 1234567;
    r.depth_weighting_mode = 1, r.depth_weighting_type = 2, r.weighting_beta = 2.25F, r.weighting_znot = 12.125F;
    r.smoothness_method = 3;
    r.wavelet_mode = 0, r.wavelet_type = 9, r.wavelet_itol = 2, r.wavelet_eps = 0.00125F;
    r.mag_inclination = -62.25F, r.mag_declination = 7.5F, r.mag_intensity = 57321.25F;
    r.grav_iterations = 31, r.grav_chi_factor = 0.875F, r.grav_subspace = 60;
    r.num_threads = 8, r.output_debug = 1;
    r.tile_x_size = 64, r.tile_y_size = 96, r.tile_overlap = 16, r.tile_blend = 8, r.tile_z_blend = 4;
    r.tile_order = { 1, 2, 3 }, r.tile_min_points = 25, r.tile_use_reference = 0, r.tile_coarse_model = 1;
    r.include_regional_mesh = 1, r.use_cluster_controller = 0;
    r.coordinate_transform.rotation = 15, r.coordinate_transform.new_x_origin = -100.5;
    normalise_point_transform(r.coordinate_transform);
    r.description = "  Survey Élan\r\n\r\nsecond line";
    return r;
}

std::string example_text() { return bytes_of(TEST_DATA_FOLDER "/every_field.inp"); }

std::string without(std::string text, char character)
{
    std::erase(text, character);
    return text;
}

struct Read {
    Status status;
    R record;
    std::vector<std::string> messages;
};

Read read_text(const std::string & content, Selection selection = Selection::all, R record = {})
{
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    const Status status = read_inversion_parameter_file(folder.write("a.inp", content), selection, record, dialogs);
    return { status, record, dialogs.messages };
}

/// A definition file in which the lines take the place of those with their labels, and a comment of all comments.
std::string replaced(std::string text, const std::string & lines)
{
    for (std::size_t from = 0, end; from < lines.size(); from = end + 1) {
        end = std::min(lines.find('\n', from), lines.size());
        const std::string line = lines.substr(from, end - from), label = line.substr(0, line.find_first_of(":]"));
        const std::size_t place = text.find("\n" + label) + 1;
        EXPECT_NE(place, 0U) << label;
        if (label == "[Comments") return text.substr(0, place) + lines.substr(from) + "\r\n";
        text.replace(place, text.find('\r', place) - place, line);
    }
    return text;
}

}

TEST(definition_file, given_a_record_then_every_byte_is_as_the_format_says_and_reads_back)
{
    EXPECT_EQ(definition_text(example()), example_text());
    for (const std::string & text :
         { "\xEF\xBB\xBF" + example_text(), without(example_text(), '\r'), without(example_text(), '\n') }) {
        const Read read = read_text(text);
        EXPECT_EQ(read.status, Status::good);
        EXPECT_TRUE(read.messages.empty());
        EXPECT_EQ(read.record, example());
    }
}

TEST(definition_text, given_no_background_topo_then_it_reads_back_as_missing)
{
    R record;
    record.background_topo = -1e30F;
    EXPECT_TRUE(is_missing(read_text(definition_text(record)).record.background_topo));
}

TEST(read_inversion_parameter_file, given_an_odd_line_then_only_what_it_says_changes)
{
    for (const auto & [lines, instead] : cases_of<2>("odd_lines.cases")) {
        const Read read = read_text("Version 3.0\n" + lines, Selection::all, example());
        EXPECT_EQ(definition_text(read.record), replaced(example_text(), instead)) << lines;
        EXPECT_TRUE(read.status == Status::good && read.messages.empty()) << lines;
    }
}

TEST(read_inversion_parameter_file, given_data_types_then_they_are_counted)
{
    for (const auto & [version, list, types, count] : cases_of<4>("data_type_lists.cases")) {
        const R record = read_text("Version " + version + "\nObs data types: " + list, Selection::all, example()).record;
        std::string read;
        for (const std::int32_t type : record.obs_data_types) read += std::to_string(type) + " ";
        EXPECT_EQ(read, types + " ") << list;
        EXPECT_EQ(record.obs_data_type_count, number_in(count)) << list;
    }
    EXPECT_EQ(read_text("Version 3.0\nCalculation data types  : 6 -1 5").record.calc_data_type_count, 1);
}

TEST(read_inversion_parameter_file, given_a_selection_then_only_two_of_them_take_the_transform)
{
    for (const int selection : { 0, 1, 2, 3, 4 }) {
        R expected = example();
        if (selection > 1) expected.coordinate_transform = PointTransform();
        EXPECT_EQ(read_text(example_text(), static_cast<Selection>(selection)).record, expected) << selection;
    }
}

TEST(read_inversion_parameter_file, given_a_fault_within_then_it_is_told_and_what_was_read_is_kept)
{
    for (const auto & [line, reason] : { std::pair<std::string, std::string>("Obs data types: 1 1 1 1 1 1 1 1", "subscript"),
                                         { "Maximum iterations: 3e9", "Overflow" },
                                         { "Obs data base value: 1e39", "Overflow" } }) {
        const Read read = read_text("Version 3.0\nTopo type: 9\n" + line + "\nTile overlap: 1\n");
        EXPECT_EQ(read.status, Status::good) << line;
        EXPECT_TRUE(read.record.topo_type == 9 && read.record.tile_overlap == 20) << line;
        ASSERT_EQ(read.messages.size(), 1U) << line;
        EXPECT_TRUE(read.messages[0].starts_with("An error occured while reading the parameters: " + reason)) << line;
    }
}

TEST(read_inversion_parameter_file, given_no_definition_then_it_is_refused_and_the_record_is_unchanged)
{
    const std::string empty = "The specified file was empty", unknown = "Varnok cannot handle this file format";
    for (const auto & [content, message] : { std::pair("\r\n  \r\n", empty),
                                             { "Version 3.0\r\n", empty },
                                             { "12 13\r\nTopo type: 5\r\n", unknown },
                                             { "Version 1.9\r\nTopo type: 5\r\n", unknown },
                                             { "Ver 3\r\nTopo type: 5\r\n", unknown } }) {
        const Read read = read_text(content, Selection::all, example());
        EXPECT_EQ(read.status, Status::bad) << content;
        EXPECT_EQ(read.messages, std::vector<std::string>{ message }) << content;
        EXPECT_EQ(read.record, example()) << content;
    }
}

TEST(save_inversion_parameters, given_what_cannot_be_written_then_the_old_file_stays_whole)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("old one é.inp", "old");
    save_inversion_parameters(path, DefinitionCheck::pass(example()));
    R unwritable;
    unwritable.trade_off = std::numeric_limits<float>::infinity();
    EXPECT_THROW(save_inversion_parameters(path, DefinitionCheck::pass(unwritable)), Fault);
    EXPECT_EQ(folder.read("old one é.inp"), example_text());
}
