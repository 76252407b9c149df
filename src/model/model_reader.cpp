#include "model/model_reader.h"

#include "model/model_values.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/pattern.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr std::int32_t layered_format = 1; // a mesh of earth, sea and air
constexpr std::int32_t never_negative = 4; // the kind of model whose range starts at 0

/// Kinds whose file unit is the inverse of the internal unit.
bool is_inverted(std::int32_t model_type) { return model_type == 6 || model_type == 8; }

/// The values of a file that are null; a limit that there is not is NaN, which nothing lies beyond.
struct NullRule {
    float at_or_below = std::numeric_limits<float>::quiet_NaN();
    float at_or_above = std::numeric_limits<float>::quiet_NaN();

    explicit NullRule(float model_null)
    {
        constexpr float highest_lower_limit = 10000;
        if (model_null > highest_lower_limit)
            at_or_above = model_null;
        else if (model_null != 0)
            at_or_below = model_null;
    }
    bool operator()(float value) const { return value <= at_or_below || value >= at_or_above; }
};

[[noreturn]] void refuse(const UbcMesh & mesh, std::int64_t place)
{
    const std::int64_t layer = std::int64_t{ mesh.cells_x() } * mesh.cells_y();
    throw OverflowFault("the value of cell " + std::to_string(place % mesh.cells_x() + 1) + " " +
                        std::to_string(place % layer / mesh.cells_x() + 1) + " " + std::to_string(place / layer + 1) +
                        " is beyond single precision in internal units");
}

/// Converts the values and widens the range by them.
template <class Convert>
void convert_values(std::span<float> values, const UbcMesh & mesh, const Convert & convert, UbcModel & model)
{
    float least = model.model_min, most = model.model_max;
    for (float & value : values) {
        const float converted = convert(value);
        if (!std::isfinite(converted)) refuse(mesh, &value - values.data());
        value = converted;
        if (is_missing(converted)) continue;
        least = std::min(least, converted);
        most = std::max(most, converted);
    }
    model.model_min = least;
    model.model_max = most;
}

/// From the units of the file, in single precision as the values are.
void convert_to_internal_units(std::span<float> values, const UbcMesh & mesh, UbcModel & model)
{
    const NullRule is_null(model.model_null);
    const float scale = model.model_scale;
    if (is_inverted(model.model_type))
        convert_values(
            values, mesh, [&](float v) { return is_null(v) || v <= 0 ? missing_value_f32 : scale / v; }, model);
    else
        convert_values(
            values, mesh, [&](float v) { return is_null(v) ? missing_value_f32 : v * scale; }, model);
}

std::int32_t sign_of_range(float least, float most)
{
    if (!(least < most)) return 1;
    if (least > 0) return 2;
    return most < 0 ? 3 : 1;
}

void describe_range(UbcModel & model)
{
    model.model_sign = sign_of_range(model.model_min, model.model_max);
    const bool empty = is_missing(model.model_max);
    if (model.model_type == never_negative && !empty) model.model_min = 0;
    model.model_format_pattern =
        format_pattern_for_magnitude(static_cast<double>(std::max(std::abs(model.model_min), std::abs(model.model_max))));
}

/// How many layers down the deepest of the columns' first values lies, from 1; 0 when there is no value.
std::int32_t deepest_first_layer(const UbcMesh & mesh, std::span<const float> values)
{
    const auto columns = static_cast<std::size_t>(std::int64_t{ mesh.cells_x() } * mesh.cells_y());
    std::vector<bool> seen(columns);
    std::size_t open = columns;
    std::int32_t deepest = 0;
    for (std::int32_t z = 1; z <= mesh.cells_z() && open > 0; ++z, values = values.subspan(columns))
        for (std::size_t column = 0; column < columns; ++column)
            if (!seen[column] && !is_missing(values[column])) {
                seen[column] = true;
                deepest = z;
                --open;
            }
    return deepest;
}

void take_ground_from_model(BaseModel & base)
{
    const std::int32_t deepest = deepest_first_layer(base.mesh, base.model.model_values.items());
    if (deepest > 0) base.ground_bottom = static_cast<float>(base.mesh.nodes_z[deepest]);
}

}

Status read_model_file(BaseModel & base, bool topo_file, Host & host)
{
    UbcModel & model = base.model;
    model.model_loaded = false;
    model.model_values = {};
    model.model_min = -missing_value_f32;
    model.model_max = missing_value_f32;
    if (!base.mesh_loaded) {
        host.dialogs.message("No mesh file has been specified");
        return Status::bad;
    }
    List<float> values;
    if (read_model_values(base.model_file, model.model_file_order, model.model_null, base.mesh, values, host) != Status::good)
        return Status::bad;
    try {
        convert_to_internal_units(values.items(), base.mesh, model);
    } catch (const std::exception & fault) {
        host.dialogs.message(std::string("An error occurred while reading the model file : \r") + fault.what());
        return Status::bad;
    }
    describe_range(model);
    model.model_values = std::move(values);
    model.model_loaded = true;
    if (!topo_file || !base.mesh.topo_present) take_ground_from_model(base);
    if (base.mesh.mesh_format == layered_format) base.mesh.padding_z_top = base.mesh.air_cells + base.mesh.sea_cells;
    return Status::good;
}
