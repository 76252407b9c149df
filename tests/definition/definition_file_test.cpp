#include "definition/definition_file.h"
#include "definition/definition_text.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "support/missing.h"

#include <gtest/gtest.h>
#include <limits>

/// The tests' own way to a record that may be saved.
struct DefinitionCheck {
    static ValidatedDefinition pass(const InversionDefinition & record) { return { record, InUse() }; }
};

namespace {

using R = InversionDefinition;

struct LineCase {
    const char * line;
    void (*set)(R &); ///< what it says
};

// Every field that the file holds off its default, within the digits that the file keeps.
const LineCase example_lines[] = {
    { "Inversion method: 6", [](R & r) { r.inversion_method = 6; } },
    { "Inversion mode: 2", [](R & r) { r.inversion_mode = 2; } },
    { "Refinement Mode: 1 ! 0=simple, 1=refined", [](R & r) { r.refinement_mode = 1; } },
    { "X Range: 500000.500000 506400.1250000 49.9969726 128.0000000",
      [](R & r) {
          r.mesh_min[0] = 500000.5, r.mesh_max[0] = 506400.125, r.mesh_cell_size[0] = 49.9969726, r.mesh_cells[0] = 128;
      } },
    { "Y Range: 6499999.250000 6506400.0000000 50.0000000 96.0000000",
      [](R & r) { r.mesh_min[1] = 6499999.25, r.mesh_max[1] = 6506400, r.mesh_cell_size[1] = 50, r.mesh_cells[1] = 96; } },
    { "Z Range: -1000.000000 600.0000000 25.0000000 64.0000000 1.1500000 12.0000000",
      [](R & r) {
          r.mesh_min[2] = -1000, r.mesh_max[2] = 600, r.mesh_cell_size[2] = 25, r.mesh_cells[2] = 64;
          r.mesh_cell_size[3] = 1.15, r.mesh_cells[3] = 12;
      } },
    { "Add mesh padding: 2 0", [](R & r) { r.add_padding_cells = 2, r.use_expanded_mesh = 0; } },
    { "X/Y padding: 1,2,4", [](R & r) { r.padding_multipliers[0] = "1,2,4"; } },
    { "Z padding: 1,1,2", [](R & r) { r.padding_multipliers[1] = "1,1,2"; } },
    { "Smoothness weighting: 1 8,4,2", [](R & r) { r.create_weighting_file = 1, r.weight_multipliers = "8,4,2"; } },
    { "Trade-off parameter:  1.5", [](R & r) { r.trade_off = 1.5F; } },
    { "Misfit tolerance:  .05", [](R & r) { r.misfit_tolerance = 0.05F; } },
    { "Maximum iterations: 40", [](R & r) { r.max_iterations = 40; } },
    { "Obs data types  : 20 21 22", [](R & r) { r.obs_data_types = { 20, 21, 22, -1, -1, -1, -1 }, r.obs_data_type_count = 3; } },
    { "Line azimuth: 12.5", [](R & r) { r.line_azimuth = 12.5F; } },
    { "Background removal  : 2 -0.0125 350.2500E",
      [](R & r) { r.background_method = 2, r.background_value = -0.0125F, r.background_topo = 350.25F; } },
    { "Positivity flag: 3", [](R & r) { r.positivity = 3; } },
    { "sLog Scaling flag: 1", [](R & r) { r.slog_scaling = 1; } },
    { "Calculation data types  : 30 5",
      [](R & r) { r.calc_data_types = { 30, 5, -1, -1, -1, -1, -1 }, r.calc_data_type_count = 2; } },
    { "Data file type: 1 ! 0=point, 1=grid", [](R & r) { r.data_file_type = 1; } },
    { "Obs data file  : C:\\my survey\\Élan 1.dat", [](R & r) { r.data_file[0] = "C:\\my survey\\Élan 1.dat"; } },
    { "Topo data file : topo.xyz", [](R & r) { r.data_file[1] = "topo.xyz"; } },
    { "Obs data grid  : grid one.grd", [](R & r) { r.data_file[2] = "grid one.grd"; } },
    { "Obs 2 data grid: g2.grd", [](R & r) { r.data_file[3] = "g2.grd"; } },
    { "Obs 3 data grid: g3.ers", [](R & r) { r.data_file[4] = "g3.ers"; } },
    { "Sensor grid    : sensor.grd", [](R & r) { r.data_file[5] = "sensor.grd"; } },
    { "Obs data definitions: 3 1 5 9 4 5 6 7 8 10 11",
      [](R & r) {
          r.data_first_line[0] = 3, r.data_name_line[0] = 1, r.data_read_step[0] = 5, r.data_line_column = 9;
          r.data_x_column[0] = 4, r.data_y_column[0] = 5, r.data_z_column[0] = 6;
          r.data_value_column = { 7, 8, 11 }, r.data_extra_value_column = 10;
      } },
    { "Number of Obs data per cell: 4 0.0125", [](R & r) { r.data_values_per_cell = 4, r.data_integration_time = 0.0125F; } },
    { "Obs data base value: -48000.2500", [](R & r) { r.obs_base_value = -48000.25F; } },
    { "Obs data scale value: 0.5000", [](R & r) { r.obs_scale_value = 0.5F; } },
    { "Sensor height definitions: 1 -1.25 30.00",
      [](R & r) { r.sensor_height_type = 1, r.sensor_offset() = -1.25F, r.sensor_min_height() = 30; } },
    { "Error percent and floor:  2.5  .05", [](R & r) { r.error_percent = 2.5F, r.error_floor = 0.05F; } },
    { "Topo data definitions: 4 2 3 2 1 5",
      [](R & r) {
          r.data_first_line[1] = 4, r.data_name_line[1] = 2, r.data_read_step[1] = 3;
          r.data_x_column[1] = 2, r.data_y_column[1] = 1, r.data_z_column[1] = 5;
      } },
    { "Topo type: 1", [](R & r) { r.topo_type = 1; } },
    { "Topo offset: 2.75", [](R & r) { r.topo_offset() = 2.75F; } },
    { "Topo shift option: 0", [](R & r) { r.topo_shift_option = 0; } },
    { "Initial model: start.sus", [](R & r) { r.initial_model = "start.sus"; } },
    { "Reference model: 0.001", [](R & r) { r.reference_model = "0.001"; } },
    { "Weighting model: w.dat", [](R & r) { r.weighting_model = "w.dat"; } },
    { "Model Bounds: -1", [](R & r) { r.model_bounds[0] = "-1"; } },
    { "Model Upper Bounds: low high.den", [](R & r) { r.model_bounds[1] = "low high.den"; } },
    { "Rock Property Model: rocks.txt", [](R & r) { r.rock_property_file = "rocks.txt"; } },
    { "Rock properties application: 2", [](R & r) { r.rock_property_application = 2; } },
    { "Alpha method: 1", [](R & r) { r.alpha_method = 1; } },
    { "Alpha mode: 0", [](R & r) { r.alpha_mode = 0; } },
    { "Alpha values: 1E-05 2 0.3333333 1234567",
      [](R & r) { r.alpha_s = 0.00001F, r.alpha_e = 2, r.alpha_n = 0.3333333F, r.alpha_v = 1234567; } },
    { "Depth weighting: 1 2 2.25 12.125 3",
      [](R & r) {
          r.depth_weighting_mode = 1, r.depth_weighting_type = 2;
          r.weighting_beta = 2.25F, r.weighting_znot = 12.125F, r.smoothness_method = 3;
      } },
    { "Wavelet definitions: 0 9 2.00 0.00125",
      [](R & r) { r.wavelet_mode = 0, r.wavelet_type = 9, r.wavelet_itol = 2, r.wavelet_eps = 0.00125F; } },
    { "Mag field: -62.25 7.50 57321.25",
      [](R & r) { r.mag_inclination = -62.25F, r.mag_declination = 7.5F, r.mag_intensity = 57321.25F; } },
    { "Grav3D V2: 31 0.875 60", [](R & r) { r.grav_iterations = 31, r.grav_chi_factor = 0.875F, r.grav_subspace = 60; } },
    { "Number of Threads: 8", [](R & r) { r.num_threads = 8; } },
    { "Output Debug Information: 1", [](R & r) { r.output_debug = 1; } },
    { "X tile size: 64", [](R & r) { r.tile_x_size = 64; } },
    { "Y tile size: 96", [](R & r) { r.tile_y_size = 96; } },
    { "Tile overlap: 16", [](R & r) { r.tile_overlap = 16; } },
    { "Tile X/Y blend: 8", [](R & r) { r.tile_blend = 8; } },
    { "Tile Z blend: 4", [](R & r) { r.tile_z_blend = 4; } },
    { "Tile order: 1 2 3",
      [](R & r) {
          r.tile_order = { 1, 2, 3 };
      } },
    { "Tile min points: 25", [](R & r) { r.tile_min_points = 25; } },
    { "Tile use reference: 0", [](R & r) { r.tile_use_reference = 0; } },
    { "Tile coarse model: 1", [](R & r) { r.tile_coarse_model = 1; } },
    { "Include regional mesh: 1", [](R & r) { r.include_regional_mesh = 1; } },
    { "Use Cluster Controller: 0", [](R & r) { r.use_cluster_controller = 0; } },
    { "[Coordinate transform]", [](R & r) { r.coordinate_transform.rotation = 15; } },
    { " 15  0  1", [](R & r) { r.coordinate_transform.new_x_origin = -100.5; } },
    { " 0  1 -100.5  0  0", [](R & r) { normalise_point_transform(r.coordinate_transform); } },
    { " 0  1  0  0  0", [](R &) {} },
    { "[Comments]", [](R & r) { r.description = "  Survey Élan\r\n\r\nsecond line"; } },
    { "  Survey Élan\r\n\r\nsecond line", [](R &) {} },
};

R example()
{
    R record;
    for (const LineCase & row : example_lines) row.set(record);
    return record;
}

std::string example_text()
{
    std::string text = "Version 3.0\r\n";
    for (const LineCase & row : example_lines) text += std::string(row.line) + "\r\n";
    return text;
}

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

// Lines behind the version line, and what they change in the example.
const LineCase odd_lines[] = {
    { "Nonsense: 1\ninversion mode: 4\n[Comments] x\nInversion mode 4\nInversion mode\n", [](R &) {} },
    { "Inversion mode:\nX Range: 5",
      [](R & r) { r.inversion_mode = 0, r.mesh_min[0] = 5, r.mesh_max[0] = r.mesh_cell_size[0] = 0, r.mesh_cells[0] = 0; } },
    { "Line azimuth: north\nTile overlap: 2.5cells\nTile Z blend: 3.5\n",
      [](R & r) { r.line_azimuth = 0, r.tile_overlap = 2, r.tile_z_blend = 4; } },
    { "Topo type: 5\n[Comments]\n\nnote\n Topo type : 7\n", // a comment that is a line, and wins as the later one
      [](R & r) { r.topo_type = 7, r.description = "note\r\nTopo type : 7"; } },
    { "[Comments]\n\n\n  a\n\n  b\n", [](R & r) { r.description = "  a\r\n\r\nb"; } },
    { "[Comments]", [](R & r) { r.description = ""; } },
    // data types
    { "Obs data types: 1 -1 -1", [](R & r) { r.obs_data_types = { 1, -1, -1, -1, -1, -1, -1 }; } }, // and counts three
    { "Obs data types: 1,30;-2 5", [](R & r) { r.obs_data_types = { 1, 30, 22, -1, -1, -1, -1 }, r.obs_data_type_count = 2; } },
    { "Obs data types: 1 2 3 4 5 6 10", [](R & r) { r.obs_data_types = { 1, 2, 3, 4, 5, 6, 10 }, r.obs_data_type_count = 7; } },
    { "Obs data types: 100 x 5\nCalculation data types  : 6 -1 5",
      [](R & r) { r.obs_data_types[0] = 100, r.calc_data_types[0] = 6, r.obs_data_type_count = r.calc_data_type_count = 1; } },
    // values that are mended, or that may be missing: the eleventh column and the smoothness stay
    { "Obs data definitions: 0 1 -3 9 4 5 6 7 8 10 x", [](R & r) { r.data_first_line[0] = r.data_read_step[0] = 1; } },
    { "Topo data definitions: 0 2 0 2 1 5", [](R & r) { r.data_first_line[1] = r.data_read_step[1] = 1; } },
    { "Depth weighting: 1 2 1 2", [](R & r) { r.weighting_beta = 1, r.weighting_znot = 2; } },
    { "Number of Threads: -2\nOutput Debug Information: 2\nInversion method: 7\nTile coarse model: -1",
      [](R & r) { r.num_threads = r.output_debug = 0, r.inversion_method = 4, r.tile_coarse_model = 2; } },
    // texts
    { "Smoothness weighting: 0  3, 2 1 \nInitial model:\tD:\\a b;c.sus \n",
      [](R & r) { r.create_weighting_file = 0, r.weight_multipliers = "3, 2 1", r.initial_model = "D:\\a b;c.sus"; } },
    { "Initial model: a\x01\xE9 \xC3\xA9\x7F.sus\n", [](R & r) { r.initial_model = "a é.sus"; } },
};

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

TEST(definition_text, given_a_fresh_record_then_optional_lines_are_left_out)
{
    R record;
    record.background_topo = -1e30F; // not set
    const std::string text = definition_text(record);
    EXPECT_TRUE(is_missing(read_text(text).record.background_topo));
    for (const char * part : { "Calculation", "[Coordinate" }) EXPECT_EQ(text.find(part), std::string::npos) << part;
    for (const char * part : { "Obs data types  : 1 -1 -1\r\n", "Sensor grid    : \r\n", "Alpha values: 0.0001 1 1 1\r\n" })
        EXPECT_NE(text.find(part), std::string::npos) << part;
    EXPECT_TRUE(text.ends_with("Use Cluster Controller: 1\r\n[Comments]\r\n"));
}

TEST(read_inversion_parameter_file, given_an_odd_line_then_only_what_it_says_changes)
{
    for (const LineCase & row : odd_lines) {
        const Read read = read_text(std::string("Version 3.0\n") + row.line, Selection::all, example());
        R expected = example();
        row.set(expected);
        EXPECT_EQ(read.record, expected) << row.line;
        EXPECT_TRUE(read.status == Status::good && read.messages.empty()) << row.line;
    }
    EXPECT_EQ(read_text("Version 2.5\nObs data types: 1 -1 5\n").record.obs_data_type_count, 1); // there -1 ends the list
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
    const std::pair<const char *, const char *> cases[] = { { "Obs data types: 1 1 1 1 1 1 1 1", "subscript" },
                                                            { "Maximum iterations: 3e9", "Overflow" },
                                                            { "Obs data base value: 1e39", "Overflow" } };
    for (const auto & [line, reason] : cases) {
        const Read read = read_text(std::string("Version 3.0\nTopo type: 9\n") + line + "\nTile overlap: 1\n");
        EXPECT_EQ(read.status, Status::good) << line;
        EXPECT_TRUE(read.record.topo_type == 9 && read.record.tile_overlap == 20) << line;
        ASSERT_EQ(read.messages.size(), 1U) << line;
        EXPECT_TRUE(read.messages[0].starts_with(std::string("An error occured while reading the parameters: ") + reason))
            << line;
    }
}

TEST(read_inversion_parameter_file, given_no_definition_then_it_is_refused_and_the_record_is_unchanged)
{
    const std::pair<const char *, const char *> cases[] = {
        { "", "The specified file was empty" },
        { "\r\n  \r\n", "The specified file was empty" },
        { "Version 3.0\r\n", "The specified file was empty" },
        { "12 13\r\nTopo type: 5\r\n", "Varnok cannot handle this file format" },
        { "Version 1.9\r\nTopo type: 5\r\n", "Varnok cannot handle this file format" },
        { "Ver 3\r\nTopo type: 5\r\n", "Varnok cannot handle this file format" },
    };
    for (const auto & [content, message] : cases) {
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
