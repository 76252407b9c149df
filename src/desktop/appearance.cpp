#include "desktop/appearance.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>
#include <cmath>
#include <initializer_list>

namespace {

/// A cell of the sign: blue far from the body, red in it.
QColor cell_colour(double distance)
{
    constexpr double cold = 0.62, hot = 0.02; // hues
    const double heat = std::exp(-distance * distance * 9);
    return QColor::fromHsvF(static_cast<float>(cold + (hot - cold) * heat), 0.72F, static_cast<float>(0.72 + 0.24 * heat));
}

QPixmap program_pixmap(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size, size);
    QPainterPath frame;
    frame.addRoundedRect(QRectF(0.03, 0.03, 0.94, 0.94), 0.16, 0.16);
    painter.fillPath(frame, QColor(0x1d, 0x2b, 0x3a));
    painter.setClipPath(frame);
    const int columns = size < 32 ? 4 : 6;
    constexpr double ground[] = { 0.30, 0.24, 0.20, 0.26, 0.33, 0.36 };
    const double side = 0.94 / columns, gap = size < 32 ? 0.02 : 0.012;
    for (int column = 0; column < columns; ++column) {
        const double x = 0.03 + column * side, top = ground[column];
        for (double y = top; y < 0.97; y += side) {
            const QPointF from_body = QPointF(x + side / 2, y + side / 2) - QPointF(0.53, 0.66);
            painter.fillRect(QRectF(x + gap, y + gap, side - 2 * gap, side - 2 * gap),
                             cell_colour(std::hypot(from_body.x(), from_body.y())));
        }
    }
    return pixmap;
}

QPixmap fault_pixmap(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size, size);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xd3, 0x2f, 0x2f));
    painter.drawEllipse(QRectF(0.06, 0.06, 0.88, 0.88));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(0.43, 0.2, 0.14, 0.38), 0.06, 0.06);
    painter.drawEllipse(QRectF(0.42, 0.66, 0.16, 0.16));
    return pixmap;
}

/// Drawn at each size, so that it is sharp on every screen.
QIcon icon_of(QPixmap (*draw)(int), std::initializer_list<int> sizes)
{
    QIcon icon;
    for (const int size : sizes) icon.addPixmap(draw(size));
    return icon;
}

/// Titles of groups in bold, which a font of the group would hand on to all that it holds. The same style on all systems, as it
/// alone takes dark colours on each.
class FormStyle : public QProxyStyle {
public:
    FormStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption * option, const QWidget * widget, QStyleHintReturn * data) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex * option, QPainter * painter,
                            const QWidget * widget) const override
    {
        const auto * const group = qstyleoption_cast<const QStyleOptionGroupBox *>(option);
        if (control != CC_GroupBox || group == nullptr) return QProxyStyle::drawComplexControl(control, option, painter, widget);
        QFont font = painter->font();
        font.setBold(true);
        painter->setFont(font);
        QStyleOptionGroupBox bold = *group;
        bold.fontMetrics = QFontMetrics(font);
        QProxyStyle::drawComplexControl(control, &bold, painter, widget);
    }
};

QPalette dark_palette()
{
    QPalette palette(QColor(0x48, 0x4d, 0x53), QColor(0x33, 0x37, 0x3c));
    palette.setColor(QPalette::Base, QColor(0x1d, 0x1f, 0x22));
    palette.setColor(QPalette::AlternateBase, QColor(0x25, 0x28, 0x2b));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb3));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb0, 0xf0));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3f, 0x45));
    palette.setColor(QPalette::ToolTipText, QColor(0xe8, 0xe8, 0xe8));
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText }) {
        palette.setColor(role, QColor(0xe4, 0xe6, 0xe8));
        palette.setColor(QPalette::Disabled, role, QColor(0x8a, 0x8f, 0x94));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0x8a, 0x8f, 0x94));
    return palette;
}

}

QIcon program_icon() { return icon_of(&program_pixmap, { 16, 24, 32, 48, 64, 128, 256 }); }

QIcon fault_sign() { return icon_of(&fault_pixmap, { 16, 32, 48 }); }

void apply_look(const std::string & look)
{
    static const QPalette of_the_system = QApplication::palette();
    QApplication::setStyle(new FormStyle);
    QPalette palette = of_the_system;
    if (look == "light") palette = QApplication::style()->standardPalette();
    if (look == "dark") palette = dark_palette();
    if (palette.color(QPalette::Base).lightness() > 128) // what cannot be changed is still to be read
        for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
            palette.setColor(QPalette::Disabled, role, QColor(0x85, 0x85, 0x85));
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}
