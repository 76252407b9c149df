#pragma once

#include "desktop/form_view.h"
#include "rules/transform_rules.h"

#include <QDialog>
#include <QTabWidget>
#include <functional>
#include <optional>

/// The dialog that defines a coordinate transform, by parameters or by two points.
class TransformDialog : public QDialog {
    Q_OBJECT

public:
    TransformDialog(QWidget & parent, const PointTransform & start, Host & host);

    const PointTransform & transform() const { return setup_.transform; }
    FormView & view() { return *view_; }
    /// Keeps the size for the next time, however the dialog is left.
    void done(int result) override;

private:
    void pressed(const std::string & command);
    void take_size();
    /// Runs what an event leads to, shows a fault that nobody handled, and the form after it.
    void guarded(const std::function<void()> & action);

    TransformSetup setup_;
    Host & host_;
    QTabWidget * tabs_;
    FormView * view_;
};

/// Asks for a transform, beginning with `start`; nothing when cancelled.
std::optional<PointTransform> define_transform(QWidget & parent, const PointTransform & start, Host & host);
