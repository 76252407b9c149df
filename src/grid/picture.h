#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// A picture in memory: four bytes a pixel (red, green, blue, opacity), row by row from the top left.
struct Picture {
    std::int32_t width = 0, height = 0;
    std::vector<std::uint8_t> pixels;
};

/// Loads a picture (bmp, jpg, gif, png, tga or tif) to be drawn under the mesh. Nothing when the file is no picture of these
/// formats, cannot be read, is larger than 16384 pixels a side, or the program was built without FreeImage.
std::optional<Picture> load_picture(const std::string & path);
