#include "rules/limits_from_data.h"

#include "data/location_reader.h"
#include "data/observed_processing.h"
#include "grid/grid_detection.h"
#include "grid/grid_statistics.h"
#include "rules/apply_definition.h"
#include "rules/validation.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/pattern.h"
#include "utilities/rotated_extents.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr double deepest_default = 3000; // metres

/// What a file covers, in mesh coordinates, and what its values are about.
struct FileExtent {
    Extents plan;
    float lowest = 0, highest = 0; ///< of the elevations, without the offset of the topography
    float mean = 0;                ///< of the first value
    double cell_x = 0, cell_y = 0; ///< of a grid, 0 for points
};

/// Elevations as the transform gives them to points; grids keep theirs.
void move_elevations(const PointTransform & transform, float & lowest, float & highest)
{
    if (!transform.in_use || lowest > highest) return; // or no elevation was found
    const auto moved = [&](float elevation) {
        double x = 0, y = 0, z = static_cast<double>(elevation);
        apply_point_transform(transform, TransformDirection::forward, x, y, z);
        return to_f32(z);
    };
    std::tie(lowest, highest) = std::minmax({ moved(lowest), moved(highest) });
}

Status point_extent(const InversionDefinition & definition, int slot, FileExtent & extent, Host & host)
{
    LocationSource source = location_source(definition, slot);
    source.elevation_offset = 0; // the limits add it once
    source.transform.in_use = false;
    ObservedData points;
    LocationStatistics statistics;
    if (read_locations_file(source, ReadMode::statistics, points, statistics, host) != Status::good) return Status::bad;
    if (points.point_count == 0) {
        host.dialogs.message("No points were found in the file: " + source.file_name);
        return Status::bad;
    }
    extent.plan = { statistics.minimum_x, statistics.maximum_x, statistics.minimum_y, statistics.maximum_y };
    extent.lowest = statistics.z.minimum;
    extent.highest = statistics.z.maximum;
    move_elevations(definition.coordinate_transform, extent.lowest, extent.highest);
    extent.mean = statistics.value[0].mean;
    return Status::good;
}

Status grid_extent(const std::string & path, FileExtent & extent, Host & host)
{
    GridHeader header;
    header.file_name = path;
    if (detect_grid_file(header, host.dialogs) != Status::good) {
        host.dialogs.message("There was an error reading the grid file");
        return Status::bad;
    }
    GridStatistics statistics;
    if (grid_statistics(header, Median::left_out, statistics, host.dialogs) != Status::good) return Status::bad;
    if (statistics.count == 0) {
        host.dialogs.message("There was an error calculating the grid file statistics: " + path + " holds no value");
        return Status::bad;
    }
    extent.plan = { header.limits.west, header.limits.east, header.limits.south, header.limits.north };
    extent.lowest = to_f32(statistics.minimum);
    extent.highest = to_f32(statistics.maximum);
    extent.mean = to_f32(statistics.mean);
    extent.cell_x = header.cell_size_x;
    extent.cell_y = header.cell_size_y;
    return Status::good;
}

/// The multiple of the size at or beyond the value; sums in single precision, at which large coordinates lose their low digits.
double multiple_above(double value, double size)
{
    const float multiple = to_f32(round_to_count(value / size) * size);
    return to_f32(value) > multiple ? multiple + size : multiple;
}

double multiple_below(double value, double size)
{
    const float multiple = to_f32(round_to_count(value / size) * size);
    return to_f32(value) < multiple ? multiple - size : multiple;
}

void set_plan_limits(InversionDefinition & definition, const FileExtent & extent)
{
    const struct {
        double minimum, maximum, grid_cell;
    } axes[] = { { extent.plan.west, extent.plan.east, extent.cell_x }, { extent.plan.south, extent.plan.north, extent.cell_y } };
    for (std::size_t axis = 0; axis < 2; ++axis) {
        double & size = definition.mesh_cell_size[axis];
        size = std::max(size, axes[axis].grid_cell);
        const bool snaps = size > 0;
        definition.mesh_max[axis] = snaps ? multiple_above(axes[axis].maximum, size) : axes[axis].maximum;
        definition.mesh_min[axis] = snaps ? multiple_below(axes[axis].minimum, size) : axes[axis].minimum;
    }
}

/// A quarter of the shorter side, at most 3000 m, on whole cells.
double default_depth(const InversionDefinition & definition)
{
    double depth = std::min({ (definition.mesh_max[0] - definition.mesh_min[0]) / 4,
                              (definition.mesh_max[1] - definition.mesh_min[1]) / 4, deepest_default });
    const double size = definition.mesh_cell_size[2];
    if (size > 0) depth = round_to_count(depth / size) * size;
    return depth;
}

void set_elevation_limits(InversionDefinition & definition, const FileExtent & extent)
{
    float lowest = extent.lowest, highest = extent.highest;
    if (const double size = definition.mesh_cell_size[2]; size > 0) {
        highest = to_f32(multiple_above(highest, size));
        lowest = to_f32(multiple_below(lowest, size));
    }
    if (definition.inversion_mode == 4) {
        definition.mesh_min[2] = static_cast<double>(highest) - static_cast<double>(lowest);
        definition.mesh_max[2] = 0;
    } else {
        definition.mesh_min[2] = static_cast<double>(lowest) + static_cast<double>(definition.topo_offset());
        definition.mesh_max[2] = static_cast<double>(highest) + static_cast<double>(definition.topo_offset());
    }
    // An elevation, not a depth below the top: the comparison is meant so.
    definition.mesh_min[2] = std::min(definition.mesh_min[2], -default_depth(definition));
}

}

Status set_limits_from_file(Setup & setup, int index, Host & host)
{
    const bool from_topography = index == 1;
    InversionDefinition & definition = setup.definition;
    const int slot = !from_topography && definition.data_file_type == 1 ? 2 : index;
    if (check_file_definitions(setup, slot, host) != Status::good) return Status::bad;
    const auto at = static_cast<std::size_t>(slot);

    FileExtent extent;
    const Status status = definition.data_kind[at] == 1 ? grid_extent(definition.data_file[at], extent, host)
                                                        : point_extent(definition, slot, extent, host);
    if (status != Status::good) return status;
    if (from_topography && !(extent.lowest <= extent.highest)) {
        host.dialogs.message("No elevations were found in the file: " + definition.data_file[at]);
        return Status::bad;
    }
    extent.plan = rotated_extents(definition.coordinate_transform, TransformDirection::forward, extent.plan);

    InversionDefinition limited = definition;
    if (from_topography) {
        set_elevation_limits(limited, extent);
    } else {
        set_plan_limits(limited, extent);
    }
    load_mag3d_form(setup, limited, Selection::mesh, host);
    if (!from_topography) {
        definition.obs_base_value = extent.mean;
        setup.form["Text_UBC_regional_field"].text = format_number(extent.mean, "0.0");
    }
    return Status::good;
}
