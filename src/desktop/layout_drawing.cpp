#include "desktop/layout_drawing.h"

#include "support/missing.h"

#include <QObject>
#include <algorithm>
#include <cmath>

namespace {

/// From low to high, pale enough for red and blue lines to stand out.
constexpr QRgb ramp[] = { 0xff5d7f8c, 0xff86a88f, 0xffb9c79a, 0xffe3d9a8, 0xffe0bd8c, 0xffc9a08a, 0xfff4efe9 };

QRgb colour_at(double share)
{
    constexpr int last = static_cast<int>(std::size(ramp)) - 1;
    const double place = std::clamp(share, 0.0, 1.0) * last;
    const int below = std::min(static_cast<int>(place), last - 1);
    const double weight = place - below;
    const auto mix = [weight](int one, int other) { return static_cast<int>(std::lround(one + (other - one) * weight)); };
    const QRgb low = ramp[below], high = ramp[below + 1];
    return qRgb(mix(qRed(low), qRed(high)), mix(qGreen(low), qGreen(high)), mix(qBlue(low), qBlue(high)));
}

QImage image_of(const BackdropRaster & raster)
{
    if (raster.columns == 0) return {};
    QImage image(raster.columns, raster.rows, QImage::Format_ARGB32);
    const auto low = static_cast<double>(raster.low), range = static_cast<double>(raster.high) - low;
    for (int row = 0; row < raster.rows; ++row) {
        auto * const pixels = reinterpret_cast<QRgb *>(image.scanLine(row));
        const float * const values =
            raster.values.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(raster.columns);
        for (int column = 0; column < raster.columns; ++column) {
            const float value = values[column];
            pixels[column] = is_missing(value) ? 0 : colour_at(range > 0 ? (static_cast<double>(value) - low) / range : 0.5);
        }
    }
    return image;
}

QImage image_of(const Picture & picture)
{
    return QImage(picture.pixels.data(), picture.width, picture.height, qsizetype{ 4 } * picture.width, QImage::Format_RGBA8888)
        .copy();
}

bool is_dark(const QPalette & palette) { return palette.color(QPalette::Base).lightness() < 128; }

/// What lines lie on: paper, dark paper, or a picture that covers it.
enum class Under { light, dark, picture_on_dark };

Under under_of(const QPalette & palette, bool covered)
{
    if (!is_dark(palette)) return Under::light;
    return covered ? Under::picture_on_dark : Under::dark;
}

/// The colours of the lines, lighter where the ground is dark; between both where it may be either.
QColor shown_colour(std::int32_t colour, const QPalette & palette, Under under)
{
    if (colour == layout_black) return palette.color(QPalette::Text);
    if (under == Under::light) return QColor(colour & 255, colour >> 8 & 255, colour >> 16 & 255);
    if (colour != layout_blue) return under == Under::dark ? QColor(255, 95, 85) : QColor(240, 40, 30);
    return under == Under::dark ? QColor(120, 165, 255) : QColor(50, 85, 255);
}

QPen pen_of(const LayoutLine & line, const QPalette & palette, Under under)
{
    QPen pen(shown_colour(line.colour, palette, under), line.width);
    if (line.style != 0) pen.setDashPattern({ 3, 3 });
    pen.setCapStyle(Qt::FlatCap);
    return pen;
}

/// True when a picture is shown beneath.
bool is_covered(const PaintedBackdrop & backdrop, const LayoutChoice & choice)
{
    return (choice.ground && !backdrop.ground.isNull()) || (choice.image && !backdrop.image.isNull());
}

QPointF at(const LayoutView & view, double x, double y)
{
    to_picture(view, x, y);
    return { x, y };
}

QRectF rectangle_of(const LayoutView & view, const GridLimits & limits)
{
    return { at(view, limits.west, limits.north), at(view, limits.east, limits.south) };
}

/// Cuts a line to a rectangle; false when nothing is left. Far ends make dotted lines slow, and far coordinates make wrong ones.
bool cut(QLineF & line, const QRectF & box)
{
    double from = 0, to = 1;
    const auto side = [&](double start, double step, double low, double high) {
        if (step == 0) return start >= low && start <= high;
        const auto [first, second] = std::minmax({ (low - start) / step, (high - start) / step });
        from = std::max(from, first);
        to = std::min(to, second);
        return from < to;
    };
    if (!side(line.x1(), line.dx(), box.left(), box.right()) || !side(line.y1(), line.dy(), box.top(), box.bottom()))
        return false;
    line = QLineF(line.pointAt(from), line.pointAt(to));
    return true;
}

void draw_readings(QPainter & painter, const QRectF & box, const LayoutBackdrop & data, const LayoutView & view, bool on_dark)
{
    QList<QPointF> dots;
    for (std::size_t i = 0; i < data.reading_x.size(); ++i)
        if (const QPointF dot = at(view, data.reading_x[i], data.reading_y[i]); box.contains(dot)) dots << dot;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(on_dark ? QColor(225, 225, 225, 170) : QColor(25, 25, 25, 150), dots.size() > 20000 ? 1.0 : 2.0));
    painter.drawPoints(dots.data(), static_cast<int>(dots.size()));
}

