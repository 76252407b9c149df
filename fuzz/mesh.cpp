#include "fuzz/readers.h"
#include "fuzz/surroundings.h"
#include "model/base_model.h"
#include "model/mesh_reader.h"
#include "model/model_reader.h"
#include "model/model_values.h"

#include <algorithm>
#include <cmath>

namespace {

void check_axis(const List<double> & widths, const List<double> & nodes, const List<double> & centres, std::int32_t cells)
{
    must(cells > 0 && widths.size() == cells && centres.size() == cells && nodes.size() == cells + 1, "lists for each cell");
    for (const double width : widths.items()) must(width > 0, "a width that is not above 0");
    for (const double node : nodes.items()) must(std::isfinite(node), "a node that is nowhere");
}

void check_mesh(const UbcMesh & mesh)
{
    check_axis(mesh.widths_x, mesh.nodes_x, mesh.centres_x, mesh.cells_x());
    check_axis(mesh.widths_y, mesh.nodes_y, mesh.centres_y, mesh.cells_y());
    check_axis(mesh.widths_z, mesh.nodes_z, mesh.centres_z, mesh.cells_z());
    must(mesh.air_cells >= 0 && mesh.sea_cells >= 0 && mesh.air_cells + mesh.sea_cells <= mesh.cells_z(), "layers of the mesh");
    const auto surface = (mesh.cells_x() + std::int64_t{ 1 }) * (mesh.cells_y() + std::int64_t{ 1 });
    must(mesh.topo_nodes.empty() || mesh.topo_nodes.size() == surface, "an elevation for each surface node");
}

/// Layers of 10 m.
UbcMesh take_mesh(Input & input)
{
    UbcMesh mesh;
    for (std::int32_t & cells : mesh.total_cells) cells = input.take_number(1, 6);
    if (input.take_byte() == 255) mesh.total_cells = { 40000, 40000, 1 }; // more than any input can fill
    mesh.mesh_format = input.take_number(0, 6);
    mesh.air_cells = input.take_number(0, mesh.cells_z() + 1);
    mesh.sea_cells = input.take_number(0, mesh.cells_z() - mesh.air_cells + 1);
    for (std::int32_t z = 0; z <= mesh.cells_z(); ++z) mesh.nodes_z.push_back(-10 * z);
    return mesh;
}

}

void read_mesh(Input input)
{
    FuzzHost surroundings;
    BaseModel base;
    base.mesh_file = scratch_file("mesh.msh", input.text);
    const Status status = read_mesh_file(base, surroundings.host);
    must((status == Status::good) == (surroundings.dialogs.messages == 0), "a read without its one message");
    must(!base.mesh_loaded || status == Status::good, "a faulty mesh that is loaded");
    if (base.mesh_loaded) check_mesh(base.mesh);
}

void read_model(Input input)
{
    FuzzHost surroundings;
    BaseModel base;
    base.mesh_loaded = true;
    base.mesh = take_mesh(input);
    base.model.model_type = input.take_number(1, 9);
    base.model.model_file_order = input.take_number(0, 7);
    base.model.model_null = std::array{ -1.0F, 0.0F, 99999.0F, -100.0F }[input.take_byte() % 4];
    surroundings.dialogs.answer = std::array{ "", "2", "0", "1e9", "x", "1.5" }[input.take_byte() % 6];
    const ValueShares shares{ std::size_t{ input.take_byte() } + 1, input.take_byte() % 3 + 1 };
    base.model_file = scratch_file("model.mod", input.text);

    List<float> whole, shared;
    const auto read = [&](List<float> & values, const ValueShares & with) {
        return read_model_values(base.model_file, base.model.model_file_order, base.model.model_null, base.mesh, values,
                                 surroundings.host, with);
    };
    const Status status = read(whole, { std::size_t{ 1 } << 17, 1 });
    must(read(shared, shares) == status, "a read that depends on its parts");
    must(std::ranges::equal(whole.items(), shared.items(),
                            [](float a, float b) { return a == b || (std::isnan(a) && std::isnan(b)); }),
         "values that depend on parts");
    const Status loaded = read_model_file(base, input.take_flag(), surroundings.host);
    must((loaded == Status::good) == base.model.model_loaded, "a model that is loaded and faulty");
    if (base.model.model_loaded)
        must(base.model.model_values.size() == std::int64_t{ base.mesh.cells_x() } * base.mesh.cells_y() * base.mesh.cells_z(),
             "a value for each cell");
}
