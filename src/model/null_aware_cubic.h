#pragma once

#include "model/cubic_taps.h"

#include <span>

/// A model on its cells: x fastest, then y, then z from the top.
struct CellModel {
    CellAxis x, y, z;
    std::span<const float> values;
};

/// The value of a model at a position that the taps of the three axes describe; null outside the mesh and in a null cell.
///
/// Tricubic where every cell with a weight has a value. Next to nulls trilinear between the eight centres around the position,
/// and where one of these is null too, the value of the cell that holds the position and, along each axis, the slope to its
/// neighbours, as far as there are any.
///
/// Other than within a whole tricubic the result is kept near the values it comes from: those of the block of four by four by
/// four cells, and half their range on either side of them, which is about what the tricubic itself can add (0.477 of it on equal
/// cells). Where a straight line reaches further than that, past wide outer cells, so does the limit.
float null_aware_value(const CellModel & model, const AxisTaps & x, const AxisTaps & y, const AxisTaps & z);
