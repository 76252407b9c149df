#include "desktop/clip_buttons.h"

#include <QBoxLayout>
#include <QToolButton>

ClipButtons::ClipButtons(QWidget * parent) : QWidget(parent), down_(new QToolButton(this)), up_(new QToolButton(this))
{
    for (QToolButton * const button : { down_, up_ }) {
        const bool up = button == up_;
        button->setAutoRaise(false);
        button->setAccessibleName(up ? tr("up") : tr("down"));
        // Not repeated while held: a press may end in a message box.
        connect(button, &QToolButton::clicked, this, [this, up] { emit pressed(up); });
    }
    auto * const layout = new QBoxLayout(QBoxLayout::LeftToRight, this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->addWidget(down_);
    layout->addWidget(up_);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    arrange();
}

void ClipButtons::setOrientation(Qt::Orientation orientation)
{
    orientation_ = orientation;
    arrange();
}

void ClipButtons::arrange()
{
    const bool across = orientation_ == Qt::Horizontal;
    down_->setArrowType(across ? Qt::LeftArrow : Qt::DownArrow);
    up_->setArrowType(across ? Qt::RightArrow : Qt::UpArrow);
}
