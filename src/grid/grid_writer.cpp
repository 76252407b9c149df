#include "grid/grid_writer.h"

#include "grid/gdal_dataset.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/paths.h"

#include <array>
#include <cpl_error.h>

namespace {

/// Tiles, so that strips of rows and strips of columns are written equally well; a copy may pass 4 GB. What is never written, as
/// after a fault, is not filled in on closing.
constexpr const char * creation_options[] = { "TILED=YES", "BIGTIFF=IF_SAFER", "SPARSE_OK=TRUE", nullptr };

/// After a failed write the TIFF library searches its half-written file for the way on, which may never end; in an empty file the
/// search ends at once. The file is of no use any more.
void CPL_STDCALL empty_after_failure(CPLErr kind, CPLErrorNum, const char *)
{
    std::error_code ignored;
    if (kind >= CE_Failure)
        std::filesystem::resize_file(*static_cast<std::filesystem::path *>(CPLGetErrorHandlerUserData()), 0, ignored);
}

/// Keeps GDAL from printing while a file is written.
class QuietWriting {
public:
    explicit QuietWriting(std::filesystem::path & path) { CPLPushErrorHandlerEx(empty_after_failure, &path); }
    ~QuietWriting() { CPLPopErrorHandler(); }
    QuietWriting(const QuietWriting &) = delete;
    QuietWriting & operator=(const QuietWriting &) = delete;

private:
    QuietGdal quiet_;
};

}

struct GridWriter::File {
    Dataset dataset;
    std::filesystem::path path;
};

GridWriter::GridWriter(const std::string & path, const GridHeader & header, CopyValues values)
    : file_(std::make_unique<File>()), path_(path)
{
    file_->path = host_path(path);
    const QuietWriting quiet(file_->path);
    GDALDriverH const driver = GDALGetDriverByName("GTiff");
    const GDALDataType type = values == CopyValues::f32 ? GDT_Float32 : GDT_Float64;
    file_->dataset.reset(GDALCreate(driver, host_path(path).string().c_str(), header.columns, header.rows, 1, type,
                                    const_cast<char **>(creation_options))); // GDAL reads them only
    if (!file_->dataset) throw FileFault("cannot write", path_, last_gdal_error());
    std::array<double, 6> positions = { header.limits.west, header.cell_size_x, 0, header.limits.north, 0, -header.cell_size_y };
    GDALRasterBandH const band = GDALGetRasterBand(file_->dataset.get(), 1);
    if (GDALSetGeoTransform(file_->dataset.get(), positions.data()) != CE_None ||
        GDALSetRasterNoDataValue(band, missing_value) != CE_None)
        throw FileFault("cannot write", path_, last_gdal_error());
}

GridWriter::~GridWriter()
{
    const QuietWriting quiet(file_->path);
    file_->dataset.reset();
}

void GridWriter::write(const GridWindow & window, std::span<const double> values)
{
    const QuietWriting quiet(file_->path);
    GDALRasterBandH const band = GDALGetRasterBand(file_->dataset.get(), 1);
    if (GDALRasterIO(band, GF_Write, window.column, window.row, window.columns, window.rows, const_cast<double *>(values.data()),
                     window.columns, window.rows, GDT_Float64, 0, 0) != CE_None)
        throw FileFault("cannot write", path_, last_gdal_error());
}

void GridWriter::close()
{
    const QuietWriting quiet(file_->path);
    GDALFlushCache(file_->dataset.get());
    file_->dataset.reset();
    if (CPLGetLastErrorType() >= CE_Failure) throw FileFault("cannot write", path_, last_gdal_error());
}
