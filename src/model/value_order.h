#pragma once

#include "mesh/ubc_mesh.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// The places of values that come one after the other: three loops, the slowest first. Places count from 0, cells x fastest,
/// then y, then z from the top.
struct ValueLayout {
    std::int64_t start = 0; ///< place of the first value
    std::array<std::int64_t, 3> count = {};
    std::array<std::int64_t, 3> step = {};

    std::int64_t size() const { return count[0] * count[1] * count[2]; }
};

/// All cells of a mesh in an order of text files, as `UbcModel::model_file_order`. Fails with a `Fault` for an order that is
/// none.
ValueLayout layout_of_order(std::int32_t order, const UbcMesh & mesh);

/// The cells below the air and sea layers: z slowest, x fastest.
ValueLayout layout_of_earth(const UbcMesh & mesh);

/// Puts values that come one after the other to their places.
///
/// Neighbours in the file can be a whole layer apart in memory. So some of the innermost loops are gathered, and then written
/// side by side: each line of memory is touched once.
class ValuePlacer {
public:
    ValuePlacer(const ValueLayout & layout, std::span<float> values);

    /// Takes the next values; those behind the last place are left alone.
    void take(std::span<const float> more);

    std::int64_t taken() const { return taken_; }
    bool complete() const { return taken_ == layout_.size(); }

private:
    std::int64_t loops_together() const;
    void place_gathered(std::int64_t loops);

    ValueLayout layout_;
    std::span<float> values_;
    std::int64_t slow_ = 0, middle_ = 0; // where the loops stand
    std::int64_t taken_ = 0;
    std::vector<float> gathered_;
    std::size_t gathered_count_ = 0;
};
