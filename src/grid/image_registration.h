#pragma once

#include "grid/grid_access.h"

#include <optional>
#include <string>

/// Where a picture lies: outer edges of its outermost pixels.
struct ImageRegistration {
    GridLimits limits;
    double cell_size_x = 0, cell_size_y = 0;
    std::string text; ///< what the position comes from, as shown to the user; never empty
};

/// Reads the position of a picture of `columns` by `rows` pixels from a file beside it: a world file (.pgw and the like, .wld),
/// an ERMapper header (.ers) or a MapInfo table (.tab), in this order.
///
/// The numbers of a world file are those of the centre of the upper left pixel; the pixel numbers of a MapInfo table count from
/// the outer corner of that pixel. Nothing when there is no such file; `fault` then says so, or what is wrong with the one there
/// is.
std::optional<ImageRegistration> read_image_registration(const std::string & path, std::int32_t columns, std::int32_t rows,
                                                         std::string & fault);
