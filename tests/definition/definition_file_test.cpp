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

/// A record with every field that the file holds off its default, within the digits that the file keeps.
InversionDefinition example()
{
    InversionDefinition r;
    r.inversion_method = 6;
    r.inversion_mode = 2;
    r.refinement_mode = 1;
    r.description = "  Survey Élan\r\n\r\nsecond line";
    r.coordinate_transform.rotation = 15;
    r.coordinate_transform.new_x_origin = -100.5;
    normalise_point_transform(r.coordinate_transform);
    r.obs_data_type_count = 3;
    r.obs_data_types = { 20, 21, 22, -1, -1, -1, -1 };
    r.calc_data_type_count = 2;
    r.calc_data_types = { 30, 5, -1, -1, -1, -1, -1 };
    r.line_azimuth = 12.5F;
    r.data_file_type = 1;
    r.data_file = { "C:\\my survey\\Élan 1.dat", "topo.xyz", "grid one.grd", "g2.grd", "g3.ers", "sensor.grd" };
    r.data_first_line[0] = 3, r.data_name_line[0] = 1, r.data_read_step[0] = 5, r.data_line_column = 9;
    r.data_x_column[0] = 4, r.data_y_column[0] = 5, r.data_z_column[0] = 6;
    r.data_value_column = { 7, 8, 11 };
    r.data_extra_value_column = 10;
    r.data_values_per_cell = 4;
    r.data_integration_time = 0.0125F;
    r.obs_base_value = -48000.25F;
    r.obs_scale_value = 0.5F;
    r.sensor_height_type = 1;
    r.elevation_offset = { -1.25F, 2.75F, 30 };
    r.error_percent = 2.5F;
    r.error_floor = 0.05F;
    r.data_first_line[1] = 4, r.data_name_line[1] = 2, r.data_read_step[1] = 3;
    r.data_x_column[1] = 2, r.data_y_column[1] = 1, r.data_z_column[1] = 5;
    r.topo_type = 1;
    r.topo_shift_option = 0;
    r.mesh_min = { 500000.5, 6499999.25, -1000, 0 };
    r.mesh_max = { 506400.125, 6506400, 600, 0 };
    r.mesh_cell_size = { 49.9969726, 50, 25, 1.15 };
    r.mesh_cells = { 128, 128, 64, 12 };
    r.add_padding_cells = 0;
    r.use_expanded_mesh = 0;
    r.padding_multipliers = { "1,2,4", "1,1,2" };
    r.create_weighting_file = 1;
    r.weight_multipliers = "8,4,2";
    r.trade_off = 1.5F;
    r.misfit_tolerance = 0.05F;
    r.max_iterations = 40;
    r.background_method = 2;
    r.background_value = -0.0125F;
    r.background_topo = 350.25F;
    r.positivity = 3;
    r.slog_scaling = 1;
    r.initial_model = "start.sus";
    r.reference_model = "0.001";
    r.weighting_model = "w.dat";
    r.model_bounds = { "-1", "low high.den" };
    r.rock_property_file = "rocks.txt";
    r.rock_property_application = 2;
    r.alpha_method = 1;
    r.alpha_mode = 0;
    r.alpha_s = 0.00001F, r.alpha_e = 2, r.alpha_n = 0.3333333F, r.alpha_v = 1234567;
    r.depth_weighting_mode = 1, r.depth_weighting_type = 1;
    r.weighting_beta = 2.25F, r.weighting_znot = 12.125F;
    r.smoothness_method = 1;
    r.wavelet_mode = 0, r.wavelet_type = 9, r.wavelet_itol = 2, r.wavelet_eps = 0.00125F;
    r.mag_inclination = -62.25F, r.mag_declination = 7.5F, r.mag_intensity = 57321.25F;
    r.grav_iterations = 31, r.grav_chi_factor = 0.875F, r.grav_subspace = 60;
    r.num_threads = 8;
    r.output_debug = 1;
    r.tile_x_size = 64, r.tile_y_size = 96, r.tile_overlap = 16, r.tile_blend = 8, r.tile_z_blend = 4;
    r.tile_order = { 1, 1, 1 };
    r.tile_min_points = 25;
    r.tile_use_reference = 0;
    r.tile_coarse_model = 1;
    r.include_regional_mesh = 1;
    r.use_cluster_controller = 0;
    return r;
}

