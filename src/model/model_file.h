#pragma once

#include "host/progress.h"
#include "model/mesh_file.h"
#include "model/model_window.h"
#include "support/list.h"

#include <string>

/// Writes a UBC model file as text: one value per line, y slowest, then x, z fastest from the top.
///
/// values: cells numbered x fastest, then y, then z. A value at or below -1e32 is written as `null_value`, any other divided by
/// `scale`. places: gets what `copy_model_window` needs; its `top_cells` must be set. Fails
/// with a `FileFault`.
struct ModelText {
    float null_value = -1;
    float scale = 1;
};
void write_model_file(const std::string & path, const UbcMesh & mesh, const NodeWindow & window, const List<float> & values,
                      const ModelText & form, Progress & progress, ColumnPlaces * places = nullptr);