/// The step between ticks that leaves at least `apart` picture units: 1, 2 or 5 and zeros.
double tick_step(double scale, double apart)
{
    const double least = apart / scale, power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : { 1.0, 2.0, 5.0 })
        if (factor * power >= least) return factor * power;
    return 10 * power;
}

QString tick_text(double value, double step)
{
    const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
    return QString::number(value == 0 ? 0.0 : value, 'f', std::min(decimals, 6));
}

void draw_ticks(QPainter & painter, const LayoutPlot & plot, const LayoutView & view)
{
    const QRectF & area = plot.area;
    double west = 0, north = 0, east = area.width(), south = area.height();
    to_map(view, west, north);
    to_map(view, east, south);
    const auto scale = static_cast<double>(view.view_scale);
    const double widest = painter.fontMetrics().horizontalAdvance(tick_text(std::max(std::abs(west), std::abs(east)), 1));
    const double step_x = tick_step(scale, widest * 1.6), step_y = tick_step(scale, plot.line * 3);
    for (double k = std::ceil(west / step_x); k * step_x <= east; ++k) {
        const double x = area.left() + at(view, k * step_x, north).x();
        painter.drawLine(QPointF(x, area.bottom()), QPointF(x, area.bottom() + 5));
        painter.drawText(QRectF(x - widest, area.bottom() + 6, 2 * widest, plot.line), Qt::AlignHCenter | Qt::AlignTop,
                         tick_text(k * step_x, step_x));
    }
    for (double k = std::ceil(south / step_y); k * step_y <= north; ++k) {
        const double y = area.top() + at(view, west, k * step_y).y();
        painter.drawLine(QPointF(area.left() - 5, y), QPointF(area.left(), y));
        painter.drawText(QRectF(0, y - plot.line / 2, area.left() - 8, plot.line), Qt::AlignRight | Qt::AlignVCenter,
                         tick_text(k * step_y, step_y));
    }
}

/// Draws one entry of the legend and gives where the next one starts.
double draw_entry(QPainter & painter, double x, double y, const QString & text, const QPen & pen, bool dot)
{
    constexpr double sample = 22, gap = 6;
    const QPen words = painter.pen();
    painter.setPen(pen);
    if (dot)
        painter.drawPoint(QPointF(x + sample / 2, y));
    else
        painter.drawLine(QPointF(x, y), QPointF(x + sample, y));
    painter.setPen(words);
    const QFontMetricsF metrics(painter.font());
    painter.drawText(QPointF(x + sample + gap, y + metrics.ascent() / 2 - 1), text);
    return x + sample + gap + metrics.horizontalAdvance(text) + 3 * gap;
}

void draw_legend(QPainter & painter, const LayoutPlot & plot, const LayoutScene & scene, const PaintedBackdrop & backdrop,
                 const LayoutChoice & choice, const QPalette & palette)
{
    const double y = plot.area.top() - plot.line * 0.9;
    double x = plot.area.left();
    const Under under = under_of(palette, is_covered(backdrop, choice));
    const LayoutLine red = { .colour = layout_red, .width = 2 }, blue = { .colour = layout_blue, .style = 2 };
    x = draw_entry(painter, x, y, scene.refined ? QObject::tr("Mesh, tiles (crossed: skipped)") : QObject::tr("Mesh and core"),
                   pen_of(red, palette, under), false);
    if (scene.refined) x = draw_entry(painter, x, y, QObject::tr("Overlap"), pen_of(blue, palette, under), false);
    if (choice.readings && backdrop.data && !backdrop.data->reading_x.empty())
        draw_entry(painter, x, y, QObject::tr("Readings"), QPen(palette.color(QPalette::Text), 4, Qt::SolidLine, Qt::RoundCap),
                   true);
}