const std::vector<std::string> example_lines = {
    "Version 3.0",
    "Inversion method: 6",
    "Inversion mode: 2",
    "Refinement Mode: 1 ! 0=simple, 1=refined",
    "X Range: 500000.500000 506400.1250000 49.9969726 128.0000000",
    "Y Range: 6499999.250000 6506400.0000000 50.0000000 128.0000000",
    "Z Range: -1000.000000 600.0000000 25.0000000 64.0000000 1.1500000 12.0000000",
    "Add mesh padding: 0 0",
    "X/Y padding: 1,2,4",
    "Z padding: 1,1,2",
    "Smoothness weighting: 1 8,4,2",
    "Trade-off parameter:  1.5",
    "Misfit tolerance:  .05",
    "Maximum iterations: 40",
    "Obs data types  : 20 21 22",
    "Line azimuth: 12.5",
    "Background removal  : 2 -0.0125 350.2500E",
    "Positivity flag: 3",
    "sLog Scaling flag: 1",
    "Calculation data types  : 30 5",
    "Data file type: 1 ! 0=point, 1=grid",
    "Obs data file  : C:\\my survey\\Élan 1.dat",
    "Topo data file : topo.xyz",
    "Obs data grid  : grid one.grd",
    "Obs 2 data grid: g2.grd",
    "Obs 3 data grid: g3.ers",
    "Sensor grid    : sensor.grd",
    "Obs data definitions: 3 1 5 9 4 5 6 7 8 10 11",
    "Number of Obs data per cell: 4 0.0125",
    "Obs data base value: -48000.2500",
    "Obs data scale value: 0.5000",
    "Sensor height definitions: 1 -1.25 30.00",
    "Error percent and floor:  2.5  .05",
    "Topo data definitions: 4 2 3 2 1 5",
    "Topo type: 1",
    "Topo offset: 2.75",
    "Topo shift option: 0",
    "Initial model: start.sus",
    "Reference model: 0.001",
    "Weighting model: w.dat",
    "Model Bounds: -1",
    "Model Upper Bounds: low high.den",
    "Rock Property Model: rocks.txt",
    "Rock properties application: 2",
    "Alpha method: 1",
    "Alpha mode: 0",
    "Alpha values: 1E-05 2 0.3333333 1234567",
    "Depth weighting: 1 1 2.25 12.125 1",
    "Wavelet definitions: 0 9 2.00 0.00125",
    "Mag field: -62.25 7.50 57321.25",
    "Grav3D V2: 31 0.875 60",
    "Number of Threads: 8",
    "Output Debug Information: 1",
    "X tile size: 64",
    "Y tile size: 96",
    "Tile overlap: 16",
    "Tile X/Y blend: 8",
    "Tile Z blend: 4",
    "Tile order: 1 1 1",
    "Tile min points: 25",
    "Tile use reference: 0",
    "Tile coarse model: 1",
    "Include regional mesh: 1",
    "Use Cluster Controller: 0",
    "[Coordinate transform]",
    " 15  0  1",
    " 0  1 -100.5  0  0",
    " 0  1  0  0  0",
    "[Comments]",
    "  Survey Élan",
    "",
    "second line",
};

std::string joined(const std::vector<std::string> & lines, const char * line_end)
{
    std::string text;
    for (const std::string & line : lines) text += line + line_end;
    return text;
}

std::string line_after(const std::string & text, const std::string & label)
{
    const std::size_t start = text.find("\r\n" + label);
    if (start == std::string::npos) return "no such line";
    return text.substr(start + 2, text.find("\r\n", start + 2) - start - 2);
}

struct Read {
    Status status;
    InversionDefinition record;
    std::vector<std::string> messages;
};

