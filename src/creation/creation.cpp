#include "creation/creation.h"

#include "support/file_writer.h"
#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>

Creation start_creation(const ValidatedDefinition & definition, const UbcMesh & mesh, const std::string & folder, CreateMode mode)
{
    return { *definition, definition.in_use(), mesh, folder, mode };
}

std::int32_t Creation::blended_core_cells() const
{
    // There is nothing to blend into below the last cell.
    return std::min(add_counts(definition.mesh_cells[2], definition.tile_z_blend), mesh.cells_z());
}

std::int32_t Creation::tile_cells_z() const
{
    const bool regional = definition.inversion_method == 4 && definition.include_regional_mesh == 1;
    return regional ? mesh.cells_z() : blended_core_cells();
}

bool is_model_file(const std::string & field) { return !trim(field).empty() && !same_text(field, "NULL") && !is_numeric(field); }

bool has_weighting_file(const InversionDefinition & definition)
{
    return definition.create_weighting_file == 1 && !definition.weight_multipliers.empty();
}

const char * topography_name(const InversionDefinition & definition) { return definition.topo_type == 0 ? "topo.dat" : "null"; }

void append(Lines & lines, const Lines & more) { lines.insert(lines.end(), more.begin(), more.end()); }

void write_lines(const std::string & path, const Lines & lines)
{
    FileWriter file(path);
    for (const std::string & line : lines) file.line(line);
    file.close();
}
