#include "creation/tile_solver.h"

#include <algorithm>

namespace {

// The last row, the own solver's, also stands for unknown codes. Looks wrong but is what the solvers are run with: method 0 has
// gravity names, the own solver's script always makes magnetic ones, and "uppwe" is spelt so.
constexpr TileSolver tile_solvers[] = {
    { 0, "DMX", "magfor3d", "magfor3d.mag", "maginv3d.mod", "grav3d_ref.den", "", "grav3d_ref.den", "grav3d_lower_bounds.den",
      "grav3d_uppwe_bounds.den" },
    { 3, "DMX", "magfor3d", "magfor3d.mag", "maginv3d.mod", "mag3d_ref.sus", "mag3d_bounds.sus", "mag3d_ref.sus",
      "mag3d_bounds.sus", "" },
    { 6, "DMX", "magfor3d", "magfor3d.mag", "maginv3d.mod", "mag3d_ref.sus", "mag3d_bounds.sus", "mag3d_ref.sus",
      "mag3d_lower_bounds.sus", "mag3d_upper_bounds.sus" },
    { 1, "DMX", "gzfor3d", "gzfor3d.grv", "gzinv3d.mod", "grav3d_ref.den", "", "", "", "" },
    { 2, "DMX", "gzfor3d", "gzfor3d.grv", "gzinv3d.mod", "grav3d_ref.den", "grav3d_bounds.den", "grav3d_ref.den",
      "grav3d_bounds.den", "" },
    { 5, "DMX", "gzfor3d", "gzfor3d.grv", "gzinv3d.mod", "grav3d_ref.den", "grav3d_bounds.den", "grav3d_ref.den",
      "grav3d_lower_bounds.den", "grav3d_uppwe_bounds.den" },
    { 4, "QV", "qvpre3d", "", "qvinv3d_tile", "mag3d_ref.sus", "mag3d_bounds.sus", "qv3d_ref", "mag3d_bounds", "" },
};

constexpr TileClass gravity_class = { "grav", ".den", ".rho" };
constexpr TileClass magnetic_class = { "mag", ".sus", ".kap" };

}

const TileSolver & tile_solver_of(const Creation & creation)
{
    const std::int32_t method = creation.definition.inversion_method;
    const TileSolver * last = std::end(tile_solvers) - 1;
    return *std::find_if(std::begin(tile_solvers), last, [method](const TileSolver & solver) { return solver.method == method; });
}

const TileClass & tile_class(FileClass file_class) { return file_class == FileClass::gravity ? gravity_class : magnetic_class; }

std::string tile_file_name(const char * name, const TileClass & of_class)
{
    const std::string text = name;
    return text.find('.') == std::string::npos ? text + of_class.model : text;
}

std::string shared_model_in_tile(const Creation & creation)
{
    return tile_file_name(tile_solver_of(creation).shared_model, tile_class(creation));
}

bool uses_rock_table_in_tiles(const Creation & creation)
{
    return creation.in_use.rock_properties && creation.definition.rock_property_application != 1;
}
