#include "desktop/companions.h"

#include <QEvent>
#include <QLabel>
#include <QToolButton>

namespace {

/// Watches one box for its companion, and lives as long as the companion.
class Follower : public QObject {
public:
    Follower(QWidget & box, QWidget & companion) : QObject(&companion), box_(box), companion_(companion)
    {
        box_.installEventFilter(this);
        follow();
    }

private:
    bool eventFilter(QObject *, QEvent * event) override
    {
        const QEvent::Type type = event->type();
        if (type == QEvent::ShowToParent || type == QEvent::HideToParent || type == QEvent::EnabledChange) follow();
        return false;
    }

    void follow()
    {
        companion_.setVisible(!box_.isHidden());
        companion_.setEnabled(box_.isEnabled());
    }

    QWidget & box_;
    QWidget & companion_;
};

}

void follow_boxes(QWidget & root)
{
    for (QLabel * const label : root.findChildren<QLabel *>())
        if (label->buddy() != nullptr && label->objectName().startsWith(QLatin1String("caption_")))
            new Follower(*label->buddy(), *label);
    for (QToolButton * const button : root.findChildren<QToolButton *>()) {
        const QString name = button->objectName();
        if (!name.startsWith(QLatin1String("browse_"))) continue;
        if (auto * const box = root.findChild<QWidget *>(name.mid(7))) new Follower(*box, *button);
    }
}
