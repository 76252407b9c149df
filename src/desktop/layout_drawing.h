#pragma once

#include "data/layout_backdrop.h"
#include "mesh/layout_view.h"

#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QString>
#include <memory>

/// What the picture of the layout shows, apart from what lies beneath.
struct LayoutScene {
    std::optional<Extents> shown; ///< nothing while there is no mesh
    std::vector<LayoutLine> lines;
    PointTransform transform;
    bool refined = false;
    QString bar_title = {}; ///< over the bar of colours; empty for that of what lies beneath a mesh
};

/// What lies beneath, ready to be painted.
struct PaintedBackdrop {
    std::shared_ptr<const LayoutBackdrop> data;
    QImage ground, image; ///< null where there is none
    GridLimits ground_limits, image_limits;
};
PaintedBackdrop paint_backdrop(std::shared_ptr<const LayoutBackdrop> data);

/// What of it the user wants to see.
struct LayoutChoice {
    bool ground = true, image = true, readings = true;

    bool operator==(const LayoutChoice &) const = default;
};

/// Where the parts of the picture lie in it.
struct LayoutPlot {
    QRectF area;     ///< of the map
    QRectF bar;      ///< of the colours; empty without any
    double line = 0; ///< height of a line of text
};
LayoutPlot plot_of(const QSizeF & size, const QFont & font, bool with_bar);

/// The raster whose colours need a bar; null without one.
const BackdropRaster * raster_shown(const PaintedBackdrop & backdrop, const LayoutChoice & choice);

/// Map, readings and mesh, within the area of the plot that starts at 0, 0.
void draw_map(QPainter & painter, const QSizeF & size, const LayoutScene & scene, const PaintedBackdrop & backdrop,
              const LayoutChoice & choice, const LayoutView & view, const QPalette & palette);
/// Ticks with coordinates, the legend above, and the bar of colours.
void draw_surroundings(QPainter & painter, const LayoutPlot & plot, const LayoutScene & scene, const PaintedBackdrop & backdrop,
                       const LayoutChoice & choice, const LayoutView & view, const QPalette & palette);
