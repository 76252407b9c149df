#pragma once

#include "data/observed_processing.h"

/// Which cells go into an observed data file: node numbers, so the last column and row are past the last cell.
struct OutputWindow {
    std::int32_t first_column = 1, last_column = 0;
    std::int32_t first_row = 1, last_row = 0;
};

/// How many readings a file for the window would hold.
std::int32_t count_inversion_data(const InversionDefinition & definition, const ObservedReadings & readings,
                                  const OutputWindow & window);

/// Writes an observed data file of the public solvers' format and gives the number of readings in it.
///
/// extended: also the line name and extra value of each reading. Writes no file and gives 0 when the window holds no reading.
/// Fails with a `FileFault`.
std::int32_t write_inversion_data(const InversionDefinition & definition, const UbcMesh & mesh, const ObservedReadings & readings,
                                  bool extended, const std::string & path, const OutputWindow & window, Host & host);
