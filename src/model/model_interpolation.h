#pragma once

#include "host/progress.h"
#include "mesh/ubc_mesh.h"
#include "support/list.h"
#include "utilities/point_transform.h"

/// How a model is taken over to another mesh.
struct Interpolation {
    bool fill_above = false; ///< cells above a column's first value lend it to the interpolation near the ground
    const List<float> * mask_surface = nullptr; ///< ground per target column, x fastest; cells not below it become null
    const PointTransform * transform = nullptr; ///< from target to base coordinates
    unsigned threads = 0;                       ///< 0: as many as are worth it; the result does not depend on it
};

/// Interpolates a model on `base` onto the cell centres of `target`; both lists have cells x fastest, then y, then z from the
/// top, and -1e32 for null. base_values is changed on the way with `fill_above` and as it was at the end, whatever happens.
/// Target cells outside the base mesh, or in a null cell of it, are null.
void interpolate_ubc_model(const UbcMesh & base, List<float> & base_values, const UbcMesh & target, List<float> & target_values,
                           const Interpolation & how, Progress & progress);
