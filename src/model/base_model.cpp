#include "model/base_model.h"

#include "support/paths.h"

#include <algorithm>
#include <iterator>

namespace {

struct ModelUnits {
    std::int32_t model_type;
    float scale;
    const char * units;
};

constexpr ModelUnits units_of_types[] = { { 3, 1000, "SIx10^-3" }, { 2, 100000, "SIx10^-5" } };
constexpr ModelUnits usual_units = { 0, 1000000, "SIx10^-6" };

}

void reset_model(UbcModel & model)
{
    const std::int32_t type = model.model_type;
    const auto * const row = std::find_if(std::begin(units_of_types), std::end(units_of_types),
                                          [type](const ModelUnits & units) { return units.model_type == type; });
    const ModelUnits & units = row == std::end(units_of_types) ? usual_units : *row;
    model = {};
    model.model_type = type;
    model.model_scale = units.scale;
    model.model_units = units.units;
    delete_file("~model.tmp");
}

void reset_mesh(BaseModel & base)
{
    base.mesh = {};
    base.mesh_loaded = false;
    base.ground_bottom.reset();
    reset_model(base.model);
}
