#include "rules/record_blocks.h"

#include "definition/enumerations.h"
#include "mesh/mesh_design.h"
#include "support/numbers.h"

#include <algorithm>
#include <initializer_list>
#include <tuple>

namespace {

using Record = InversionDefinition;

constexpr auto parameter_fields = std::make_tuple(
    &Record::inversion_method, &Record::inversion_mode, &Record::coordinate_transform, &Record::obs_data_type_count,
    &Record::obs_data_types, &Record::calc_data_type_count, &Record::calc_data_types, &Record::line_azimuth, &Record::trade_off,
    &Record::misfit_tolerance, &Record::max_iterations, &Record::positivity, &Record::slog_scaling, &Record::initial_model,
    &Record::reference_model, &Record::weighting_model, &Record::model_bounds, &Record::rock_property_file,
    &Record::rock_property_application, &Record::smoothness_method, &Record::alpha_method, &Record::alpha_mode, &Record::alpha_s,
    &Record::alpha_e, &Record::alpha_n, &Record::alpha_v, &Record::depth_weighting_mode, &Record::depth_weighting_type,
    &Record::weighting_beta, &Record::weighting_znot, &Record::wavelet_mode, &Record::wavelet_type, &Record::wavelet_itol,
    &Record::wavelet_eps, &Record::background_method, &Record::background_value, &Record::background_topo,
    &Record::mag_inclination, &Record::mag_declination, &Record::mag_intensity, &Record::grav_iterations,
    &Record::grav_chi_factor, &Record::grav_subspace, &Record::num_threads, &Record::output_debug,
    &Record::use_cluster_controller);

constexpr auto observed_data_fields =
    std::make_tuple(&Record::data_file_type, &Record::error_percent, &Record::error_floor, &Record::sensor_height_type,
                    &Record::obs_base_value, &Record::obs_scale_value, &Record::data_value_column, &Record::data_line_column,
                    &Record::data_extra_value_column, &Record::data_values_per_cell, &Record::data_integration_time);

constexpr auto topography_fields = std::make_tuple(&Record::topo_type, &Record::topo_shift_option);

constexpr auto mesh_fields = std::make_tuple(
    &Record::mesh_min, &Record::mesh_max, &Record::mesh_cell_size, &Record::mesh_cells, &Record::add_padding_cells,
    &Record::padding_multipliers, &Record::create_weighting_file, &Record::weight_multipliers, &Record::use_expanded_mesh);

constexpr auto tile_fields =
    std::make_tuple(&Record::tile_x_size, &Record::tile_y_size, &Record::tile_overlap, &Record::tile_blend, &Record::tile_z_blend,
                    &Record::tile_order, &Record::tile_min_points, &Record::tile_use_reference, &Record::tile_coarse_model,
                    &Record::include_regional_mesh);

/// The columns of a slot. Slots beyond 1 have a path alone.
constexpr auto column_fields = std::make_tuple(&Record::data_first_line, &Record::data_name_line, &Record::data_read_step,
                                               &Record::data_x_column, &Record::data_y_column, &Record::data_z_column);

template <class Fields>
void copy_fields(const Record & from, const Fields & fields, Record & to)
{
    std::apply([&](auto... field) { ((to.*field = from.*field), ...); }, fields);
}

void copy_columns(const Record & from, std::size_t slot, Record & to)
{
    std::apply([&](auto... field) { (((to.*field)[slot] = (from.*field)[slot]), ...); }, column_fields);
}

void copy_observed_data(const Record & from, Record & to)
{
    copy_fields(from, observed_data_fields, to);
    to.sensor_offset() = from.sensor_offset();
    to.sensor_min_height() = from.sensor_min_height();
    for (std::size_t slot : { 0U, 2U, 3U, 4U, 5U }) to.data_file[slot] = from.data_file[slot];
    copy_columns(from, 0, to);
}

void copy_topography(const Record & from, Record & to)
{
    copy_fields(from, topography_fields, to);
    to.topo_offset() = from.topo_offset();
    to.data_file[1] = from.data_file[1];
    copy_columns(from, 1, to);
}

/// A check shows 1 as on and all else as off; of two options the first shows 0 and the second all else.
void as_checks_show(std::initializer_list<std::int32_t *> flags)
{
    for (std::int32_t * const flag : flags) *flag = *flag == 1 ? 1 : 0;
}

void as_options_show(std::initializer_list<std::int32_t *> modes)
{
    for (std::int32_t * const mode : modes) *mode = *mode == 0 ? 0 : 1;
}

constexpr std::size_t z_axis = 2, lower_part = 3;

void repair_axis(Record & mesh, std::size_t axis)
{
    double & size = mesh.mesh_cell_size[axis];
    std::int32_t & cells = mesh.mesh_cells[axis];
    const double range = mesh.mesh_max[axis] - mesh.mesh_min[axis];
    if (!(size > 0)) {
        cells = std::max(cells, 1);
        size = range / cells;
    }
    if (!(size > 0) || cells == 1) size = cells == 1 && axis == z_axis ? 50 : 100;
    cells = round_to_count(range / size);
    mesh.mesh_max[axis] = mesh.mesh_min[axis] + cells * size;
}

void repair_lower_part(Record & mesh)
{
    const double top = mesh.mesh_min[z_axis];
    const std::int32_t cells = mesh.mesh_cells[lower_part];
    double & multiplier = mesh.mesh_cell_size[lower_part];
    if (cells <= 0) {
        multiplier = 1;
        mesh.mesh_min[lower_part] = top;
    } else if (multiplier <= 1) { // the multiplier itself stands for the cell size here
        mesh.mesh_min[lower_part] = top - cells * multiplier;
    } else {
        mesh.mesh_min[lower_part] = lower_part_bottom(top, mesh.mesh_cell_size[z_axis], multiplier, cells);
    }
}

/// The floor of the errors of the own solver, in the units of its first data type.
float own_error_floor(std::int32_t type)
{
    if (type == -1 || type == 1) return 1;
    if (type == 2) return 0.1F;
    return type < 3 ? 0.01F : 0.1F;
}

}

