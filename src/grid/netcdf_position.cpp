#include "grid/netcdf_position.h"

#include "grid/gdal_dataset.h"
#include "support/fault.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <type_traits>
#include <vector>

namespace {

struct ReleaseGroup {
    void operator()(GDALGroupH group) const { GDALGroupRelease(group); }
};
struct ReleaseArray {
    void operator()(GDALMDArrayH array) const { GDALMDArrayRelease(array); }
};
struct ReleaseAttribute {
    void operator()(GDALAttributeH attribute) const { GDALAttributeRelease(attribute); }
};
struct ReleaseType {
    void operator()(GDALExtendedDataTypeH type) const { GDALExtendedDataTypeRelease(type); }
};
using Array = std::unique_ptr<std::remove_pointer_t<GDALMDArrayH>, ReleaseArray>;

/// The coordinates along the dimensions of a variable, the slowest first.
std::vector<Array> coordinates_of(GDALMDArrayH variable)
{
    std::vector<Array> coordinates;
    std::size_t count = 0;
    GDALDimensionH * const dimensions = GDALMDArrayGetDimensions(variable, &count);
    for (std::size_t i = 0; i < count; ++i) coordinates.emplace_back(GDALDimensionGetIndexingVariable(dimensions[i]));
    GDALReleaseDimensions(dimensions, count);
    return coordinates;
}

bool has_range(const Array & coordinate)
{
    const std::unique_ptr<std::remove_pointer_t<GDALAttributeH>, ReleaseAttribute> range(
        GDALMDArrayGetAttribute(coordinate.get(), "actual_range"));
    return range != nullptr;
}

std::vector<double> values_of(const Array & coordinate)
{
    const auto size = static_cast<std::size_t>(GDALMDArrayGetTotalElementsCount(coordinate.get()));
    if (size < 2) throw Fault("its coordinates cannot be read");
    std::vector<double> values(size);
    const GUInt64 start = 0;
    const std::unique_ptr<std::remove_pointer_t<GDALExtendedDataTypeH>, ReleaseType> type(
        GDALExtendedDataTypeCreate(GDT_Float64));
    if (GDALMDArrayRead(coordinate.get(), &start, &size, nullptr, nullptr, type.get(), values.data(), values.data(),
                        size * sizeof(double)) == 0)
        throw Fault("its coordinates cannot be read");
    return values;
}

struct Steps {
    double first, step; ///< of the first centre, and from one to the next
};

Steps equal_steps(const std::vector<double> & centres)
{
    const Steps steps{ centres.front(), (centres.back() - centres.front()) / static_cast<double>(centres.size() - 1) };
    constexpr double tolerance = 0.01; // of a step; coordinates are often stored as floats
    for (std::size_t i = 0; i < centres.size(); ++i)
        if (!(std::abs(steps.first + static_cast<double>(i) * steps.step - centres[i]) < std::abs(steps.step) * tolerance))
            throw Fault("its coordinates do not run in equal steps");
    return steps;
}

NetcdfPosition position_by(const std::vector<double> & x, const std::vector<double> & y)
{
    const Steps across = equal_steps(x), along = equal_steps(y);
    if (across.step < 0) throw Fault("its columns run from east to west");
    const double half_height = std::abs(along.step) / 2;
    NetcdfPosition position;
    position.limits = { x.front() - across.step / 2, x.back() + across.step / 2, std::min(y.front(), y.back()) - half_height,
                        std::max(y.front(), y.back()) + half_height };
    position.rows_run_south = along.step < 0;
    return position;
}

}

std::optional<NetcdfPosition> netcdf_position(const std::string & gdal_path, const std::string & variable)
{
    constexpr std::array<const char *, 2> drivers = { "netCDF", nullptr };
    const Dataset dataset(
        GDALOpenEx(gdal_path.c_str(), GDAL_OF_MULTIDIM_RASTER | GDAL_OF_READONLY, drivers.data(), nullptr, nullptr));
    if (!dataset) return std::nullopt;
    const std::unique_ptr<std::remove_pointer_t<GDALGroupH>, ReleaseGroup> root(GDALDatasetGetRootGroup(dataset.get()));
    const Array array(root ? GDALGroupOpenMDArray(root.get(), variable.c_str(), nullptr) : nullptr);
    if (!array) return std::nullopt;
    const std::vector<Array> coordinates = coordinates_of(array.get());
    if (coordinates.size() < 2) return std::nullopt;
    const Array & x = coordinates.back();
    const Array & y = coordinates[coordinates.size() - 2];
    if (!x || !y) return std::nullopt;
    NetcdfPosition position = position_by(values_of(x), values_of(y));
    position.has_range = has_range(x) || has_range(y);
    return position;
}
