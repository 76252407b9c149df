#pragma once

#include <QWidget>

/// A pair of arrow buttons that move something down or up, one step a press.
class ClipButtons : public QWidget {
    Q_OBJECT
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)

public:
    explicit ClipButtons(QWidget * parent = nullptr);

    /// Horizontal: the arrows point left and right, as the limit goes in x. Named as .ui files call it.
    Qt::Orientation orientation() const { return orientation_; }
    void setOrientation(Qt::Orientation orientation);

signals:
    void pressed(bool up);

private:
    void arrange();

    Qt::Orientation orientation_ = Qt::Vertical;
    class QToolButton * down_;
    class QToolButton * up_;
};
