#pragma once

#include "grid/grid_source.h"

/// True when a file begins as a Geosoft binary grid does. A file of another kind that bears the same ending, or one that cannot
/// be read, is none.
bool is_geosoft_grid(const std::string & path);

/// Opens a Geosoft binary grid, plain or compressed. Fails with a `Fault` for a header or body that cannot be used: a rotated
/// grid, a colour grid, a body shorter than its header promises.
std::unique_ptr<GridSource> open_geosoft_grid(const std::string & path);
