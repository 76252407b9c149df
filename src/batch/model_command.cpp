#include "batch/commands.h"
#include "model/mesh_reader.h"
#include "model/model_reader.h"
#include "support/missing.h"
#include "support/numbers.h"

#include <algorithm>
#include <cstdio>

namespace {

/// A limit of the model's range in the units of its file; "none" when no cell has a value.
std::string in_file_units(float limit, const UbcModel & model)
{
    if (is_missing(model.model_max)) return "none";
    return general_text(static_cast<float>(static_cast<double>(limit) / static_cast<double>(model.model_scale)));
}

void print_model(const UbcModel & model)
{
    const auto values = model.model_values.items();
    const auto nulls = std::ranges::count_if(values, [](float value) { return is_missing(value); });
    std::printf("cells: %lld\n", static_cast<long long>(std::ssize(values)));
    std::printf("nulls: %lld\n", static_cast<long long>(nulls));
    std::printf("minimum: %s\n", in_file_units(model.model_min, model).c_str());
    std::printf("maximum: %s\n", in_file_units(model.model_max, model).c_str());
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
    if (read_model_file(base, false, display) != Status::good) return Status::bad;
    display.progress.end();
    print_model(base.model);
    return Status::good;
}
