#include "fuzz/readers.h"

namespace {

constexpr FuzzedReader table[] = {
    { "definition", read_definition_text },
    { "typed_texts", read_typed_texts },
    { "points", read_points },
    { "columns", read_columns },
    { "xyz_database", read_xyz_database },
    { "aseg_database", read_aseg_database },
    { "mesh", read_mesh },
    { "model", read_model },
    { "geosoft_grid", read_geosoft_grid },
    { "gxf_grid", read_gxf_grid },
    { "netcdf_header", read_netcdf_header },
    { "registration", read_registration },
    { "transform", read_transform },
    { "settings", read_settings },
    { "place", read_place },
    { "numbers", read_numbers },
    { "tokens", read_tokens },
    { "lines", read_lines },
};

}

std::span<const FuzzedReader> fuzzed_readers() { return table; }
