#pragma once

#include <cstdint>
#include <string_view>

/// How many bytes a netCDF file must have by its own header, in the classic forms and in the HDF5 one; 0 when the header does not
/// tell, more than any file has when the header itself runs past the end. The netCDF library gives zeros for the values that a
/// file cut short no longer holds.
std::uint64_t promised_netcdf_size(std::string_view bytes);