Read read_text(const std::string & content, Selection selection = Selection::all, InversionDefinition record = {})
{
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    const Status status = read_inversion_parameter_file(folder.write("a.inp", content), selection, record, dialogs);
    return { status, record, dialogs.messages };
}

struct QuirkCase {
    const char * name;
    const char * lines;                    ///< behind the version line
    void (*change)(InversionDefinition &); ///< what they change in the example
};

const QuirkCase quirk_cases[] = {
    { "unknown_lines", "Nonsense: 1\ninversion mode: 4\n[Nothing]\n", [](InversionDefinition &) {} },
    { "label_without_colon", "Inversion mode 4\nInversion mode\n", [](InversionDefinition &) {} },
    { "missing_values_are_0", "Inversion mode:\nX Range: 5",
      [](InversionDefinition & r) {
          r.inversion_mode = 0, r.mesh_min[0] = 5, r.mesh_max[0] = r.mesh_cell_size[0] = 0, r.mesh_cells[0] = 0;
      } },
    { "words_are_0_and_halves_even", "Line azimuth: north\nTile overlap: 2.5cells\nTile Z blend: 3.5\n",
      [](InversionDefinition & r) { r.line_azimuth = 0, r.tile_overlap = 2, r.tile_z_blend = 4; } },
    { "later_line_wins", "Topo type: 5\nTopo type: 6\n", [](InversionDefinition & r) { r.topo_type = 6; } },
    { "comment_that_is_a_line", "Topo type: 5\n[Comments]\nnote\n Topo type : 7\n",
      [](InversionDefinition & r) { r.topo_type = 7, r.description = "note\r\nTopo type : 7"; } },
    { "comments_lose_empty_lines_in_front", "[Comments]\n\n\n  a\n\n  b\n",
      [](InversionDefinition & r) { r.description = "  a\r\n\r\nb"; } },
    { "comments_without_text", "[Comments]", [](InversionDefinition & r) { r.description = ""; } },
    { "heading_with_more_text", "[Comments] x\na\n", [](InversionDefinition &) {} },
    { "unset_types_count", "Obs data types: 1 -1 -1",
      [](InversionDefinition & r) { r.obs_data_types[0] = 1, r.obs_data_types[1] = r.obs_data_types[2] = -1; } },
    { "type_below_minus_1_ends", "Obs data types: 1,30;-2 5",
      [](InversionDefinition & r) { r.obs_data_types[0] = 1, r.obs_data_types[1] = 30, r.obs_data_type_count = 2; } },
    { "seven_types", "Obs data types: 1 2 3 4 5 6 10",
      [](InversionDefinition & r) { r.obs_data_types = { 1, 2, 3, 4, 5, 6, 10 }, r.obs_data_type_count = 7; } },
    { "word_ends_types", "Obs data types: 100 x 5\nCalculation data types  : 6 -1 5",
      [](InversionDefinition & r) {
          r.obs_data_types[0] = 100, r.obs_data_type_count = 1, r.calc_data_types[0] = 6, r.calc_data_type_count = 1;
      } },
    { "observed_lines_mended", "Obs data definitions: 0 0 -3 1 2 3 4 5 6 7 x",
      [](InversionDefinition & r) {
          r.data_first_line[0] = 1, r.data_name_line[0] = 0, r.data_read_step[0] = 1, r.data_line_column = 1;
          r.data_x_column[0] = 2, r.data_y_column[0] = 3, r.data_z_column[0] = 4, r.data_value_column = { 5, 6, 11 };
          r.data_extra_value_column = 7; // and the last value, which is no number, leaves 11
      } },
    { "topo_lines_mended", "Topo data definitions: 1 0 0 1 2 3",
      [](InversionDefinition & r) {
          r.data_first_line[1] = 1, r.data_name_line[1] = 0, r.data_read_step[1] = 1;
          r.data_x_column[1] = 1, r.data_y_column[1] = 2, r.data_z_column[1] = 3;
      } },
    { "fifth_depth_value_is_optional", "Depth weighting: 0 0 1 2",
      [](InversionDefinition & r) {
          r.depth_weighting_mode = r.depth_weighting_type = 0, r.weighting_beta = 1, r.weighting_znot = 2;
      } },
    { "values_out_of_range", "Number of Threads: -2\nOutput Debug Information: 2\nInversion method: 7\nTile coarse model: -1",
      [](InversionDefinition & r) { r.num_threads = r.output_debug = 0, r.inversion_method = 4, r.tile_coarse_model = 2; } },
    { "text_is_the_whole_rest", "Smoothness weighting: 0  3, 2 1 \nInitial model:\tD:\\a b;c.sus \n",
      [](InversionDefinition & r) {
          r.create_weighting_file = 0, r.weight_multipliers = "3, 2 1", r.initial_model = "D:\\a b;c.sus";
      } },
    { "bytes_that_are_no_text", "Initial model: a\x01\xE9 \xC3\xA9\x7F.sus\n",
      [](InversionDefinition & r) { r.initial_model = "a é.sus"; } },
    { "carriage_returns_alone", "Topo type: 3\rTile overlap: 1\r",
      [](InversionDefinition & r) { r.topo_type = 3, r.tile_overlap = 1; } },
};

