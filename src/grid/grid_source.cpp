#include "grid/grid_source.h"

#include "grid/gdal_grid.h"
#include "grid/geosoft_grid.h"
#include "grid/gxf_grid.h"
#include "support/fault.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int64_t strip_values = 1 << 20; // 8 MB

std::int32_t strip_length(std::int32_t across)
{
    return static_cast<std::int32_t>(std::max<std::int64_t>(1, strip_values / std::max(1, across)));
}

}

std::unique_ptr<GridSource> open_grid_source(const std::string & path, std::int32_t band, std::string & fault)
{
    fault.clear();
    try {
        if (is_geosoft_grid(path)) return open_geosoft_grid(path);
        if (is_gxf_grid(path)) return open_gxf_grid(path);
        return open_gdal_grid(path, band);
    } catch (const Fault & found) {
        fault = found.what();
        return nullptr;
    }
}

std::string header_fault(const GridHeader & header)
{
    const GridLimits & limits = header.limits;
    if (header.columns <= 0 || header.rows <= 0) return "it has no cells";
    for (const double value : { limits.west, limits.east, limits.south, limits.north, header.cell_size_x, header.cell_size_y })
        if (!std::isfinite(value)) return "its position is no number";
    if (!(header.cell_size_x > 0) || !(header.cell_size_y > 0)) return "its cell size is not above 0";
    if (!(limits.west < limits.east)) return "its west edge does not lie west of its east edge";
    if (!(limits.south < limits.north)) return "its south edge does not lie south of its north edge";
    return "";
}

void for_each_strip(GridSource & source, const GridWindow & window,
                    const std::function<void(const GridWindow &, std::span<const double>)> & visit)
{
    const bool by_columns = source.by_columns();
    const std::int32_t step = strip_length(by_columns ? window.rows : window.columns);
    const std::int32_t count = by_columns ? window.columns : window.rows;
    std::vector<double> values;
    for (std::int32_t done = 0; done < count; done += std::min(step, count - done)) {
        GridWindow strip = window;
        (by_columns ? strip.column : strip.row) += done;
        (by_columns ? strip.columns : strip.rows) = std::min(step, count - done);
        values.resize(static_cast<std::size_t>(strip.columns) * static_cast<std::size_t>(strip.rows));
        source.read(strip, values);
        visit(strip, values);
    }
}
