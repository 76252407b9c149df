#pragma once

#include "definition/definition.h"
#include "mesh/tile_layout.h"
#include "mesh/ubc_mesh.h"

#include <optional>
#include <string>
#include <vector>

/// The plan view of the mesh: geometry only. Picture units grow to the right and down.
struct LayoutView {
    double view_x_min = 0, view_x_max = 0, view_y_min = 0, view_y_max = 0; ///< the range shown, metres
    float view_scale = 1;                                                  ///< picture units per metre
    float view_left = 0, view_top = 0;                                     ///< margins of the picture
};

/// What the view is drawn from; all must outlive it.
struct LayoutSource {
    const InversionDefinition & definition;
    const UbcMesh & mesh;
    const TileLayout * tiles = nullptr; ///< in refined mode
};

/// Which part is shown, as in the list of the view: the whole mesh, the core, or, in refined mode, the refined volume.
enum class ViewLimits { whole = 0, core = 1, refined = 2 };

/// Fits a part of the mesh into a picture. Nothing when the picture or the part has no area.
std::optional<LayoutView> fit_view(const LayoutSource & source, ViewLimits limits, double width, double height);

/// A line of the picture. colour: 0xBBGGRR as the colours of the controls; style 0 solid, 2 dotted.
struct LayoutLine {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    std::int32_t colour = 0;
    int style = 0;
    int width = 1;
};

/// All lines of the view, in the order in which they are drawn.
std::vector<LayoutLine> layout_lines(const LayoutSource & source, const LayoutView & view, ViewLimits limits);

/// Between mesh coordinates and the picture, through the definition's transform when there is one.
void to_picture(const LayoutSource & source, const LayoutView & view, double & x, double & y);
void to_mesh(const LayoutSource & source, const LayoutView & view, double & x, double & y);

/// What lies under a position of the mesh.
struct LayoutPlace {
    std::int32_t cell_x = 0, cell_y = 0; ///< 0 outside the mesh
    Tile tile;                           ///< 0, 0 outside the tiles
    std::string text;                    ///< for the status bar
};
LayoutPlace place_at(const LayoutSource & source, double x, double y);
