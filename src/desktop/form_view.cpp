#include "desktop/form_view.h"

#include "desktop/appearance.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextCursor>
#include <algorithm>
#include <array>

namespace {

QString shown(const std::string & text) { return QString::fromStdString(text); }

void show_line(const Control & control, QObject & widget)
{
    auto & box = static_cast<QLineEdit &>(widget);
    if (box.text() == shown(control.text)) return;
    box.setText(shown(control.text));
    if (!box.hasFocus()) box.setCursorPosition(0); // a long text is read from its beginning
}

/// A text of lines; one that grows is followed to its end.
void show_lines(const Control & control, QObject & widget)
{
    auto & box = static_cast<QPlainTextEdit &>(widget);
    QString text = shown(control.text);
    text.remove(QLatin1Char('\r'));
    const QString old = box.toPlainText();
    if (old == text) return;
    if (box.isReadOnly() && text.startsWith(old)) {
        QTextCursor end(box.document()); // of a long log only the new lines are laid out
        end.movePosition(QTextCursor::End);
        end.insertText(text.mid(old.size()));
    } else {
        box.setPlainText(text);
    }
    if (box.isReadOnly()) box.verticalScrollBar()->setValue(box.verticalScrollBar()->maximum());
}

bool has_items(const QComboBox & box, const std::vector<ListItem> & items)
{
    if (box.count() != static_cast<int>(items.size())) return false;
    for (int i = 0; i < box.count(); ++i)
        if (box.itemText(i) != shown(items[static_cast<std::size_t>(i)].text)) return false;
    return true;
}

void show_list(const Control & control, QObject & widget)
{
    auto & box = static_cast<QComboBox &>(widget);
    if (!has_items(box, control.items)) {
        box.clear();
        for (const ListItem & item : control.items) box.addItem(shown(item.text));
    }
    if (box.currentIndex() != control.position) box.setCurrentIndex(control.position);
}

/// Check boxes, options and plain buttons. Their words stand in the form only where a rule sets them.
void show_button(const Control & control, QObject & widget)
{
    auto & button = static_cast<QAbstractButton &>(widget);
    if (!control.caption.empty() && button.text() != shown(control.caption)) button.setText(shown(control.caption));
    if (!button.isCheckable() || button.isChecked() == control.on) return;
    // Of two options that exclude each other, the one that is off would not go off by itself.
    const bool exclusive = button.autoExclusive();
    button.setAutoExclusive(false);
    button.setChecked(control.on);
    button.setAutoExclusive(exclusive);
}

void show_label(const Control & control, QObject & widget)
{
    auto & label = static_cast<QLabel &>(widget);
    const std::string & text = control.caption.empty() ? control.text : control.caption;
    if (!text.empty() && label.text() != shown(text)) label.setText(shown(text));
}

void show_panel(const Control & control, QObject & widget) { static_cast<QLabel &>(widget).setText(shown(control.text)); }

void show_group(const Control & control, QObject & widget)
{
    auto & group = static_cast<QGroupBox &>(widget);
    if (!control.caption.empty()) group.setTitle(shown(control.caption));
}

void show_bar(const Control & control, QObject & widget)
{
    static_cast<QProgressBar &>(widget).setValue(std::max(0, control.position));
}

void show_nothing(const Control &, QObject &) {}

void show_action(const Control & control, QObject & object)
{
    auto & action = static_cast<QAction &>(object);
    if (!control.caption.empty()) action.setText(shown(control.caption));
    action.setVisible(control.visible);
}

/// How a widget of a kind shows a control.
struct Kind {
    bool (*is)(QObject &);
    void (*show)(const Control &, QObject &);
};

template <class Widget>
bool is_a(QObject & object)
{
    return qobject_cast<Widget *>(&object) != nullptr;
}

bool is_status_panel(QObject & object) { return object.objectName().startsWith(QLatin1String("StatusBar_")); }

constexpr Kind kinds[] = {
    { &is_status_panel, &show_panel }, { &is_a<QLineEdit>, &show_line },         { &is_a<QPlainTextEdit>, &show_lines },
    { &is_a<QComboBox>, &show_list },  { &is_a<QAbstractButton>, &show_button }, { &is_a<QGroupBox>, &show_group },
    { &is_a<QLabel>, &show_label },    { &is_a<QProgressBar>, &show_bar },       { &is_a<QAction>, &show_action },
    { &is_a<QObject>, &show_nothing },
};

/// The kinds of names that controls have; a widget named so must have a control.
constexpr std::array prefixes = { "Text_",      "Combo_",       "Check_",   "Option_",      "Command_", "Label_",
                                  "Frame_",     "menu_",        "Picture_", "ProgressBar_", "Tab_",     "UpDown_",
                                  "StatusBar_", "RichTextBox_", "Grid_",    "Drive1",       "Dir1" };

bool is_named_like_a_control(const QString & name)
{
    return std::ranges::any_of(prefixes, [&name](const char * prefix) { return name.startsWith(QLatin1String(prefix)); });
}

QString widget_name(const std::string & control, int index, int count)
{
    return count == 1 ? shown(control) : shown(control) + QLatin1Char('_') + QString::number(index);
}

/// The sign at a box that would fail, at the end that its text leaves free. It takes no room of its own, so that no box changes
/// its size while it is typed in.
class FaultSign : public QLabel {
public:
    explicit FaultSign(QLineEdit & box) : QLabel(&box), box_(box)
    {
        constexpr int size = 14;
        setPixmap(fault_sign().pixmap(QSize(size, size), box.devicePixelRatioF()));
        setAttribute(Qt::WA_TransparentForMouseEvents); // the tip is the box's
        adjustSize();
        box.installEventFilter(this);
        place();
    }

private:
    bool eventFilter(QObject *, QEvent * event) override
    {
        if (event->type() == QEvent::Resize) place();
        return false;
    }
    void place()
    {
        constexpr int margin = 5;
        const bool at_left = box_.alignment().testFlag(Qt::AlignRight);
        move(at_left ? margin : box_.width() - width() - margin, (box_.height() - height()) / 2);
    }

