#pragma once

#include "support/list.h"

#include <array>
#include <cstdint>
#include <vector>

/// How much each cell along one axis counts at a position: four cells in a row, counted from 0, of which a short axis or the end
/// of one leaves some without a weight.
struct AxisTaps {
    std::int32_t cell = -1;            ///< the cell that holds the position; -1 outside the mesh
    std::int32_t first = 0;            ///< the first of the four cells
    std::array<double, 4> cubic = {};  ///< their weights; the sum is 1
    std::array<double, 4> linear = {}; ///< weights of the two centres around the position alone
    double offset = 0;                 ///< from the centre of `cell`, positive towards the next one
    bool beyond = false;               ///< in the outer half of the first or last cell: continued as a straight line
    double reach = 0; ///< beyond: how far past the outer centre, in distances from the first of the four to the last
};

/// The cells along one axis of a mesh, and the cubic kernel on their centres.
///
/// Between two centres the kernel is the cubic with the values there and, as slope at a centre, that of the secant through its
/// two neighbours. On equal cells this is cubic convolution; on any others, too, it keeps constants and straight lines, is
/// smooth, and no weight exceeds 1.15 or falls below -0.15. At the first and last centre the slope is that of the outer
/// interval's secant, and the outer half cell goes on with it as a straight line. A lone cell is constant.
///
/// Source: R. G. Keys (1981), Cubic convolution interpolation for digital image processing, IEEE Transactions on Acoustics,
/// Speech and Signal Processing 29, 1153-1160, with a = -1/2; the slopes are taken over the real distances to fit unequal cells.
class CellAxis {
public:
    enum class Order { ascending, from_top }; ///< from_top: cells count against the coordinate

    /// nodes: ascending, in either order of cells; they must outlive the axis. centres: in the order of the cells.
    CellAxis(const List<double> & nodes, const List<double> & centres, Order order);

    std::int32_t count() const { return static_cast<std::int32_t>(centres_.size()); }
    /// From the centre of one cell to that of a later one; positive.
    double distance(std::int32_t from, std::int32_t to) const { return at(to) - at(from); }
    /// A position below the first node, or at or above the last one, is outside.
    AxisTaps taps_at(double position) const;

private:
    double at(std::int32_t cell) const { return centres_[static_cast<std::size_t>(cell)]; }
    void weigh(double along, std::int32_t lower, AxisTaps & taps) const;

    const List<double> & nodes_;
    double sign_;
    std::vector<double> centres_; ///< ascending: negated when cells count from the top
};
