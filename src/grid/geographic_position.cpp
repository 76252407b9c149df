#include "grid/geographic_position.h"

#include "grid/gdal_dataset.h"
#include "grid/grid_formats.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/paths.h"

#include <cmath>

namespace {

struct DestroyReference {
    void operator()(OGRSpatialReferenceH reference) const { OSRDestroySpatialReference(reference); }
};
struct DestroyTransformation {
    void operator()(OGRCoordinateTransformationH transformation) const { OCTDestroyCoordinateTransformation(transformation); }
};
using Reference = std::unique_ptr<std::remove_pointer_t<OGRSpatialReferenceH>, DestroyReference>;
using Transformation = std::unique_ptr<std::remove_pointer_t<OGRCoordinateTransformationH>, DestroyTransformation>;

constexpr std::size_t longest_prj = std::size_t{ 1 } << 16;

/// The system in words of its own; null when they say none.
Reference reference_of(const std::string & words)
{
    Reference reference(OSRNewSpatialReference(nullptr));
    if (!reference || OSRSetFromUserInput(reference.get(), words.c_str()) != OGRERR_NONE) return nullptr;
    return reference;
}

Reference reference_of_grid(const std::string & path)
{
    const std::string name = gdal_path(path);
    const std::string driver = driver_of_file(name, grid_drivers());
    if (driver.empty()) return nullptr;
    const Dataset dataset = open_dataset(name, driver);
    OGRSpatialReferenceH const reference = GDALGetSpatialRef(dataset.get());
    return Reference(reference == nullptr ? nullptr : OSRClone(reference));
}

/// The *.prj beside a file; empty when there is none.
std::string projection_file(const std::string & path)
{
    const std::string stem = folder_of_path(absolute_path(path)) + file_stem_of_path(path);
    for (const char * ending : { ".prj", ".PRJ" })
        if (!find_file(stem + ending).empty()) return stem + ending;
    return "";
}

Reference reference_beside(const std::string & path)
{
    const std::string file = projection_file(path);
    return file.empty() ? nullptr : reference_of("ESRI::" + std::string(FileBytes(file, longest_prj).text()));
}

Reference reference_of_grid_or_beside(const std::string & path)
{
    try {
        if (Reference reference = reference_of_grid(path)) return reference;
    } catch (const Fault &) { // no grid for GDAL; what lies beside it may still say
    }
    return reference_beside(path);
}

double within_a_turn(double longitude) { return longitude - 360 * std::floor((longitude + 180) / 360); }

/// `find` finds the system of a file.
std::optional<GeographicPosition> position_by(Reference (*find)(const std::string &), const std::string & path, double x,
                                              double y)
{
    try {
        const QuietGdal quiet;
        const Reference from = find(path), to = reference_of("EPSG:4326");
        if (!from || !to) return std::nullopt;
        // x east and y north in both, whatever the authorities' own order is.
        for (const Reference * reference : { &from, &to })
            OSRSetAxisMappingStrategy(reference->get(), OAMS_TRADITIONAL_GIS_ORDER);
        const Transformation transformation(OCTNewCoordinateTransformation(from.get(), to.get()));
        if (!transformation || OCTTransform(transformation.get(), 1, &x, &y, nullptr) == 0) return std::nullopt;
        if (!std::isfinite(x) || !(std::abs(y) <= 90)) return std::nullopt;
        return GeographicPosition{ within_a_turn(x), y };
    } catch (const Fault &) { // GDAL or the file is not there
        return std::nullopt;
    }
}

}

std::optional<GeographicPosition> geographic_position_in_grid(const std::string & path, double x, double y)
{
    return position_by(&reference_of_grid_or_beside, path, x, y);
}

std::optional<GeographicPosition> geographic_position_of_point(const std::string & path, double x, double y)
{
    if (projection_file(path).empty()) return std::nullopt; // and GDAL is not loaded for nothing
    return position_by(&reference_beside, path, x, y);
}
