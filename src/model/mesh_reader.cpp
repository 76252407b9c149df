#include "model/mesh_reader.h"

#include "mesh/complete_mesh.h"
#include "model/mesh_reading.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/text.h"

#include <optional>

namespace {

enum class Layout { ubc, ubc_nodes, sections, layered, inversion_header, foreign };

bool contains(const std::string & line, std::string_view words) { return line.find(words) != std::string::npos; }

bool is_voxet(std::string_view line)
{
    return upper_case(next_token(line)) == "GOCAD" && upper_case(next_token(line)).starts_with("VOXET");
}

/// Numbers at the front of a line, up to three.
int leading_numbers(std::string_view line)
{
    int count = 0;
    while (count < 3 && !line.empty() && is_numeric(next_token(line))) ++count;
    return count;
}

/// What the first lines say. The current line is then the first that counts for the layout.
Layout recognise(MeshText & text)
{
    constexpr std::string_view grid_file = "vtk DataFile";
    text.data_line();
    text.cut_comment();
    const std::string first = text.line();
    // its mark usually stands behind a "#", on a line that would pass for a comment
    if (is_voxet(first) || contains(first, grid_file) || text.starts_with("# " + std::string(grid_file))) return Layout::foreign;
    if (contains(first, "grid nodes in x y z") || contains(first, "number of grid nodes")) {
        text.data_line();
        text.cut_comment();
        return Layout::ubc_nodes;
    }
    const int numbers = leading_numbers(first);
    if (numbers == 1) return Layout::sections;
    if (numbers == 3) return Layout::ubc;
    text.data_line();
    return contains(text.line(), "Number of north") ? Layout::layered : Layout::inversion_header;
}

Status read_layout(Layout layout, MeshReading & reading)
{
    switch (layout) {
    case Layout::ubc:
        return read_ubc_mesh(reading, false);
    case Layout::ubc_nodes:
        return read_ubc_mesh(reading, true);
    case Layout::sections:
        return read_section_mesh(reading);
    case Layout::layered:
        return read_layered_mesh(reading);
    case Layout::inversion_header:
        return read_inversion_header(reading);
    case Layout::foreign:
        break;
    }
    return Status::good;
}

bool has_elevations(const UbcMesh & mesh) { return mesh.topo_present && mesh.topo_min <= mesh.topo_max; }

/// The drape of a mesh whose file does not say it: from the lowest ground down as far as the mesh goes.
void set_drape(const MeshReading & reading)
{
    UbcMesh & mesh = reading.mesh;
    const bool asked = !reading.drape_read || mesh.drape_top < mesh.drape_bottom;
    if (mesh.mesh_format != 5 || !asked || !has_elevations(mesh)) return;
    mesh.drape_top = mesh.topo_min;
    mesh.drape_bottom = to_f32(static_cast<double>(mesh.drape_top) - (mesh.nodes_z[1] - mesh.nodes_z[mesh.nodes_z.size()]));
    mesh.drape_depth = mesh.drape_top - mesh.drape_bottom;
}

void set_ground(BaseModel & base)
{
    UbcMesh & mesh = base.mesh;
    if (mesh.mesh_format == 1) mesh.ground_level = mesh.nodes_z[mesh.air_cells + mesh.sea_cells + 1];
    if (mesh.topo_present && mesh.mesh_format >= 2 && mesh.mesh_format <= 5) mesh.ground_level = mesh.origin_z;
    if (has_elevations(mesh)) base.ground_bottom = mesh.topo_min;
}

Status read_mesh(BaseModel & base, MeshText & text, Dialogs & dialogs)
{
    MeshReading reading{ text, base.mesh, dialogs };
    const Layout layout = recognise(text);
    if (layout == Layout::foreign) return Status::good;
    if (read_layout(layout, reading) != Status::good) return Status::bad;
    if (complete_mesh(base.mesh, dialogs) != Status::good) return Status::bad;
    set_drape(reading);
    set_ground(base);
    base.mesh_loaded = true;
    return Status::good;
}

}

Status read_mesh_file(BaseModel & base, Host & host)
{
    reset_mesh(base);
    if (trim(base.mesh_file).empty()) return Status::good;
    std::optional<MeshText> text;
    try {
        text.emplace(base.mesh_file);
        return read_mesh(base, *text, host.dialogs);
    } catch (const std::exception & fault) {
        const std::string place = text ? " (" + base.mesh_file + ", line " + general_text(text->line_number()) + ")" : "";
        host.dialogs.message(std::string("An error occurred while reading the mesh file : \r") + fault.what() + place);
        return Status::bad;
    }
}
