#pragma once

#include "data/given_mesh.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
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

/// A quarter turn clockwise: the mesh's x is the map's y, and its y the map's x turned round.
inline PointTransform quarter_turn()
{
    PointTransform transform;
    transform.rotation = 90;
    transform.elevation_shift = 1000; // of points; grids keep their elevations
    normalise_point_transform(transform);
    return transform;
}
