#include "definition/definition_lines.h"

#include "definition/enumerations.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <span>

namespace {

bool rest_not_empty(std::string_view rest) { return !trim(rest).empty(); }
bool next_is_numeric(std::string_view rest) { return is_numeric(next_token(rest)); }

void known_method(InversionDefinition & record) { record.inversion_method = inversion_method_of(record.inversion_method).code; }

void at_least_one(std::int32_t & count) { count = std::max(count, 1); }

void usable_observed_lines(InversionDefinition & record)
{
    at_least_one(record.data_first_line[0]);
    at_least_one(record.data_read_step[0]);
}

void usable_topo_lines(InversionDefinition & record)
{
    at_least_one(record.data_first_line[1]);
    at_least_one(record.data_read_step[1]);
}

void no_negative_threads(InversionDefinition & record) { record.num_threads = std::max(record.num_threads, 0); }

void debug_off_or_on(InversionDefinition & record)
{
    if (record.output_debug != 1) record.output_debug = 0;
}

void known_coarse_model(InversionDefinition & record)
{
    if (record.tile_coarse_model < 0 || record.tile_coarse_model > 2) record.tile_coarse_model = 2;
}

/// Stores type codes until the line ends, a token is no number or a code is below `least`.
void take_types(std::string_view rest, std::int32_t least, std::int32_t & count, std::span<std::int32_t> types)
{
    count = 0;
    while (!trim(rest).empty()) {
        const std::string_view token = next_token(rest);
        if (!is_numeric(token)) return;
        const std::int32_t code = leading_count(token);
        if (code < least) return;
        const auto place = static_cast<std::size_t>(count);
        if (place >= types.size()) throw SubscriptFault("subscript out of range: a line holds at most seven data types");
        types[place] = code;
        ++count;
    }
}

/// From version 3 a file keeps the places of types that are not set (-1); before, the first of them ended the list.
void take_observed_types(InversionDefinition & record, std::string_view rest, int version)
{
    take_types(rest, version == 3 ? -1 : 0, record.obs_data_type_count, record.obs_data_types);
}

void take_calculated_types(InversionDefinition & record, std::string_view rest, int)
{
    take_types(rest, 0, record.calc_data_type_count, record.calc_data_types);
}

bool has_calculated_types(const InversionDefinition & record) { return record.calc_data_type_count > 0; }

std::vector<Value> calculated_types(InversionDefinition & record)
{
    std::vector<Value> values;
    for (std::int32_t & code : record.calc_data_types)
        if (static_cast<std::int32_t>(values.size()) < record.calc_data_type_count) values.push_back({ "0", &code });
    return values;
}

/// Minimum, maximum, cell size and cells of an axis. The minimum has one decimal fewer; the file needs it so.
std::vector<Value> range_values(InversionDefinition & record, std::size_t axis)
{
    return {
        { "0.000000", &record.mesh_min[axis] },
        { "0.0000000", &record.mesh_max[axis] },
        { "0.0000000", &record.mesh_cell_size[axis] },
        { "0.0000000", &record.mesh_cells[axis] },
    };
}

/// The uniform core and behind it the multiplier and cells of the lower part.
std::vector<Value> z_range_values(InversionDefinition & record)
{
    std::vector<Value> values = range_values(record, 2);
    values.push_back({ "0.0000000", &record.mesh_cell_size[3] });
    values.push_back({ "0.0000000", &record.mesh_cells[3] });
    return values;
}

std::vector<Line> general_lines(InversionDefinition & r)
{
    return {
        { "Inversion method: ", { { "0", &r.inversion_method } }, "", known_method },
        { "Inversion mode: ", { { "0", &r.inversion_mode } } },
        { "Refinement Mode: ", { { "0", &r.refinement_mode } }, " ! 0=simple, 1=refined" },
    };
}

std::vector<Line> mesh_lines(InversionDefinition & r)
{
    return {
        { "X Range: ", range_values(r, 0) },
        { "Y Range: ", range_values(r, 1) },
        { "Z Range: ", z_range_values(r) },
        { "Add mesh padding: ", { { "0", &r.add_padding_cells }, { "0", &r.use_expanded_mesh } } },
        { "X/Y padding: ", { { "", &r.padding_multipliers[0] } } },
        { "Z padding: ", { { "", &r.padding_multipliers[1] } } },
        { "Smoothness weighting: ", { { "0", &r.create_weighting_file }, { "trimmed", &r.weight_multipliers } } },
    };
}

std::vector<Line> iteration_lines(InversionDefinition & r)
{
    return {
        { "Trade-off parameter: ", { { "str", &r.trade_off } } },
        { "Misfit tolerance: ", { { "str", &r.misfit_tolerance } } },
        { "Maximum iterations: ", { { "0", &r.max_iterations } } },
        { "Obs data types  : ",
          { { "0", &r.obs_data_types[0] }, { "0", &r.obs_data_types[1] }, { "0", &r.obs_data_types[2] } },
          "",
          nullptr,
          take_observed_types },
        { "Line azimuth: ", { { "0.0", &r.line_azimuth } } },
        // The last pattern is no exponent form: without a sign behind it, its E is a letter.
        { "Background removal  : ",
          { { "0", &r.background_method }, { "0.0000", &r.background_value }, { "0.0000E", &r.background_topo } } },
        { "Positivity flag: ", { { "0", &r.positivity } } },
        { "sLog Scaling flag: ", { { "0", &r.slog_scaling } } },
        { "Calculation data types  : ", calculated_types(r), "", nullptr, take_calculated_types, has_calculated_types },
    };
}

std::vector<Line> data_file_lines(InversionDefinition & r)
{
    return {
        { "Data file type: ", { { "0", &r.data_file_type } }, " ! 0=point, 1=grid" },
        { "Obs data file  : ", { { "path", &r.data_file[0] } } },
        { "Topo data file : ", { { "path", &r.data_file[1] } } },
        { "Obs data grid  : ", { { "path", &r.data_file[2] } } },
        { "Obs 2 data grid: ", { { "path", &r.data_file[3] } } },
        { "Obs 3 data grid: ", { { "path", &r.data_file[4] } } },
        { "Sensor grid    : ", { { "path", &r.data_file[5] } } },
        { "Obs data definitions: ",
          { { "0", &r.data_first_line[0] },
            { "0", &r.data_name_line[0] },
            { "0", &r.data_read_step[0] },
            { "0", &r.data_line_column },
            { "0", &r.data_x_column[0] },
            { "0", &r.data_y_column[0] },
            { "0", &r.data_z_column[0] },
            { "0", &r.data_value_column[0] },
            { "0", &r.data_value_column[1] },
            { "0", &r.data_extra_value_column },
            { "0", &r.data_value_column[2], next_is_numeric } },
          "",
          usable_observed_lines },
        { "Number of Obs data per cell: ", { { "0", &r.data_values_per_cell }, { "0.0000", &r.data_integration_time } } },
    };
}

std::vector<Line> correction_lines(InversionDefinition & r)
{
    return {
        { "Obs data base value: ", { { "0.0000", &r.obs_base_value } } },
        { "Obs data scale value: ", { { "0.0000", &r.obs_scale_value } } },
        { "Sensor height definitions: ",
          { { "0", &r.sensor_height_type }, { "0.00", &r.sensor_offset() }, { "0.00", &r.sensor_min_height() } } },
        { "Error percent and floor: ", { { "str", &r.error_percent }, { "str", &r.error_floor } } },
        { "Topo data definitions: ",
          { { "0", &r.data_first_line[1] },
            { "0", &r.data_name_line[1] },
            { "0", &r.data_read_step[1] },
            { "0", &r.data_x_column[1] },
            { "0", &r.data_y_column[1] },
            { "0", &r.data_z_column[1] } },
          "",
          usable_topo_lines },
        { "Topo type: ", { { "0", &r.topo_type } } },
        { "Topo offset: ", { { "0.00", &r.topo_offset() } } },
        { "Topo shift option: ", { { "0", &r.topo_shift_option } } },
    };
}

std::vector<Line> model_lines(InversionDefinition & r)
{
    return {
        { "Initial model: ", { { "path", &r.initial_model } } },
        { "Reference model: ", { { "path", &r.reference_model } } },
        { "Weighting model: ", { { "path", &r.weighting_model } } },
        { "Model Bounds: ", { { "path", &r.model_bounds[0] } } },
        { "Model Upper Bounds: ", { { "path", &r.model_bounds[1] } } },
        { "Rock Property Model: ", { { "path", &r.rock_property_file } } },
        { "Rock properties application: ", { { "0", &r.rock_property_application } } },
    };
}

std::vector<Line> solver_lines(InversionDefinition & r)
{
    return {
        { "Alpha method: ", { { "0", &r.alpha_method } } },
        { "Alpha mode: ", { { "0", &r.alpha_mode } } },
        { "Alpha values: ",
          { { "general", &r.alpha_s }, { "general", &r.alpha_e }, { "general", &r.alpha_n }, { "general", &r.alpha_v } } },
        { "Depth weighting: ",
          { { "0", &r.depth_weighting_mode },
            { "0", &r.depth_weighting_type },
            { "0.00", &r.weighting_beta },
            { "0.000", &r.weighting_znot },
            { "0", &r.smoothness_method, rest_not_empty } } },
        { "Wavelet definitions: ",
          { { "0", &r.wavelet_mode }, { "0", &r.wavelet_type }, { "0.00", &r.wavelet_itol }, { "0.00000", &r.wavelet_eps } } },
        { "Mag field: ", { { "0.00", &r.mag_inclination }, { "0.00", &r.mag_declination }, { "0.00", &r.mag_intensity } } },
        { "Grav3D V2: ", { { "0", &r.grav_iterations }, { "0.000", &r.grav_chi_factor }, { "0", &r.grav_subspace } } },
        { "Number of Threads: ", { { "0", &r.num_threads } }, "", no_negative_threads },
        { "Output Debug Information: ", { { "0", &r.output_debug } }, "", debug_off_or_on },
    };
}

std::vector<Line> tile_lines(InversionDefinition & r)
{
    return {
        { "X tile size: ", { { "0", &r.tile_x_size } } },
        { "Y tile size: ", { { "0", &r.tile_y_size } } },
        { "Tile overlap: ", { { "0", &r.tile_overlap } } },
        { "Tile X/Y blend: ", { { "0", &r.tile_blend } } },
        { "Tile Z blend: ", { { "0", &r.tile_z_blend } } },
        { "Tile order: ", { { "0", &r.tile_order[0] }, { "0", &r.tile_order[1] }, { "0", &r.tile_order[2] } } },
        { "Tile min points: ", { { "0", &r.tile_min_points } } },
        { "Tile use reference: ", { { "0", &r.tile_use_reference } } },
        { "Tile coarse model: ", { { "0", &r.tile_coarse_model } }, "", known_coarse_model },
        { "Include regional mesh: ", { { "0", &r.include_regional_mesh } } },
        { "Use Cluster Controller: ", { { "0", &r.use_cluster_controller } } },
    };
}

}

std::vector<Line> lines_of(InversionDefinition & record)
{
    std::vector<Line> lines;
    for (const auto part :
         { general_lines, mesh_lines, iteration_lines, data_file_lines, correction_lines, model_lines, solver_lines, tile_lines })
        std::ranges::move(part(record), std::back_inserter(lines));
    return lines;
}