struct FaultCase {
    const char * name;
    const char * lines;
    const char * reason; ///< in the message
};

const FaultCase fault_cases[] = {
    { "eight_types", "Topo type: 9\nObs data types: 1 1 1 1 1 1 1 1\nTile overlap: 1\n", "subscript" },
    { "count_overflow", "Topo type: 9\nMaximum iterations: 3e9\nTile overlap: 1\n", "Overflow" },
    { "float_overflow", "Topo type: 9\nObs data base value: 1e39\nTile overlap: 1\n", "Overflow" },
};

struct RefusalCase {
    const char * name;
    std::string content;
    const char * message;
};

const RefusalCase refusal_cases[] = {
    { "empty", "", "The specified file was empty" },
    { "blank_lines", "\r\n  \r\n", "The specified file was empty" },
    { "version_alone", "Version 3.0\r\n", "The specified file was empty" },
    { "no_version", "12 13\r\nTopo type: 5\r\n", "Varnok cannot handle this file format" },
    { "old_version", "Version 1.9\r\nTopo type: 5\r\n", "Varnok cannot handle this file format" },
    { "short_version", "Ver 3\r\nTopo type: 5\r\n", "Varnok cannot handle this file format" },
    { "binary",
      std::string("\x7F"
                  "ELF\0\x02\n\xFF\xFE",
                  9),
      "Varnok cannot handle this file format" },
};

}

TEST(definition_text, given_a_record_then_every_byte_is_as_the_format_says)
{
    EXPECT_EQ(definition_text(example()), joined(example_lines, "\r\n"));
}

TEST(definition_text, given_a_fresh_record_then_optional_lines_are_left_out)
{
    const std::string text = definition_text(InversionDefinition());
    EXPECT_EQ(line_after(text, "Calculation"), "no such line");
    EXPECT_EQ(line_after(text, "[Coordinate"), "no such line");
    EXPECT_EQ(line_after(text, "Obs data types"), "Obs data types  : 1 -1 -1");
    EXPECT_EQ(line_after(text, "Sensor grid"), "Sensor grid    : ");
    EXPECT_EQ(line_after(text, "Misfit"), "Misfit tolerance:  .02");
    EXPECT_EQ(line_after(text, "Alpha values"), "Alpha values: 0.0001 1 1 1");
    EXPECT_TRUE(text.ends_with("Use Cluster Controller: 1\r\n[Comments]\r\n"));
}

TEST(read_inversion_parameter_file, given_a_whole_file_then_every_field_is_read)
{
    for (const char * line_end : { "\r\n", "\n", "\r" }) {
        const Read read = read_text("\xEF\xBB\xBF" + joined(example_lines, line_end));
        EXPECT_EQ(read.status, Status::good);
        EXPECT_TRUE(read.messages.empty());
        EXPECT_EQ(read.record, example());
    }
}