void draw_bar(QPainter & painter, const LayoutPlot & plot, const BackdropRaster & raster, const QString & title)
{
    const QRectF & bar = plot.bar;
    QLinearGradient gradient(bar.bottomLeft(), bar.topLeft());
    constexpr int stops = 32;
    for (int i = 0; i <= stops; ++i) gradient.setColorAt(i / double{ stops }, QColor(colour_at(i / double{ stops })));
    painter.fillRect(bar, gradient);
    painter.drawRect(bar);
    const auto low = static_cast<double>(raster.low), high = static_cast<double>(raster.high);
    if (high > low) {
        const double step = tick_step(bar.height() / (high - low), plot.line * 2.5);
        for (double k = std::ceil(low / step); k * step <= high; ++k) {
            const double y = bar.bottom() - (k * step - low) / (high - low) * bar.height();
            painter.drawLine(QPointF(bar.right(), y), QPointF(bar.right() + 4, y));
            painter.drawText(QPointF(bar.right() + 7, y + plot.line * 0.3), tick_text(k * step, step));
        }
    } else {
        painter.drawText(QPointF(bar.right() + 7, bar.center().y()), QString::number(low, 'g', 6));
    }
    painter.drawText(QPointF(bar.left() - plot.line * 0.3, bar.top() - plot.line * 0.6), title);
}

}

PaintedBackdrop paint_backdrop(std::shared_ptr<const LayoutBackdrop> data)
{
    PaintedBackdrop painted;
    if (data) {
        painted.ground = image_of(data->ground);
        painted.ground_limits = data->ground.limits;
        painted.image = data->picture ? image_of(*data->picture) : image_of(data->grid);
        painted.image_limits = data->picture ? data->picture_limits : data->grid.limits;
    }
    painted.data = std::move(data);
    return painted;
}

LayoutPlot plot_of(const QSizeF & size, const QFont & font, bool with_bar)
{
    const QFontMetricsF metrics(font);
    LayoutPlot plot;
    plot.line = metrics.height();
    const double left = metrics.horizontalAdvance(QStringLiteral("00000000.0")) + 10, top = plot.line * 2;
    const double right = with_bar ? metrics.horizontalAdvance(QStringLiteral("000000.0")) + 2.5 * plot.line : plot.line;
    plot.area = QRectF(left, top, size.width() - left - right, size.height() - top - plot.line * 1.8);
    if (with_bar) plot.bar = QRectF(plot.area.right() + plot.line * 0.8, plot.area.top() + 4, plot.line, plot.area.height() - 8);
    return plot;
}

const BackdropRaster * raster_shown(const PaintedBackdrop & backdrop, const LayoutChoice & choice)
{
    if (!backdrop.data) return nullptr;
    if (choice.image && backdrop.data->grid.columns > 0) return &backdrop.data->grid;
    return choice.ground && backdrop.data->ground.columns > 0 ? &backdrop.data->ground : nullptr;
}

void draw_map(QPainter & painter, const QSizeF & size, const LayoutScene & scene, const PaintedBackdrop & backdrop,
              const LayoutChoice & choice, const LayoutView & view, const QPalette & palette)
{
    const QRectF box(QPointF(0, 0), size);
    painter.fillRect(box, palette.color(QPalette::Base));
    const Under under = under_of(palette, is_covered(backdrop, choice));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (choice.ground && !backdrop.ground.isNull())
        painter.drawImage(rectangle_of(view, backdrop.ground_limits), backdrop.ground);
    if (choice.image && !backdrop.image.isNull()) painter.drawImage(rectangle_of(view, backdrop.image_limits), backdrop.image);
    if (choice.readings && backdrop.data) draw_readings(painter, box, *backdrop.data, view, under == Under::dark);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const LayoutLine & line : scene.lines) {
        QLineF drawn(at(view, line.x1, line.y1), at(view, line.x2, line.y2));
        if (!cut(drawn, box.adjusted(-5, -5, 5, 5))) continue;
        // Dots keep to the picture, so that those of lines over each other do not fill each other's gaps.
        if (drawn.dx() + drawn.dy() < 0) drawn = QLineF(drawn.p2(), drawn.p1());
        QPen pen = pen_of(line, palette, under);
        if (line.style != 0) pen.setDashOffset(std::fmod(drawn.x1() + drawn.y1() + 60, 6));
        painter.setPen(pen);
        painter.drawLine(drawn);
    }
}

void draw_surroundings(QPainter & painter, const LayoutPlot & plot, const LayoutScene & scene, const PaintedBackdrop & backdrop,
                       const LayoutChoice & choice, const LayoutView & view, const QPalette & palette)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(palette.color(QPalette::WindowText));
    painter.drawRect(plot.area);
    draw_ticks(painter, plot, view);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!scene.lines.empty()) draw_legend(painter, plot, scene, backdrop, choice, palette);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    const BackdropRaster * const raster = raster_shown(backdrop, choice);
    if (raster == nullptr) return;
    const QString title = raster == &backdrop.data->grid ? QObject::tr("Image") : QObject::tr("Ground, m");
    draw_bar(painter, plot, *raster, scene.bar_title.isEmpty() ? title : scene.bar_title);
}
