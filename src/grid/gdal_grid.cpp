#include "grid/gdal_grid.h"

#include "grid/ers_header.h"
#include "grid/gdal_dataset.h"
#include "grid/grid_formats.h"
#include "grid/netcdf_position.h"
#include "grid/netcdf_size.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double surfer_null = 1.70141e38;
constexpr double arc_default_null = -9999; // of a header without NODATA_value, by the format; GDAL knows none then
constexpr const char * no_position = "it has no position: neither coordinates nor cell sizes are given";
constexpr const char * cut_short = "it is cut short: it holds fewer values than its header says";
constexpr const char * rotated = "it is rotated, and only grids along the axes can be read";

bool is_driver(const GridFormat & format, std::string_view driver) { return format.driver == driver; }

bool is_surfer(const GridFormat & format)
{
    return is_driver(format, "GSAG") || is_driver(format, "GSBG") || is_driver(format, "GS7BG");
}

/// A file that says of itself what its positions are, against the habit of its format.
struct SaidRegistration {
    const char * driver;
    const char * metadata;
    const char * value;
    GridRegistration registration;
};
constexpr SaidRegistration said_registrations[] = {
    { "GTiff", "AREA_OR_POINT", "Point", GridRegistration::node },
    { "netCDF", "NC_GLOBAL#node_offset", "1", GridRegistration::cell },
};

/// The text of the header of a format that names its corner by what it is, in capitals; empty for other formats.
std::string corner_header(const GridFormat & format, const std::string & path)
{
    constexpr std::size_t longest = 2048;
    std::string header = path;
    if (is_driver(format, "EHdr"))
        header = path.substr(0, path.rfind('.')) + ".hdr";
    else if (!is_driver(format, "AAIGrid"))
        return "";
    if (find_file(header).empty()) return "";
    return upper_case(FileBytes(header).text().substr(0, longest));
}

GridRegistration registration_of(GDALDatasetH dataset, const GridFormat & format, const std::string & path)
{
    for (const SaidRegistration & said : said_registrations)
        if (is_driver(format, said.driver) && metadata_text(dataset, said.metadata) == said.value) return said.registration;
    const std::string header = corner_header(format, path);
    const bool centres = header.find("XLLCENTER") != std::string::npos || header.find("ULXMAP") != std::string::npos;
    return centres ? GridRegistration::node : format.registration;
}

bool is_picture(GDALDatasetH dataset)
{
    const int bands = GDALGetRasterCount(dataset);
    GDALRasterBandH const band = GDALGetRasterBand(dataset, 1);
    if (GDALGetRasterColorTable(band) != nullptr) return true;
    return bands >= 3 && GDALGetRasterDataType(band) == GDT_Byte && GDALGetRasterColorInterpretation(band) == GCI_RedBand;
}

/// A netCDF file of several variables holds each as a data set of its own: the names to open them by.
std::vector<std::string> variables_of(GDALDatasetH dataset)
{
    std::vector<std::string> names;
    if (GDALGetRasterCount(dataset) > 0) return names;
    for (std::int32_t number = 1;; ++number) {
        const std::string key = "SUBDATASET_" + general_text(number) + "_NAME";
        const std::string name = metadata_text(dataset, key.c_str(), "SUBDATASETS");
        if (name.empty()) return names;
        names.push_back(name);
    }
}

std::int32_t band_in_range(std::int32_t band, std::size_t count)
{
    return band >= 1 && band <= static_cast<std::int32_t>(count) ? band : 1;
}

/// What GDAL would pass over in silence, or refuse without a reason.
void check_parts(const std::string & path, const std::string & driver)
{
    if (driver == "ERS") {
        const std::string data_file = read_ers_header(path).data_file;
        if (find_file(data_file).empty()) throw Fault("its data file " + file_name_of_path(data_file) + " is missing");
    }
    if (driver == "netCDF") {
        const FileBytes file(path);
        if (file.text().size() < promised_netcdf_size(file.text())) throw Fault(cut_short);
    }
}

