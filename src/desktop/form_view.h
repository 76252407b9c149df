#pragma once

#include "form/form.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

/// What the user did to a control: its name and index.
using ControlEvent = std::function<void(const std::string & control, int index)>;

/// Where the events of a form go. The value is in the form before the event is told.
struct FormEvents {
    ControlEvent changed; ///< a value was changed, key by key in a box
    ControlEvent left;    ///< a box that was changed has been left, or Enter pressed in it; a list was closed on what it had
    ControlEvent entered; ///< a control got the focus
    ControlEvent pressed; ///< a button or menu item
    ControlEvent opened;  ///< a box was double-clicked or its own button pressed
};

/// Joins the controls of a form with the widgets of the same name: "Text_max_val_2" is the view of Text_max_val[2], and
/// "Text_description" of a control that stands alone. A control may have several widgets. Shows what the form holds and tells
/// what the user did; decides nothing.
class FormView : public QObject {
    Q_OBJECT

public:
    FormView(Form & form, QWidget & root, FormEvents events);

    /// Shows the whole form. Widgets that agree already are left alone, so that a cursor stays where it is.
    void show();

    /// While frozen, nothing can be typed, chosen or pressed.
    void freeze(bool frozen);

    /// Marks the boxes that would fail their check, with its words. Without mark_all only those that have been typed in: an empty
    /// form is not all faults.
    using Faults = std::function<std::string(const std::string & control, int index)>;
    void show_faults(const Faults & fault_of, bool mark_all);

    /// Controls that have no widget, and widgets with a control's prefix that have no control.
    QStringList unjoined() const;

    QObject * widget_of(const std::string & control, int index = 0) const;
    /// The control that a widget shows and its index; an empty name for one that shows none.
    std::pair<std::string, int> control_of(const QObject * widget) const;

private:
    struct Join {
        std::string control;
        int index;
        QPointer<QObject> widget;
        void (*show)(const Control & control, QObject & widget);
    };

    void join(const std::string & control, int index, QObject & widget);
    void listen(const std::string & control, int index, QObject & widget);
    bool eventFilter(QObject * watched, QEvent * event) override;

    Form & form_;
    QWidget & root_;
    FormEvents events_;
    std::vector<Join> joins_;
    QStringList unjoined_;
    bool showing_ = false, frozen_ = false;
};
