#include "grid/grid_formats.h"

#include "support/numbers.h"

#include <algorithm>

namespace {

constexpr GridRegistration cell = GridRegistration::cell, node = GridRegistration::node;

constexpr GridFormat formats[] = {
    { ermapper_code, "ERMapper", "ERS", cell, "NullCellValue of the header", BodySize::raw },
    { 2, "Surfer 6 text grid", "GSAG", node, "values of 1.70141E+38 and above", BodySize::text },
    { 3, "Surfer 6 binary grid", "GSBG", node, "values of 1.70141E+38 and above", BodySize::raw },
    { 4, "Surfer 7 binary grid", "GS7BG", node, "the header's blank value and values of 1.70141E+38 and above", BodySize::raw },
    { 5, "GeoTIFF", "GTiff", cell, "the no-data tag", BodySize::packed },
    { 6, "Arc ASCII grid", "AAIGrid", cell, "NODATA_value of the header, else -9999", BodySize::text },
    { 7, "netCDF", "netCDF", node, "_FillValue or missing_value of the variable", BodySize::packed },
    { 8, "SRTM", "SRTMHGT", node, "-32768", BodySize::raw },
    { 9, "GXF", "", node, "#DUMMY of the header and ! in packed values", BodySize::packed },
    { 10, "Geosoft binary grid", "", node, "the dummy of the stored type", BodySize::raw },
    { 11, "Esri raw grid", "EHdr", cell, "NODATA of the header", BodySize::raw },
    { 12, "ENVI", "ENVI", cell, "data ignore value of the header", BodySize::raw },
    { 13, "Arc binary grid", "AIG", cell, "the format's no-data mark", BodySize::packed },
    { 14, "Erdas Imagine", "HFA", cell, "the band's no-data value", BodySize::packed },
    { 16, "SAGA", "SAGA", node, "NODATA_VALUE of the header", BodySize::raw },
    { 17, "Idrisi", "RST", cell, "the flag value of the header", BodySize::raw },
    { 18, "DTED", "DTED", node, "-32767", BodySize::raw },
    { 19, "USGS DEM", "USGSDEM", node, "-32767", BodySize::packed },
    { image_code, "registered image", "", cell, "none", BodySize::packed },
};

template <class Matches>
const GridFormat * format_that(Matches matches)
{
    const auto * const found = std::ranges::find_if(formats, matches);
    return found == std::end(formats) ? nullptr : found;
}

}

std::span<const GridFormat> grid_formats() { return formats; }

const GridFormat * grid_format_with_code(std::int32_t code)
{
    return format_that([&](const GridFormat & format) { return format.code == code; });
}

const GridFormat * grid_format_of_driver(const std::string & driver)
{
    return format_that([&](const GridFormat & format) { return !driver.empty() && driver == format.driver; });
}

std::vector<const char *> grid_drivers()
{
    std::vector<const char *> drivers;
    for (const GridFormat & format : grid_formats())
        if (*format.driver != '\0') drivers.push_back(format.driver);
    return drivers;
}

std::string null_rule_text(const GridHeader & header)
{
    std::string text = header.format->null_rule;
    text += header.null_value ? " (" + general_text(*header.null_value) + ")" : " (none given)";
    return text + "; any value at or below -1E+30";
}

FileKind file_kind(const GridHeader & header)
{
    if (header.format == nullptr) return FileKind::points;
    return header.format->code == image_code ? FileKind::image : FileKind::grid;
}
