#include "model/window_columns.h"

#include <algorithm>

namespace {

constexpr std::int64_t most_together = 32;

}

WindowColumns::WindowColumns(const UbcMesh & mesh, const NodeWindow & window, const List<float> & values)
    : row_step_(mesh.cells_x()), layer_step_(row_step_ * mesh.cells_y()), width_(std::max(window.x_last - window.x_first, 0)),
      depth_(std::max(window.y_last - window.y_first, 0)), height_(std::max(window.z_last - window.z_first, 0))
{
    if (count() == 0) return;
    const auto number_of = [this](std::int64_t x, std::int64_t y, std::int64_t z) {
        return (z - 1) * layer_step_ + (y - 1) * row_step_ + x;
    };
    const std::int64_t first = number_of(window.x_first, window.y_first, window.z_first);
    static_cast<void>(values[first]); // the check for all of them
    static_cast<void>(values[number_of(window.x_last - 1, window.y_last - 1, window.z_last - 1)]);
    cells_ = values.items().subspan(static_cast<std::size_t>(first - 1));
}

void WindowColumns::gather(std::int64_t first, std::int64_t last, std::vector<float> & gathered) const
{
    gathered.resize(static_cast<std::size_t>((last - first) * height_));
    for (float * to = gathered.data(); first < last;) {
        const std::int64_t left_in_row = width_ - first % width_;
        const std::int64_t count = std::min({ most_together, left_in_row, last - first });
        gather_neighbours(first, count, to);
        to += count * height_;
        first += count;
    }
}

void WindowColumns::gather_neighbours(std::int64_t column, std::int64_t count, float * gathered) const
{
    const float * layer = cells_.data() + column / width_ * row_step_ + column % width_;
    for (std::int64_t z = 0; z < height_; ++z, layer += layer_step_)
        for (std::int64_t i = 0; i < count; ++i) gathered[i * height_ + z] = layer[i];
}
