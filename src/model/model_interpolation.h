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
/// top, and -1e32 for null.
///
/// Tricubic on cell centres, and simpler next to nulls; see `CellAxis` and `null_aware_value`. Sums are in double precision and
/// rounded once, so that a constant stays what it is to the last bit. Target cells outside the base mesh, at or above its last
/// nodes, or in a null cell of it, are null. With a transform a cell must lie in the base mesh both before and after it.
///
/// fill_above: a column of nulls alone counts as 0. base_values is changed on the way and as it was at the end, whatever happens;
/// the cells above a column's first value are then -1e32. Fails with a `SubscriptFault` when a list does not fit its mesh.
void interpolate_ubc_model(const UbcMesh & base, List<float> & base_values, const UbcMesh & target, List<float> & target_values,
                           const Interpolation & how, Progress & progress);