    QLineEdit & box_;
};

/// A breath of red over whatever ground boxes have, and a sign for those who cannot tell it apart.
void mark(QLineEdit & box, bool faulty)
{
    QPalette palette;
    if (faulty) palette.setColor(QPalette::Base, QColor(0xe5, 0x39, 0x2d, 0x50));
    box.setPalette(palette);
    if (auto * const sign = box.findChild<QLabel *>(); sign != nullptr && !faulty) delete sign;
    if (faulty && box.findChild<QLabel *>() == nullptr) (new FaultSign(box))->show();
}

/// What a user works with, as against what only shows or groups.
bool takes_input(const QWidget & widget)
{
    const auto * const lines = qobject_cast<const QPlainTextEdit *>(&widget);
    return qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QComboBox *>(&widget) ||
           qobject_cast<const QAbstractButton *>(&widget) || (lines && !lines->isReadOnly());
}

void show_flags(const Control & control, bool frozen, QWidget & widget)
{
    const bool enabled = control.enabled && !(frozen && takes_input(widget));
    if (widget.isHidden() == control.visible) widget.setVisible(control.visible);
    if (widget.isEnabledTo(widget.parentWidget()) != enabled) widget.setEnabled(enabled);
    if (!control.tool_tip.empty()) widget.setToolTip(shown(control.tool_tip));
    const std::int32_t bgr = control.back_colour;
    // Thinned, so that words stand out on it in light and in dark.
    const QString style = bgr == Control::window_colour
                              ? QString()
                              : QStringLiteral("background-color: rgba(%1, %2, %3, 80); border-radius: 3px")
                                    .arg(bgr & 255)
                                    .arg(bgr >> 8 & 255)
                                    .arg(bgr >> 16 & 255);
    if (widget.styleSheet() != style) widget.setStyleSheet(style);
}

}

FormView::FormView(Form & form, QWidget & root, FormEvents events)
    : QObject(&root), form_(form), root_(root), events_(std::move(events))
{
    QStringList wanted;
    for (const auto & [control, count] : form_.names()) {
        for (int index = 0; index < count; ++index) {
            const QString name = widget_name(control, index, count);
            wanted << name;
            // A control may be shown in more than one place.
            QObjectList widgets = root.findChildren<QObject *>(name);
            if (name == root.objectName()) widgets.append(&root);
            for (QObject * const widget : widgets) join(control, index, *widget);
            if (widgets.isEmpty()) unjoined_ << name + QStringLiteral(" has no widget");
        }
    }
    for (const QObject * child : root.findChildren<QObject *>())
        if (is_named_like_a_control(child->objectName()) && !wanted.contains(child->objectName()))
            unjoined_ << child->objectName() + QStringLiteral(" has no control");
}

void FormView::join(const std::string & control, int index, QObject & widget)
{
    const Kind & kind = *std::ranges::find_if(kinds, [&widget](const Kind & row) { return row.is(widget); });
    joins_.push_back({ control, index, &widget, kind.show });
    listen(control, index, widget);
}

