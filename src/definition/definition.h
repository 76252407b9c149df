#pragma once

#include "utilities/point_transform.h"

#include <array>
#include <cstdint>
#include <string>

/// Everything that the user sets for one inversion: the chief record of the program.
///
/// Truth fields are 0 and 1. The 32-bit fields are 32-bit in the files too. `read_inversion_parameter_file` fills a record in
/// which nothing has been checked; the form shows it; `check_inversion_definitions` makes a `ValidatedDefinition` of both.
struct InversionDefinition {
    // general
    std::int32_t inversion_method = 4; ///< a code of `inversion_methods`
    std::int32_t inversion_mode = 0;
    std::int32_t refinement_mode = 0; ///< 0 one inversion of the whole mesh, 1 tiled
    std::string description;
    PointTransform coordinate_transform; ///< from data to mesh coordinates

    // data types; seven places, because a file may hold seven types, though only six are ever looked at
    std::int32_t obs_data_type_count = 1;
    std::array<std::int32_t, 7> obs_data_types = { 1, -1, -1, -1, -1, -1, -1 };
    std::int32_t calc_data_type_count = 0;
    std::array<std::int32_t, 7> calc_data_types = { -1, -1, -1, -1, -1, -1, -1 };
    float line_azimuth = 0;                     ///< degrees clockwise from north
    std::array<std::string, 6> data_type_names; ///< derived by the check
    std::array<std::string, 6> matrix_files;    ///< derived by the check

    // data files and columns; slots: 0 observed points, 1 topography, 2 to 4 observed grids, 5 sensor grid
    std::int32_t data_file_type = 0; ///< 0 points, 1 grids
    std::array<std::string, 6> data_file;
    std::array<std::int32_t, 6> data_kind = {}; ///< derived: 0 text file, 1 grid, 2 database
    std::array<std::int32_t, 6> data_first_line = { 2, 2, 2, 2, 2, 2 };
    std::array<std::int32_t, 6> data_name_line = {};
    std::array<std::int32_t, 6> data_read_step = { 1, 1, 1, 1, 1, 1 };
    std::array<std::int32_t, 6> data_x_column = { 1, 1, 1, 1, 1, 1 };
    std::array<std::int32_t, 6> data_y_column = { 2, 2, 2, 2, 2, 2 };
    std::array<std::int32_t, 6> data_z_column = { 3, 3, 3, 3, 3, 3 };
    std::array<std::int32_t, 3> data_value_column = { 4, 0, 0 };
    std::int32_t data_line_column = 0;
    std::int32_t data_extra_value_column = 0;
    std::int32_t data_values_per_cell = 1; ///< most readings kept per cell, 0 all
    float data_integration_time = 0;
    std::array<std::int32_t, 6> data_max_column = {}; ///< derived by the check

    // corrections, sensor and topography
    float obs_base_value = 0;
    float obs_scale_value = 1;
    std::int32_t sensor_height_type = -1;       ///< 0 above the ground, 1 actual elevation, -1 not chosen
    std::array<float, 3> elevation_offset = {}; ///< metres: sensor_offset, topo_offset, sensor_min_height
    std::int32_t topo_type = 0;                 ///< 0 from a file, 1 the top of the mesh
    std::int32_t topo_shift_option = 1;
    float error_percent = 0;
    float error_floor = 0;

    // mesh; 0 x, 1 y, 2 the uniform z core, 3 the lower z part (whose cell size is a multiplier)
    std::array<double, 4> mesh_min = {};
    std::array<double, 4> mesh_max = {};
    std::array<double, 4> mesh_cell_size = {};
    std::array<std::int32_t, 4> mesh_cells = {};
    std::int32_t add_padding_cells = 1;
    std::array<std::string, 2> padding_multipliers = { "1,2,4,8", "1,2,4,8,16" }; ///< x/y, z; from the core outwards

    // iteration and model
    float trade_off = 1;
    float misfit_tolerance = 0.02F;
    std::int32_t max_iterations = 0; ///< 0 the solver's own
    std::int32_t positivity = 0;
    std::int32_t slog_scaling = 0;
    std::string initial_model = "null"; ///< a file, a value or "null", as the next four
    std::string reference_model = "null";
    std::string weighting_model = "null";
    std::array<std::string, 2> model_bounds = { "null", "null" };
    std::string rock_property_file;
    std::int32_t rock_property_application = 0; ///< 0 both, 1 reference only, 2 bounds only
    std::int32_t create_weighting_file = 0;
    std::string weight_multipliers = "16,8,4,2,1";
    std::int32_t smoothness_method = 0;
    std::int32_t alpha_method = 0; ///< 0 alpha, 1 length
    std::int32_t alpha_mode = 1;   ///< 0 default, 1 specified
    float alpha_s = 0.0001F, alpha_e = 1, alpha_n = 1, alpha_v = 1;
    std::int32_t depth_weighting_mode = 0; ///< 0 default, 1 specified
    std::int32_t depth_weighting_type = 0;
    float weighting_beta = 3;
    float weighting_znot = 0;
    std::int32_t wavelet_mode = 1; ///< 0 default, 1 specified
    std::int32_t wavelet_type = 3; ///< position in `wavelet_names`
    float wavelet_itol = 1;
    float wavelet_eps = 0.001F;
    std::int32_t background_method = 0;
    float background_value = 0;
    float background_topo = 0;                      ///< at or below -1e30 not set
    float mag_inclination = 0, mag_declination = 0; ///< degrees
    float mag_intensity = 0;                        ///< nT
    std::int32_t grav_iterations = 30;
    float grav_chi_factor = 1;
    std::int32_t grav_subspace = 50;
    std::int32_t num_threads = 0;
    std::int32_t output_debug = 0;

    // tiles
    std::int32_t tile_x_size = 128, tile_y_size = 128; ///< cells
    std::int32_t tile_overlap = 20;
    std::int32_t tile_blend = 10;
    std::int32_t tile_z_blend = 5;
    std::array<std::int32_t, 3> tile_order = {};
    std::int32_t tile_min_points = 0;
    std::int32_t tile_use_reference = 1;
    std::int32_t tile_coarse_model = 2; ///< 0 refined, 1 coarse, 2 no forward model
    std::int32_t use_expanded_mesh = 1;
    std::int32_t include_regional_mesh = 0;
    std::int32_t use_cluster_controller = 1;

    float & sensor_offset() { return elevation_offset[0]; }
    float & topo_offset() { return elevation_offset[1]; }
    float & sensor_min_height() { return elevation_offset[2]; }
    float sensor_offset() const { return elevation_offset[0]; }
    float topo_offset() const { return elevation_offset[1]; }
    float sensor_min_height() const { return elevation_offset[2]; }

    bool operator==(const InversionDefinition &) const = default;
};

/// Resets a record to the defaults above.
void init_form_inversion_parameters(InversionDefinition & definition);
