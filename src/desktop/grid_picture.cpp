#include "desktop/grid_picture.h"

#include <QPainter>

GridPicture::GridPicture(QWidget * parent) : QWidget(parent)
{
    connect(&loader_, &BackdropLoader::progressed, this, [this](const QString &, int percent) {
        words_ = tr("Reading  %1 %").arg(percent);
        update();
    });
    connect(&loader_, &BackdropLoader::finished, this, &GridPicture::take);
}

void GridPicture::show_grid(const std::string & path, const QString & bar_title)
{
    BackdropSources sources;
    sources.ground_grid = path;
    show_ground(sources, bar_title);
}

void GridPicture::show_ground(const BackdropSources & sources, const QString & bar_title)
{
    scene_.bar_title = bar_title;
    const bool any = !sources.ground_grid.empty() || !sources.ground_points.file_name.empty();
    if (loader_.load(sources)) take(nullptr, any ? tr("Reading") : QString());
}

void GridPicture::take(std::shared_ptr<const LayoutBackdrop> backdrop, const QString & messages)
{
    painted_ = paint_backdrop(std::move(backdrop));
    words_ = messages;
    update();
}

void GridPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const LayoutChoice choice;
    const BackdropRaster * const raster = raster_shown(painted_, choice);
    const LayoutPlot plot = plot_of(size(), font(), true);
    const QSizeF area = plot.area.size();
    const GridLimits & limits = painted_.ground_limits;
    const auto view = raster == nullptr
                          ? std::nullopt
                          : fit_view({ limits.west, limits.east, limits.south, limits.north }, area.width(), area.height());
    if (!view) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, words_);
        return;
    }
    painter.save();
    painter.setClipRect(plot.area);
    painter.translate(plot.area.topLeft());
    draw_map(painter, area, scene_, painted_, choice, *view, palette());
    painter.restore();
    draw_surroundings(painter, plot, scene_, painted_, choice, *view, palette());
}
