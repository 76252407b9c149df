#pragma once

#include "grid/gdal_on_demand.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

// What the sources that call GDAL share; no other file sees GDAL.

/// Keeps GDAL from printing, so that `last_gdal_error` tells of what is done while this lives and of nothing older.
class QuietGdal {
public:
    QuietGdal();
    ~QuietGdal();
    QuietGdal(const QuietGdal &) = delete;
    QuietGdal & operator=(const QuietGdal &) = delete;
};

/// GDAL's words for what went wrong last.
std::string last_gdal_error();

struct CloseDataset {
    void operator()(GDALDatasetH dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<void, CloseDataset>;

/// The path of a file as GDAL is to be given it. A text that begins with a byte-order mark is handed on without it.
std::string gdal_path(const std::string & path);

/// The one of the drivers that knows the content of a file; empty for none.
std::string driver_of_file(const std::string & gdal_path, const std::vector<const char *> & drivers);

/// Opens a file read-only with one driver. Fails with a `Fault` in GDAL's words.
Dataset open_dataset(const std::string & gdal_path, const std::string & driver);

/// A text of the metadata; empty when there is none.
std::string metadata_text(GDALMajorObjectH object, const char * name, const char * domain = nullptr);

/// Six numbers that turn cells into positions; nothing when the file holds none.
struct CellsToPositions {
    double west, cell_x, row_turn, north, column_turn, minus_cell_y; // in GDAL's order

    bool is_turned() const { return row_turn != 0 || column_turn != 0; }
};
std::optional<CellsToPositions> positions_of(GDALDatasetH dataset);
