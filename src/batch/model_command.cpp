#include "batch/commands.h"
#include "model/mesh_reader.h"
#include "model/model_reader.h"
#include "support/missing.h"
#include "support/numbers.h"

#include <algorithm>
#include <cstdio>

namespace {

/// A limit of the model's range; "none" when no cell has a value.
std::string limit_text(float limit, const UbcModel & model) { return is_missing(model.model_max) ? "none" : general_text(limit); }

void print_model(const UbcModel & model)
{
    const auto values = model.model_values.items();
    const auto nulls = std::ranges::count_if(values, [](float value) { return is_missing(value); });
    std::printf("cells: %lld\n", static_cast<long long>(std::ssize(values)));
    std::printf("nulls: %lld\n", static_cast<long long>(nulls));
    std::printf("minimum: %s\n", limit_text(model.model_min, model).c_str());
    std::printf("maximum: %s\n", limit_text(model.model_max, model).c_str());
    std::printf("sign: %s\n", general_text(model.model_sign).c_str());
}

}

Status model_command(const std::string & mesh, const std::string & model, Host & display)
{
    BaseModel base;
    base.mesh_file = mesh;
    base.model_file = model;
    display.progress.step("Read mesh file");
    if (read_mesh_file(base, display) != Status::good) return Status::bad;
    display.progress.step("Read model file");
    base.model.model_scale = 1; // in file units, which would not come back exactly from internal ones
    if (read_model_file(base, false, display) != Status::good) return Status::bad;
    display.progress.end();
    print_model(base.model);
    return Status::good;
}
