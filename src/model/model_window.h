#pragma once

#include "host/progress.h"
#include "model/mesh_file.h"

#include <cstdint>
#include <string>
#include <vector>

/// Where the columns of a whole model lie in the text of its file: windows of it are copied, not formatted again.
struct ColumnPlaces {
    std::int32_t top_cells = 0;              ///< how many cells of a column, from the top, windows take
    std::vector<std::uint64_t> ends = { 0 }; ///< of the columns, in bytes, behind the start of the first
    std::vector<std::uint32_t> top_sizes;    ///< bytes of the lines of those cells, per column
};

/// Writes the model file of a window by copying its lines from the file of the whole model.
///
/// columns: cells of the mesh in x. window: from the top down to `top_cells`. Fails with a `FileFault`, also when the whole is no
/// longer as it was written.
void copy_model_window(const std::string & whole, const ColumnPlaces & places, std::int32_t columns, const std::string & path,
                       const NodeWindow & window, Progress & progress);
