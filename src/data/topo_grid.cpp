#include "data/topo_grid.h"

#include "data/mesh_grids.h"
#include "data/topo_surface.h"
#include "support/missing.h"

namespace {

constexpr std::int32_t counts_air = 0, own_solver = 4; // inversion methods

/// The first node, every cell centre, the last node.
std::vector<double> edges_and_centres(const List<double> & nodes, const List<double> & centres)
{
    std::vector<double> positions = { nodes[1] };
    positions.insert(positions.end(), centres.items().begin(), centres.items().end());
    positions.push_back(nodes[nodes.size()]);
    return positions;
}

std::vector<double> nodes_and_centres(const List<double> & nodes, const List<double> & centres)
{
    std::vector<double> positions = { nodes[1] };
    for (std::int32_t cell = 1; cell <= centres.size(); ++cell) {
        positions.push_back(centres[cell]);
        positions.push_back(nodes[cell + 1]);
    }
    return positions;
}

SurfacePoints sampled(MeshGrids & grid, const std::vector<double> & xs, const std::vector<double> & ys, double offset,
                      const UbcMesh & mesh, Progress & progress)
{
    SurfacePoints ground(xs.size() * ys.size(), mesh);
    Percentage percentage(progress, static_cast<std::int64_t>(ys.size()));
    for (std::size_t row = 0; row < ys.size(); ++row) {
        percentage.report(static_cast<std::int64_t>(row));
        grid.sample_row(xs, ys[row]);
        const auto z = grid.values(0);
        for (std::size_t i = 0; i < xs.size(); ++i)
            if (!is_missing(z[i])) ground.add(xs[i], ys[row], z[i] + offset);
    }
    return ground;
}

/// A grid's ground is counted under one method only; the solvers of the others get the top layer as air, whatever its height.
AirRule air_rule(const InversionDefinition & definition)
{
    return definition.inversion_method == counts_air ? AirRule::above_ground : AirRule::one;
}

Status make_from_grid(const InversionDefinition & definition, const UbcMesh & mesh, TopoSurface & topo, Host & host)
{
    host.progress.step("Loading grid data");
    host.progress.percent(0);
    MeshGrids grid(mesh, definition.coordinate_transform);
    if (grid.add(definition.data_file[1], host.dialogs) != Status::good) return Status::bad;
    const auto positions = definition.inversion_method == own_solver ? &nodes_and_centres : &edges_and_centres;
    SurfacePoints ground = sampled(grid, positions(mesh.nodes_x, mesh.centres_x), positions(mesh.nodes_y, mesh.centres_y),
                                   static_cast<double>(definition.topo_offset()), mesh, host.progress);
    // The frame stands at the mean of these values and not of the whole grid: they lie in the mesh and hold the offset.
    return make_topo_surface(std::move(ground), air_rule(definition), definition, mesh, topo, host);
}

}

Status load_topo_grid(const InversionDefinition & definition, const UbcMesh & mesh, TopoSurface & topo, Host & host)
{
    try {
        return make_from_grid(definition, mesh, topo, host);
    } catch (const std::exception & fault) {
        return report_topo_fault(fault, host.dialogs);
    }
}