void FormView::listen(const std::string & control, int index, QObject & widget)
{
    const auto tell = [this, control, index](const ControlEvent & event, const auto & put) {
        if (showing_) return;
        put(form_(control, index));
        event(control, index);
    };
    const auto nothing = [](Control &) {};
    if (auto * const line = qobject_cast<QLineEdit *>(&widget)) {
        connect(line, &QLineEdit::textEdited, this, [=, this](const QString & text) {
            tell(events_.changed, [&text](Control & c) { c.text = text.toStdString(); });
            line->setProperty("changed", true);
            line->setProperty("touched", true);
        });
        connect(line, &QLineEdit::editingFinished, this, [=, this] {
            if (!line->property("changed").toBool()) return;
            line->setProperty("changed", false);
            tell(events_.left, nothing);
        });
    } else if (auto * const lines = qobject_cast<QPlainTextEdit *>(&widget)) {
        if (!lines->isReadOnly())
            connect(lines, &QPlainTextEdit::textChanged, this,
                    [=, this] { tell(events_.changed, [lines](Control & c) { c.text = lines->toPlainText().toStdString(); }); });
    } else if (auto * const list = qobject_cast<QComboBox *>(&widget)) {
        connect(list, &QComboBox::activated, this, [=, this](int position) {
            // What follows a choice would take back what the user has typed since it was made.
            const bool anew = form_(control, index).position != position;
            tell(anew ? events_.changed : events_.left, [position](Control & c) { c.position = position; });
        });
    } else if (auto * const button = qobject_cast<QAbstractButton *>(&widget)) {
        connect(button, &QAbstractButton::clicked, this, [=, this](bool on) {
            if (button->isCheckable())
                tell(events_.changed, [on](Control & c) { c.on = on; });
            else
                tell(events_.pressed, nothing);
        });
    } else if (auto * const action = qobject_cast<QAction *>(&widget)) {
        connect(action, &QAction::triggered, this, [=, this] { tell(events_.pressed, nothing); });
    } else if (auto * const tabs = qobject_cast<QTabWidget *>(&widget)) {
        connect(tabs, &QTabWidget::currentChanged, this,
                [=, this](int page) { tell(events_.changed, [page](Control & c) { c.position = page; }); });
    }
    widget.installEventFilter(this);
}

bool FormView::eventFilter(QObject * watched, QEvent * event)
{
    if (event->type() == QEvent::Wheel && qobject_cast<QComboBox *>(watched)) {
        event->ignore(); // it scrolls the page: a list that turned under the pointer would change the inversion unseen
        return true;
    }
    const bool entered = event->type() == QEvent::FocusIn, opened = event->type() == QEvent::MouseButtonDblClick;
    if ((entered || opened) && !showing_) {
        const auto [control, index] = control_of(watched);
        if (!control.empty()) (entered ? events_.entered : events_.opened)(control, index);
    }
    return QObject::eventFilter(watched, event);
}

void FormView::show()
{
    showing_ = true;
    for (const Join & row : joins_) {
        if (!row.widget) continue;
        const Control & control = form_(row.control, row.index);
        row.show(control, *row.widget);
        if (row.widget == &root_)
            root_.setWindowTitle(shown(control.caption) + QStringLiteral("[*]")); // a mark there tells of changes
        else if (auto * const widget = qobject_cast<QWidget *>(row.widget.data()))
            show_flags(control, frozen_, *widget);
    }
    showing_ = false;
}

void FormView::freeze(bool frozen)
{
    frozen_ = frozen;
    show();
    for (const Join & row : joins_)
        if (auto * const action = qobject_cast<QAction *>(row.widget.data()))
            action->setEnabled(!frozen && form_(row.control, row.index).enabled);
}

void FormView::show_faults(const Faults & fault_of, bool mark_all)
{
    for (const Join & row : joins_) {
        auto * const box = qobject_cast<QLineEdit *>(row.widget.data());
        if (box == nullptr) continue;
        const bool counts = mark_all || box->property("touched").toBool();
        const QString fault = counts ? shown(fault_of(row.control, row.index)) : QString();
        if (box->property("fault").toString() == fault) continue;
        if (!box->property("own_tip").isValid()) box->setProperty("own_tip", box->toolTip());
        box->setProperty("fault", fault);
        box->setToolTip(fault.isEmpty() ? box->property("own_tip").toString() : fault);
        mark(*box, !fault.isEmpty());
    }
}

QStringList FormView::unjoined() const { return unjoined_; }

QObject * FormView::widget_of(const std::string & control, int index) const
{
    const auto joined =
        std::ranges::find_if(joins_, [&](const Join & row) { return row.control == control && row.index == index; });
    return joined == joins_.end() ? nullptr : joined->widget.data();
}

std::pair<std::string, int> FormView::control_of(const QObject * widget) const
{
    const auto joined = std::ranges::find_if(joins_, [widget](const Join & row) { return row.widget == widget; });
    return joined == joins_.end() ? std::pair(std::string(), 0) : std::pair(joined->control, joined->index);
}
