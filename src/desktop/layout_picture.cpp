#include "desktop/layout_picture.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>

namespace {

constexpr int rest_time = 90;           // milliseconds
constexpr double nearest_scale = 100;   // picture units per metre
constexpr double farthest_scale = 0.05; // of the scale at which all is in view

bool same_view(const LayoutView & one, const LayoutView & other)
{
    return one.view_scale == other.view_scale && one.view_left == other.view_left && one.view_top == other.view_top &&
           one.view_x_min == other.view_x_min && one.view_y_max == other.view_y_max;
}

}

LayoutPicture::LayoutPicture(QWidget * parent) : QWidget(parent)
{
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setMinimumSize(320, 240);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    rest_.setSingleShot(true);
    rest_.setInterval(rest_time);
    connect(&rest_, &QTimer::timeout, this, &LayoutPicture::redraw);
}

LayoutPlot LayoutPicture::plot() const { return plot_of(size(), font(), raster_shown(backdrop_, choice_) != nullptr); }

void LayoutPicture::redraw()
{
    layer_ = {};
    update();
}

void LayoutPicture::show_scene(LayoutScene scene, bool fit_it)
{
    scene_ = std::move(scene);
    if (fit_it || fitted_ || !view_)
        fit();
    else
        redraw();
}

void LayoutPicture::show_backdrop(std::shared_ptr<const LayoutBackdrop> backdrop)
{
    backdrop_ = paint_backdrop(std::move(backdrop));
    fitted_ ? fit() : redraw();
}

void LayoutPicture::show_choice(const LayoutChoice & choice)
{
    if (choice_ == choice) return;
    choice_ = choice;
    fitted_ ? fit() : redraw();
}

void LayoutPicture::fit()
{
    const QSizeF area = plot().area.size();
    view_ = scene_.shown ? fit_view(*scene_.shown, area.width(), area.height()) : std::nullopt;
    fitted_ = true;
    redraw();
}

void LayoutPicture::zoom(const QPointF & about, double factor)
{
    if (!view_ || !scene_.shown) return;
    const LayoutPlot here = plot();
    const auto whole = fit_view(*scene_.shown, here.area.width(), here.area.height());
    const double least = whole ? static_cast<double>(whole->view_scale) * farthest_scale : 0;
    const auto scale = static_cast<double>(view_->view_scale);
    // One metre never gets larger than this, but a small mesh may have to start beyond it.
    const double wanted = std::clamp(scale * factor, least, std::max(nearest_scale, scale));
    const QPointF point = about - here.area.topLeft();
    double x = point.x(), y = point.y();
    to_map(*view_, x, y);
    view_->view_scale = static_cast<float>(wanted);
    view_->view_left = static_cast<float>(point.x() - (x - view_->view_x_min) * wanted);
    view_->view_top = static_cast<float>(point.y() - (view_->view_y_max - y) * wanted);
    fitted_ = false;
    rest_.start();
    update();
}

void LayoutPicture::pan(const QPointF & by)
{
    if (!view_) return;
    view_->view_left += static_cast<float>(by.x());
    view_->view_top += static_cast<float>(by.y());
    fitted_ = false;
    rest_.start();
    update();
}

std::optional<QPointF> LayoutPicture::in_mesh(const QPointF & point) const
{
    const LayoutPlot here = plot();
    if (!view_ || !here.area.contains(point)) return std::nullopt;
    double x = point.x() - here.area.left(), y = point.y() - here.area.top();
    to_map(*view_, x, y);
    map_to_mesh(scene_.transform, x, y);
    return QPointF(x, y);
}

void LayoutPicture::render()
{
    const QSizeF area = plot().area.size();
    const double ratio = devicePixelRatioF();
    layer_ = QPixmap((area * ratio).toSize());
    layer_.setDevicePixelRatio(ratio);
    layer_view_ = *view_;
    QPainter painter(&layer_);
    draw_map(painter, area, scene_, backdrop_, choice_, *view_, palette());
}

void LayoutPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const LayoutPlot here = plot();
    if (!view_ || here.area.width() < 1 || here.area.height() < 1) {
        painter.drawText(rect(), Qt::AlignCenter, tr("There is no mesh to show"));
        return;
    }
    if (layer_.isNull()) render();
    painter.save();
    painter.setClipRect(here.area);
    painter.translate(here.area.topLeft());
    if (!same_view(*view_, layer_view_)) {
        painter.fillRect(QRectF(QPointF(0, 0), here.area.size()), palette().color(QPalette::Base));
        double x = 0, y = 0; // where the corner of the layer lies now
        to_map(layer_view_, x, y);
        to_picture(*view_, x, y);
        painter.translate(x, y);
        const double stretch = static_cast<double>(view_->view_scale) / static_cast<double>(layer_view_.view_scale);
        painter.scale(stretch, stretch);
    }
    painter.drawPixmap(QPointF(0, 0), layer_);
    painter.restore();
    draw_surroundings(painter, here, scene_, backdrop_, choice_, *view_, palette());
}

QImage LayoutPicture::image()
{
    constexpr int factor = 2;
    QImage image(size() * factor, QImage::Format_RGB32);
    image.setDevicePixelRatio(factor);
    image.fill(Qt::white);
    if (!view_) return image;
    QPalette paper;
    for (const auto role : { QPalette::Base, QPalette::Window }) paper.setColor(role, Qt::white);
    for (const auto role : { QPalette::Text, QPalette::WindowText }) paper.setColor(role, Qt::black);
    QPainter painter(&image);
    painter.setFont(font());
    const LayoutPlot here = plot();
    painter.save();
    painter.setClipRect(here.area);
    painter.translate(here.area.topLeft());
    draw_map(painter, here.area.size(), scene_, backdrop_, choice_, *view_, paper);
    painter.restore();
    draw_surroundings(painter, here, scene_, backdrop_, choice_, *view_, paper);
    return image;
}

void LayoutPicture::resizeEvent(QResizeEvent *) { fitted_ ? fit() : redraw(); }

void LayoutPicture::changeEvent(QEvent * event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) redraw();
    QWidget::changeEvent(event);
}

void LayoutPicture::wheelEvent(QWheelEvent * event)
{
    constexpr double steps_to_double = 480; // four notches of a common wheel
    zoom(event->position(), std::pow(2.0, event->angleDelta().y() / steps_to_double));
    event->accept();
}

void LayoutPicture::mousePressEvent(QMouseEvent * event)
{
    if (event->button() != Qt::LeftButton) return;
    pressed_at_ = event->position();
    dragged_from_.reset();
}

void LayoutPicture::mouseMoveEvent(QMouseEvent * event)
{
    const QPointF point = event->position();
    if (pressed_at_ && !dragged_from_ && (point - *pressed_at_).manhattanLength() >= QApplication::startDragDistance()) {
        dragged_from_ = *pressed_at_;
        setCursor(Qt::ClosedHandCursor);
    }
    if (dragged_from_) {
        pan(point - *dragged_from_);
        dragged_from_ = point;
    }
    if (const auto place = in_mesh(point)) emit pointer_moved(place->x(), place->y());
}

void LayoutPicture::mouseReleaseEvent(QMouseEvent * event)
{
    if (event->button() != Qt::LeftButton || !pressed_at_) return;
    const bool dragged = dragged_from_.has_value();
    pressed_at_.reset();
    dragged_from_.reset();
    setCursor(Qt::CrossCursor);
    if (dragged) return;
    if (const auto place = in_mesh(event->position())) emit pointer_released(place->x(), place->y());
}

void LayoutPicture::mouseDoubleClickEvent(QMouseEvent *) { fit(); }
