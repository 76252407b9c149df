#include "grid/gdal_dataset.h"

#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/paths.h"
#include "support/text.h"

#include <array>
#include <cpl_error.h>
#include <mutex>

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::string_view ers_mark = "DATASETHEADER";

/// Values of text formats come as doubles; GDAL's own choice is floats, which lose digits.
constexpr const char * text_as_doubles[] = { "DATATYPE=Float64", nullptr };

void set_up_gdal()
{
    static std::once_flag done;
    std::call_once(done, [] { GDALAllRegister(); });
}

}

QuietGdal::QuietGdal()
{
    set_up_gdal();
    CPLPushErrorHandler(CPLQuietErrorHandler);
    CPLErrorReset();
}

QuietGdal::~QuietGdal() { CPLPopErrorHandler(); }

std::string last_gdal_error()
{
    std::string text = CPLGetLastErrorMsg();
    while (text.ends_with('\n')) text.pop_back();
    return text.empty() ? "its header cannot be used" : text;
}

std::string gdal_path(const std::string & path)
{
    std::string host = host_path(path).string();
    const FileBytes file(path);
    const std::string_view text = file.text();
    if (!text.starts_with(byte_order_mark)) return host;
    // An ERMapper header leads to a file beside it, which is found by the plain path only.
    if (upper_case(text.substr(byte_order_mark.size(), ers_mark.size())) == ers_mark) return host;
    return "/vsisubfile/3," + host;
}

std::string driver_of_file(const std::string & gdal_path, const std::vector<const char *> & drivers)
{
    std::vector<const char *> list = drivers;
    list.push_back(nullptr);
    GDALDriverH const driver = GDALIdentifyDriverEx(gdal_path.c_str(), GDAL_OF_RASTER, list.data(), nullptr);
    return driver == nullptr ? "" : GDALGetDriverShortName(driver);
}

Dataset open_dataset(const std::string & gdal_path, const std::string & driver)
{
    const std::array<const char *, 2> drivers = { driver.c_str(), nullptr };
    const char * const * const options = driver == "AAIGrid" ? text_as_doubles : nullptr;
    Dataset dataset(GDALOpenEx(gdal_path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY, drivers.data(), options, nullptr));
    if (!dataset) throw Fault(last_gdal_error());
    return dataset;
}

std::string metadata_text(GDALMajorObjectH object, const char * name, const char * domain)
{
    const char * const text = GDALGetMetadataItem(object, name, domain);
    return text == nullptr ? "" : text;
}

std::optional<CellsToPositions> positions_of(GDALDatasetH dataset)
{
    std::array<double, 6> gt = {};
    if (GDALGetGeoTransform(dataset, gt.data()) != CE_None) return std::nullopt;
    constexpr std::array<double, 6> none = { 0, 1, 0, 0, 0, 1 }; // what some drivers give for no position
    if (gt == none) return std::nullopt;
    return CellsToPositions{ gt[0], gt[1], gt[2], gt[3], gt[4], gt[5] };
}
