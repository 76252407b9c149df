#pragma once

#include "grid/grid_source.h"

/// Opens a grid that GDAL can read, read-only and through an explicit list of drivers: none of those that take a regular point
/// file for a grid is among them.
///
/// Null when no driver knows the content. Fails with a `Fault` when one does but the file cannot be used: cut short, without
/// its data file, without a position, rotated, a picture and not values.
std::unique_ptr<GridSource> open_gdal_grid(const std::string & path, std::int32_t band);

/// The size and bands of a picture (.bmp .jpg .gif .png .tga .tif).
struct PictureShape {
    std::int32_t columns = 0, rows = 0, bands = 0;
    bool has_colour_table = false;
    std::optional<GridLimits> limits; ///< as GDAL finds them, in tags within the file first
};

/// Nothing when no driver knows the content.
std::optional<PictureShape> picture_shape(const std::string & path);
