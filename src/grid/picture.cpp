#include "grid/picture.h"

#ifdef HAVE_FREEIMAGE

#include "support/paths.h"

#include <FreeImage.h>
#include <algorithm>
#include <memory>

namespace {

constexpr unsigned largest_side = 16384;

// Few formats on purpose: each decoder is a way in for a damaged file.
constexpr FREE_IMAGE_FORMAT formats[] = { FIF_BMP, FIF_JPEG, FIF_GIF, FIF_PNG, FIF_TARGA, FIF_TIFF };

struct Unload {
    void operator()(FIBITMAP * bitmap) const { FreeImage_Unload(bitmap); }
};
using Bitmap = std::unique_ptr<FIBITMAP, Unload>;

FREE_IMAGE_FORMAT format_of(const char * path)
{
    const FREE_IMAGE_FORMAT found = FreeImage_GetFileType(path);
    return found == FIF_UNKNOWN ? FreeImage_GetFIFFromFilename(path) : found; // tga files carry no mark
}

bool too_large(FIBITMAP * bitmap)
{
    return FreeImage_GetWidth(bitmap) > largest_side || FreeImage_GetHeight(bitmap) > largest_side;
}

/// The size alone first, so that a damaged header cannot ask for memory; formats that cannot tell it are loaded at once.
Bitmap load(FREE_IMAGE_FORMAT format, const char * path)
{
    if (FreeImage_FIFSupportsNoPixels(format) != FALSE) {
        const Bitmap size(FreeImage_Load(format, path, FIF_LOAD_NOPIXELS));
        if (size == nullptr || too_large(size.get())) return nullptr;
    }
    Bitmap bitmap(FreeImage_Load(format, path));
    if (bitmap == nullptr || too_large(bitmap.get())) return nullptr;
    return Bitmap(FreeImage_ConvertTo32Bits(bitmap.get()));
}

}

std::optional<Picture> load_picture(const std::string & path)
{
    const std::string host = host_path(path).string();
    const FREE_IMAGE_FORMAT format = format_of(host.c_str());
    if (std::find(std::begin(formats), std::end(formats), format) == std::end(formats)) return std::nullopt;
    const Bitmap bitmap = load(format, host.c_str());
    if (bitmap == nullptr) return std::nullopt;

    Picture picture;
    picture.width = static_cast<std::int32_t>(FreeImage_GetWidth(bitmap.get()));
    picture.height = static_cast<std::int32_t>(FreeImage_GetHeight(bitmap.get()));
    picture.pixels.reserve(4 * static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    for (std::int32_t row = picture.height; row-- > 0;) { // the library counts rows from the bottom
        const BYTE * pixel = FreeImage_GetScanLine(bitmap.get(), row);
        for (std::int32_t column = 0; column < picture.width; ++column, pixel += 4)
            for (const int component : { FI_RGBA_RED, FI_RGBA_GREEN, FI_RGBA_BLUE, FI_RGBA_ALPHA })
                picture.pixels.push_back(pixel[component]);
    }
    return picture;
}

#else

std::optional<Picture> load_picture(const std::string &) { return std::nullopt; }

#endif
