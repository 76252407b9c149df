#pragma once

#include "grid/grid_sampler.h"
#include "host/dialogs.h"
#include "mesh/ubc_mesh.h"
#include "support/status.h"
#include "utilities/point_transform.h"

#include <span>
#include <string>
#include <vector>

/// Grids as a mesh sees them: each is read as far as the mesh and one edge cell around it reach, and sampled at positions of the
/// mesh, which a transform in use takes back to the coordinates of the grids. No working copy outlives `add`.
class MeshGrids {
public:
    MeshGrids(const UbcMesh & mesh, const PointTransform & transform);

    /// Reads one grid more. Bad after one message, which names the file. Fails with a `FileFault` when the working copy cannot
    /// be read.
    Status add(const std::string & file_name, Dialogs & dialogs);

    std::size_t size() const { return samplers_.size(); }

    /// Samples every grid at positions of the mesh that share one y.
    void sample_row(std::span<const double> x, double y);

    /// The samples of that row in a grid, counted from 0 as they were added; -1e32 where it has none.
    std::span<const double> values(std::size_t grid) const { return values_[grid]; }

private:
    PointTransform transform_;
    GridLimits wanted_; ///< in the coordinates of the grids
    std::vector<GridSampler> samplers_;
    std::vector<std::vector<double>> values_; ///< one row for each sampler
    std::vector<double> map_x_, map_y_;
};
