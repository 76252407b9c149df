#pragma once

#include "model/mesh_file.h"
#include "support/list.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// The cells of a window column after column: y slowest, then x, and z fastest from the top.
///
/// In memory the cells of a column lie a layer apart; taking neighbouring columns together fetches each line of memory once.
class WindowColumns {
public:
    /// values: cells numbered x fastest, then y, then z; as many as the mesh has. Fails with a `SubscriptFault` when they are
    /// too few for the window.
    WindowColumns(const UbcMesh & mesh, const NodeWindow & window, const List<float> & values);

    std::int64_t count() const { return height_ > 0 ? width_ * depth_ : 0; } ///< columns
    std::int64_t width() const { return width_; }                            ///< columns in a row
    std::int64_t height() const { return height_; }                          ///< cells in a column

    /// Copies columns `first` to `last` - 1, counted from 0.
    void gather(std::int64_t first, std::int64_t last, std::vector<float> & gathered) const;

private:
    void gather_neighbours(std::int64_t column, std::int64_t count, float * gathered) const;

    std::span<const float> cells_; // from the window's first
    std::int64_t row_step_, layer_step_;
    std::int64_t width_, depth_, height_;
};
