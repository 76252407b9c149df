#pragma once

#include "grid/grid_access.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>

/// The kind of number a working copy holds.
enum class CopyValues { f32, f64 };

/// A working copy (GeoTIFF) being written window by window, missing values as -1e32.
/// Fails with a `FileFault` that names the path; a writer destroyed without `close` leaves what had been written.
class GridWriter {
public:
    /// header: columns, rows, limits and cell sizes of the copy.
    GridWriter(const std::string & path, const GridHeader & header, CopyValues values);
    ~GridWriter();
    GridWriter(const GridWriter &) = delete;
    GridWriter & operator=(const GridWriter &) = delete;

    /// window: counted within the copy.
    void write(const GridWindow & window, std::span<const double> values);
    /// Writes what is held back and closes.
    void close();

private:
    struct File;
    std::unique_ptr<File> file_;
    std::string path_;
};
