#include "grid/grid_detection.h"

#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/paths.h"
#include "support/text.h"

#include <algorithm>
#include <string_view>

namespace {

using namespace std::string_view_literals;

constexpr std::string_view grid_extensions[] = { "GRD", "ERS", "TIF", "TIFF", "NC", "GXF", "HGT", "FLT", "BIL" };
constexpr std::string_view point_extensions[] = { "XYZ", "CSV", "OBS" };

// The first bytes of the grid formats that have such a mark.
constexpr std::string_view grid_marks[] = { "DSAA"sv,  "DSBB"sv,  "DSRB"sv,  "II*\0"sv,  "MM\0*"sv,
                                            "CDF\1"sv, "CDF\2"sv, "CDF\5"sv, "\x89HDF"sv };
constexpr std::string_view text_grid_mark = "NCOLS";

template <class Texts>
bool contains(const Texts & texts, const std::string & text)
{
    return std::ranges::find(texts, text) != std::end(texts);
}

}

bool is_grid_file(const std::string & path)
{
    const std::string extension = upper_case(file_extension_of_path(path));
    if (contains(point_extensions, extension)) return false;
    if (contains(grid_extensions, extension)) return true;
    try {
        const FileBytes file(path);
        const std::string_view bytes = file.text();
        return std::ranges::any_of(grid_marks, [&](std::string_view mark) { return bytes.starts_with(mark); }) ||
               upper_case(bytes.substr(0, text_grid_mark.size())) == text_grid_mark;
    } catch (const FileFault &) {
        return false; // whoever goes on to read it says why it cannot be read
    }
}
