#pragma once

#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "mesh/ubc_mesh.h"
#include "utilities/point_transform.h"

#include <cstdlib>
#include <filesystem>

/// Grids in a folder that is also the one for temporary files, so that a working copy left behind is seen.
struct GivenGrids {
    GivenGrids() { setenv("TMPDIR", host_path(folder.path()).c_str(), 1); }
    ~GivenGrids() { unsetenv("TMPDIR"); }

    /// An Arc ASCII grid. head: columns, rows, west and south edge and cell size; "*" in the values is null.
    std::string arc(const std::string & name, const std::array<int, 5> & head, std::string values) const
    {
        for (auto at = values.find('*'); at != std::string::npos; at = values.find('*')) values.replace(at, 1, "-7777");
        return folder.write(name, "ncols " + std::to_string(head[0]) + "\nnrows " + std::to_string(head[1]) + "\nxllcorner " +
                                      std::to_string(head[2]) + "\nyllcorner " + std::to_string(head[3]) + "\ncellsize " +
                                      std::to_string(head[4]) + "\nNODATA_value -7777\n" + values + "\n");
    }

    bool has_working_copies() const
    {
        for (const auto & entry : std::filesystem::directory_iterator(host_path(folder.path())))
            if (entry.path().filename().string().starts_with("~")) return true;
        return false;
    }

    TemporaryFolder folder;
    RecordedHost recorded;
};

inline void set_axis(std::int32_t cells, List<double> & nodes, List<double> & centres)
{
    for (std::int32_t i = 0; i <= cells; ++i) nodes.push_back(10 * i);
    for (std::int32_t i = 0; i < cells; ++i) centres.push_back(10 * i + 5);
}

/// Cells of 10 m from the origin, and layers from 100 m down.
inline UbcMesh even_mesh(std::int32_t cells_x, std::int32_t cells_y, List<double> nodes_z)
{
    UbcMesh mesh;
    mesh.total_cells = { cells_x, cells_y, nodes_z.size() - 1 };
    set_axis(cells_x, mesh.nodes_x, mesh.centres_x);
    set_axis(cells_y, mesh.nodes_y, mesh.centres_y);
    mesh.nodes_z = std::move(nodes_z);
    return mesh;
}

/// A quarter turn clockwise: the mesh's x is the map's y, and its y the map's x turned round.
inline PointTransform quarter_turn()
{
    PointTransform transform;
    transform.rotation = 90;
    transform.elevation_shift = 1000; // of points; grids keep their elevations
    normalise_point_transform(transform);
    return transform;
}
