#include "data/mesh_grids.h"

#include "data/mesh_surroundings.h"
#include "grid/grid_preparation.h"
#include "support/missing.h"

namespace {

GridLimits limits_for(const UbcMesh & mesh, const PointTransform & transform)
{
    const Extents wanted = rotated_extents(transform, TransformDirection::inverse, surroundings_of(mesh));
    return { wanted.west, wanted.east, wanted.south, wanted.north };
}

}

MeshGrids::MeshGrids(const UbcMesh & mesh, const PointTransform & transform)
    : transform_(transform), wanted_(limits_for(mesh, transform))
{
}

Status MeshGrids::add(const std::string & file_name, Dialogs & dialogs)
{
    WorkGrid grid(file_name);
    GridLimits limits = wanted_;
    if (grid.prepare(limits, dialogs) != Status::good) return Status::bad;
    samplers_.emplace_back(grid.header());
    values_.emplace_back();
    return Status::good;
}

void MeshGrids::sample_row(std::span<const double> x, double y)
{
    map_x_.assign(x.begin(), x.end());
    map_y_.assign(x.size(), y);
    if (transform_.in_use)
        for (std::size_t i = 0; i < x.size(); ++i) {
            double no_z = missing_value;
            apply_point_transform(transform_, TransformDirection::inverse, map_x_[i], map_y_[i], no_z);
        }
    for (std::size_t grid = 0; grid < samplers_.size(); ++grid) {
        values_[grid].resize(x.size());
        samplers_[grid].sample(map_x_, map_y_, values_[grid]);
    }
}
