#pragma once

#include "definition/definition.h"
#include "mesh/tile_layout.h"
#include "mesh/ubc_mesh.h"
#include "utilities/rotated_extents.h"

#include <optional>
#include <string>
#include <vector>

// The plan view of the mesh: geometry only. Three systems of coordinates meet in it: those of the mesh; those of the map, in
// which data and images lie and which are the mesh's own unless the definition has a transform; and picture units, which grow to
// the right and down.

/// What of the map is shown, and how it lies in a picture.
struct LayoutView {
    double view_x_min = 0, view_x_max = 0, view_y_min = 0, view_y_max = 0; ///< the range shown, metres of the map
    float view_scale = 1;                                                  ///< picture units per metre
    float view_left = 0, view_top = 0;                                     ///< margins of the picture
};

/// What the view is drawn from; all must outlive it.
struct LayoutSource {
    const InversionDefinition & definition;
    const UbcMesh & mesh;
    const TileLayout * tiles = nullptr; ///< in refined mode
};

/// Which part is shown, as in the list of the view: the whole mesh, the core, or, in refined mode, the limits of the form.
enum class ViewLimits { whole = 0, core = 1, refined = 2 };

/// The part of the map that is shown. Through a transform it is the extent of the turned rectangle and 10 m more on each side.
/// Nothing while there is no mesh.
std::optional<Extents> shown_extents(const LayoutSource & source, ViewLimits limits);

/// Fits a part of the map into a picture, with margins of at least 10. Nothing when the picture or the part has no area.
std::optional<LayoutView> fit_view(const Extents & shown, double width, double height);

/// A line of the picture, in metres of the map. colour: 0xBBGGRR as the colours of the controls; style 0 solid, 2 dotted.
struct LayoutLine {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    std::int32_t colour = 0;
    int style = 0;
    int width = 1;

    bool operator==(const LayoutLine &) const = default;
};

inline constexpr std::int32_t layout_black = 0, layout_red = 255, layout_blue = 16711680;

/// All lines of the view, in the order in which they are drawn; none while there is no mesh.
std::vector<LayoutLine> layout_lines(const LayoutSource & source, ViewLimits limits);

/// Between the map and the picture.
void to_picture(const LayoutView & view, double & x, double & y);
void to_map(const LayoutView & view, double & x, double & y);
/// Between the mesh and the map: the transform leads from the map into the mesh.
void mesh_to_map(const PointTransform & transform, double & x, double & y);
void map_to_mesh(const PointTransform & transform, double & x, double & y);

/// What lies under a position of the mesh.
struct LayoutPlace {
    std::int32_t cell_x = 0, cell_y = 0; ///< 0, 0 outside the mesh
    Tile tile;                           ///< 0, 0 outside the tiles
    std::string text;                    ///< for the status bar; empty outside the mesh
};
LayoutPlace place_at(const LayoutSource & source, double x, double y);
