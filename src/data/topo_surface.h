#pragma once

#include "data/topography.h"

#include <exception>
#include <vector>

// How a surface is made of points of the ground, wherever they come from.

/// Points of the ground in mesh coordinates.
struct SurfacePoints {
    std::vector<double> x, y, z;

    /// Makes room for this many points and the frame that goes around them.
    SurfacePoints(std::size_t count, const UbcMesh & mesh);

    std::size_t size() const { return x.size(); }
    void add(double east, double north, double elevation)
    {
        x.push_back(east);
        y.push_back(north);
        z.push_back(elevation);
    }
};

/// How many air cells a column of the mesh has.
enum class AirRule {
    above_ground, ///< those above the ground, and the one that holds it
    none,
    one ///< whatever the ground
};

/// Makes the surface of the points and of a frame at their mean elevation around the mesh.
///
/// Bad, after a message, with fewer than 5 points or all on one line; `topo` is then as it was.
Status make_topo_surface(SurfacePoints ground, AirRule rule, const InversionDefinition & definition, const UbcMesh & mesh,
                         TopoSurface & topo, Host & host);

/// The message for a run-time fault in the work on topography. Bad always.
Status report_topo_fault(const std::exception & fault, Dialogs & dialogs);
