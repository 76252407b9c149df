#pragma once

#include "desktop/layout_drawing.h"

#include <QPixmap>
#include <QTimer>
#include <QWidget>

/// The plan view as a picture: the wheel zooms about the pointer, dragging pans, a double click fits it again. What is under the
/// pointer is told in coordinates of the mesh.
class LayoutPicture : public QWidget {
    Q_OBJECT

public:
    explicit LayoutPicture(QWidget * parent = nullptr);

    /// Shows a scene. fit: as a whole again, whatever part the user had zoomed to.
    void show_scene(LayoutScene scene, bool fit);
    void show_backdrop(std::shared_ptr<const LayoutBackdrop> backdrop);
    void show_choice(const LayoutChoice & choice);
    const PaintedBackdrop & backdrop() const { return backdrop_; }
    const std::optional<LayoutView> & view() const { return view_; }

    void fit();
    /// Zooms about a point of the widget.
    void zoom(const QPointF & about, double factor);
    /// The picture at twice its size on the screen, on white.
    QImage image();

signals:
    void pointer_moved(double x, double y);
    void pointer_released(double x, double y);

protected:
    void paintEvent(QPaintEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;
    void changeEvent(QEvent * event) override;
    void wheelEvent(QWheelEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;

private:
    LayoutPlot plot() const;
    /// A point of the widget in coordinates of the mesh; nothing outside the map.
    std::optional<QPointF> in_mesh(const QPointF & point) const;
    void pan(const QPointF & by);
    void render();
    void redraw();

    LayoutScene scene_;
    PaintedBackdrop backdrop_;
    LayoutChoice choice_;
    std::optional<LayoutView> view_;
    bool fitted_ = true;

    // The map as it was last drawn. While the user zooms it is stretched, and drawn anew when the hand rests.
    QPixmap layer_;
    LayoutView layer_view_;
    QTimer rest_;

    std::optional<QPointF> pressed_at_, dragged_from_;
};