void copy_block(const InversionDefinition & from, Block block, InversionDefinition & to)
{
    switch (block) {
    case Block::parameters:
        copy_fields(from, parameter_fields, to);
        break;
    case Block::observed_data:
        copy_observed_data(from, to);
        break;
    case Block::topography:
        copy_topography(from, to);
        break;
    case Block::mesh:
        copy_fields(from, mesh_fields, to);
        break;
    case Block::tiles:
        copy_fields(from, tile_fields, to);
        break;
    case Block::description:
        to.description = from.description;
        break;
    }
}

void repair_mesh(InversionDefinition & definition)
{
    if (!(definition.mesh_min[z_axis] < definition.mesh_max[z_axis]))
        definition.mesh_min[z_axis] = definition.mesh_max[z_axis] - 1000;
    for (std::size_t axis : { 0U, 1U, 2U }) repair_axis(definition, axis);
    repair_lower_part(definition);
    as_checks_show({ &definition.add_padding_cells, &definition.create_weighting_file, &definition.use_expanded_mesh });
}

void repair_parameters(InversionDefinition & definition)
{
    definition.inversion_method = inversion_method_of(definition.inversion_method).code;
    const bool own = inversion_method_of(definition.inversion_method).family == MethodFamily::own;
    const auto listed = static_cast<std::int32_t>(positivity_items(own).size());
    if (definition.positivity < 0 || definition.positivity >= listed) definition.positivity = 0;
    definition.max_iterations = std::max(definition.max_iterations, 0);
    as_checks_show({ &definition.slog_scaling, &definition.output_debug, &definition.use_cluster_controller });
    as_options_show({ &definition.alpha_mode, &definition.depth_weighting_mode, &definition.wavelet_mode });
    normalise_point_transform(definition.coordinate_transform);
}

void repair_observed_data(InversionDefinition & definition)
{
    if (definition.obs_scale_value == 0) definition.obs_scale_value = 1;
    if (definition.error_percent != 0 || definition.error_floor != 0) return;
    const std::int32_t type = definition.obs_data_types[0];
    if (inversion_method_of(definition.inversion_method).family == MethodFamily::own) {
        definition.error_floor = own_error_floor(type);
    } else {
        definition.error_percent = 1;
        definition.error_floor = type == 1 ? 1.0F : 0.05F;
    }
}

void repair_topography(InversionDefinition & definition)
{
    as_options_show({ &definition.topo_type });
    as_checks_show({ &definition.topo_shift_option });
}

void repair_tiles(InversionDefinition & definition)
{
    as_checks_show({ &definition.tile_use_reference, &definition.include_regional_mesh });
    if (definition.tile_coarse_model < 0 || definition.tile_coarse_model > 2) definition.tile_coarse_model = 2;
}