class GdalGrid : public GridSource {
public:
    GdalGrid(const std::string & path, const std::string & name, const std::string & driver, std::int32_t band)
        : path_(path), dataset_(open_dataset(name, driver))
    {
        header_.format = grid_format_of_driver(driver);
        choose_band(driver, band);
        if (is_picture(dataset_.get())) throw Fault(picture_fault);
        header_.columns = GDALGetRasterXSize(dataset_.get());
        header_.rows = GDALGetRasterYSize(dataset_.get());
        check_body();
        header_.registration = registration_of(dataset_.get(), *header_.format, path);
        header_.format->code == ermapper_code ? take_ers_position() : take_position();
        take_null_value();
        take_scale();
    }

    void read(const GridWindow & window, std::span<double> values) override
    {
        GridWindow stored = window;
        if (upside_down_) stored.row = header_.rows - window.row - window.rows;
        read_stored(stored, values);
        if (!upside_down_) return;
        const auto width = static_cast<std::size_t>(window.columns);
        for (std::size_t top = 0, bottom = values.size() - width; top < bottom; top += width, bottom -= width)
            std::ranges::swap_ranges(values.subspan(top, width), values.subspan(bottom, width));
    }

private:
    void read_stored(const GridWindow & window, std::span<double> values)
    {
        const QuietGdal quiet;
        if (GDALRasterIO(band_, GF_Read, window.column, window.row, window.columns, window.rows, values.data(), window.columns,
                         window.rows, GDT_Float64, 0, 0) != CE_None)
            throw FileFault("cannot read", path_, last_gdal_error());
        for (double & value : values) value = is_null(value) ? missing_value : value * scale_ + offset_;
        if ((GDALGetMaskFlags(band_) & GMF_PER_DATASET) != 0) apply_mask(window, values);
    }

    void choose_band(const std::string & driver, std::int32_t band)
    {
        const std::vector<std::string> variables = variables_of(dataset_.get());
        if (!variables.empty()) {
            for (const std::string & name : variables) header_.band_names.push_back(name.substr(name.rfind(':') + 1));
            header_.band = band_in_range(band, variables.size());
            dataset_ = open_dataset(variables[static_cast<std::size_t>(header_.band - 1)], driver);
        }
        const int count = GDALGetRasterCount(dataset_.get());
        if (count < 1) throw Fault("it holds no values");
        if (variables.empty()) {
            for (int number = 1; number <= count; ++number) header_.band_names.push_back(band_name(number));
            header_.band = band_in_range(band, header_.band_names.size());
        }
        band_ = GDALGetRasterBand(dataset_.get(), variables.empty() ? header_.band : 1);
        const GDALDataType type = GDALGetRasterDataType(band_);
        if (GDALDataTypeIsComplex(type) != 0) throw Fault("its values are complex numbers");
        fits_f32_ = type == GDT_Float32 || GDALGetDataTypeSizeBytes(type) < 4;
    }

    std::string band_name(int number) const
    {
        const std::string said = GDALGetDescription(GDALGetRasterBand(dataset_.get(), number));
        return said.empty() ? "Band " + general_text(std::int32_t{ number }) : said;
    }

    /// A header may promise more than its file holds; nothing is reserved for such a grid.
    void check_body() const
    {
        const BodySize body = header_.format->body;
        if (body == BodySize::packed) return;
        // Not the largest of all files that belong to it: beside a small grid the header is larger than the values.
        const std::string values = header_.format->code == ermapper_code ? read_ers_header(path_).data_file : path_;
        const int bytes = body == BodySize::text ? 2 : GDALGetDataTypeSizeBytes(GDALGetRasterDataType(band_));
        const double bands = body == BodySize::text ? 1 : GDALGetRasterCount(dataset_.get());
        const double least = double{ 1 } * header_.columns * header_.rows * bytes * bands - (body == BodySize::text ? 1 : 0);
        if (static_cast<double>(FileBytes(values).text().size()) < least) throw Fault(cut_short);
    }

    void take_position()
    {
        if (is_driver(*header_.format, "netCDF") && take_netcdf_position()) return;
        const auto positions = positions_of(dataset_.get());
        if (!positions) throw Fault(no_position);
        if (positions->is_turned()) throw Fault(rotated);
        header_.cell_size_x = positions->cell_x;
        header_.cell_size_y = -positions->minus_cell_y;
        header_.limits.west = positions->west;
        header_.limits.north = positions->north;
        header_.limits.east = positions->west + header_.columns * header_.cell_size_x;
        header_.limits.south = positions->north - header_.rows * header_.cell_size_y;
    }