TEST(read_inversion_parameter_file, given_a_background_topo_that_is_not_set_then_it_stays_so)
{
    InversionDefinition record;
    record.background_topo = -1e30F;
    EXPECT_TRUE(is_missing(read_text(definition_text(record)).record.background_topo));
}

TEST(read_inversion_parameter_file, given_an_odd_line_then_only_what_it_says_changes)
{
    for (const QuirkCase & row : quirk_cases) {
        const Read read = read_text(std::string("Version 3.0\n") + row.lines, Selection::all, example());
        InversionDefinition expected = example();
        row.change(expected);
        EXPECT_EQ(read.record, expected) << row.name;
        EXPECT_EQ(read.status, Status::good) << row.name;
        EXPECT_TRUE(read.messages.empty()) << row.name;
    }
}

TEST(read_inversion_parameter_file, given_version_2_then_a_type_that_is_not_set_ends_the_list)
{
    const Read read = read_text("Version 2.5\nObs data types: 1 -1 5\n");
    EXPECT_EQ(read.record.obs_data_type_count, 1);
    EXPECT_EQ(read.record.obs_data_types[2], -1);
}

TEST(read_inversion_parameter_file, given_a_selection_then_only_two_of_them_take_the_transform)
{
    const std::string text = joined(example_lines, "\n");
    for (const Selection selection : { Selection::all, Selection::parameters })
        EXPECT_TRUE(read_text(text, selection).record.coordinate_transform.in_use);
    for (const Selection selection : { Selection::observed_data, Selection::topography, Selection::mesh }) {
        InversionDefinition expected = example();
        expected.coordinate_transform = PointTransform();
        EXPECT_EQ(read_text(text, selection).record, expected);
    }
}

TEST(read_inversion_parameter_file, given_a_fault_within_then_it_is_told_and_what_was_read_is_kept)
{
    for (const FaultCase & row : fault_cases) {
        const Read read = read_text(std::string("Version 3.0\n") + row.lines);
        EXPECT_EQ(read.status, Status::good) << row.name;
        EXPECT_EQ(read.record.topo_type, 9) << row.name;
        EXPECT_EQ(read.record.tile_overlap, 20) << row.name;
        ASSERT_EQ(read.messages.size(), 1U) << row.name;
        EXPECT_TRUE(read.messages[0].starts_with("An error occured while reading the parameters: ")) << row.name;
        EXPECT_NE(read.messages[0].find(row.reason), std::string::npos) << read.messages[0];
    }
}

TEST(read_inversion_parameter_file, given_no_definition_then_it_is_refused_and_the_record_is_unchanged)
{
    for (const RefusalCase & row : refusal_cases) {
        const Read read = read_text(row.content, Selection::all, example());
        EXPECT_EQ(read.status, Status::bad) << row.name;
        EXPECT_EQ(read.messages, std::vector<std::string>{ row.message }) << row.name;
        EXPECT_EQ(read.record, example()) << row.name;
    }
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    InversionDefinition record;
    for (const std::string & path : { folder.file("none.inp"), folder.path() })
        EXPECT_THROW((void)read_inversion_parameter_file(path, Selection::all, record, dialogs), FileFault) << path;
}

TEST(save_inversion_parameters, given_a_path_then_the_old_file_is_replaced_or_stays_whole)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("old one é.inp", "old");
    save_inversion_parameters(path, DefinitionCheck::pass(example()));
    EXPECT_EQ(folder.read("old one é.inp"), joined(example_lines, "\r\n"));

    InversionDefinition unwritable = example();
    unwritable.trade_off = std::numeric_limits<float>::infinity();
    EXPECT_THROW(save_inversion_parameters(path, DefinitionCheck::pass(unwritable)), Fault);
    EXPECT_EQ(folder.read("old one é.inp"), joined(example_lines, "\r\n"));
    EXPECT_THROW(save_inversion_parameters(folder.file("none\\a.inp"), DefinitionCheck::pass(example())), FileFault);
}