    bool take_netcdf_position()
    {
        const bool is_placed = positions_of(dataset_.get()).has_value();
        const auto position = netcdf_position(host_path(path_).string(), metadata_text(band_, "NETCDF_VARNAME"));
        if (!position || (is_placed && !position->has_range)) return false; // GDAL minds units and turned poles
        header_.limits = position->limits;
        header_.cell_size_x = (header_.limits.east - header_.limits.west) / header_.columns;
        header_.cell_size_y = (header_.limits.north - header_.limits.south) / header_.rows;
        upside_down_ = !is_placed && position->rows_run_south;
        return true;
    }

    /// GDAL drops a position that is given as MetersX and MetersY, so the header is read here.
    void take_ers_position()
    {
        const ErsHeader ers = read_ers_header(path_);
        if (!ers.limits) throw Fault(no_position);
        if (ers.rotation != 0) throw Fault(rotated);
        header_.cell_size_x = ers.cell_size_x;
        header_.cell_size_y = ers.cell_size_y;
        header_.limits = *ers.limits;
    }

    void take_null_value()
    {
        int given = 0;
        const double value = GDALGetRasterNoDataValue(band_, &given);
        if (given != 0 && !std::isnan(value)) header_.null_value = value;
        if (given == 0 && is_driver(*header_.format, "AAIGrid")) header_.null_value = arc_default_null;
        if (!header_.null_value) return;
        null_ = *header_.null_value;
        if (GDALGetRasterDataType(band_) == GDT_Float32 && std::abs(null_) < 3e38)
            null_ = static_cast<double>(static_cast<float>(null_));
    }

    void take_scale()
    {
        int given = 0;
        const double scale = GDALGetRasterScale(band_, &given);
        if (given != 0 && scale != 0) scale_ = scale;
        const double offset = GDALGetRasterOffset(band_, &given);
        if (given != 0) offset_ = offset;
        if (scale_ != 1 || offset_ != 0) fits_f32_ = false;
        if (is_surfer(*header_.format)) greatest_ = surfer_null;
    }

    bool is_null(double value) const { return is_missing(value) || value == null_ || value >= greatest_; }

    void apply_mask(const GridWindow & window, std::span<double> values) const
    {
        std::vector<unsigned char> mask(values.size());
        if (GDALRasterIO(GDALGetMaskBand(band_), GF_Read, window.column, window.row, window.columns, window.rows, mask.data(),
                         window.columns, window.rows, GDT_Byte, 0, 0) != CE_None)
            throw FileFault("cannot read", path_, last_gdal_error());
        for (std::size_t i = 0; i < mask.size(); ++i)
            if (mask[i] == 0) values[i] = missing_value;
    }

    std::string path_;
    Dataset dataset_;
    GDALRasterBandH band_ = nullptr;
    double null_ = missing_value;
    double greatest_ = HUGE_VAL; ///< values from here up are missing; infinity always is
    double scale_ = 1, offset_ = 0;
    bool upside_down_ = false; ///< as GDAL gives the rows
};

}

std::unique_ptr<GridSource> open_gdal_grid(const std::string & path, std::int32_t band)
{
    const QuietGdal quiet;
    const std::string name = gdal_path(path);
    const std::string driver = driver_of_file(name, grid_drivers());
    if (driver.empty()) return nullptr;
    check_parts(path, driver);
    return std::make_unique<GdalGrid>(path, name, driver, band);
}

std::optional<PictureShape> picture_shape(const std::string & path)
{
    const QuietGdal quiet;
    const std::string name = host_path(path).string();
    const std::string driver = driver_of_file(name, { "BMP", "JPEG", "GIF", "PNG", "TGA", "GTiff" });
    if (driver.empty()) return std::nullopt;
    const Dataset dataset = open_dataset(name, driver);
    PictureShape shape{ GDALGetRasterXSize(dataset.get()), GDALGetRasterYSize(dataset.get()), GDALGetRasterCount(dataset.get()),
                        false, std::nullopt };
    if (const auto positions = positions_of(dataset.get()); positions && !positions->is_turned())
        shape.limits = GridLimits{ positions->west, positions->west + shape.columns * positions->cell_x,
                                   positions->north + shape.rows * positions->minus_cell_y, positions->north };
    if (shape.bands > 0) shape.has_colour_table = GDALGetRasterColorTable(GDALGetRasterBand(dataset.get(), 1)) != nullptr;
    return shape;
}
