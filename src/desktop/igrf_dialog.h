#pragma once

#include "desktop/form_view.h"
#include "rules/igrf_rules.h"

#include <QDialog>
#include <functional>

/// The dialog that computes the earth's field at a place and date.
class IgrfDialog : public QDialog {
    Q_OBJECT

public:
    IgrfDialog(QWidget & parent, const IgrfRecord & start, const std::optional<SurveyPlace> & survey, Host & host);

    const IgrfRecord & record() const { return setup_.record; }
    FormView & view() { return *view_; }

private:
    void pressed(const std::string & command);
    /// Runs what an event leads to, shows a fault that nobody handled, and the form after it.
    void guarded(const std::function<void()> & action);

    Host & host_;
    IgrfSetup setup_;
    FormView * view_;
};

/// Lets the user compute a field, beginning with `record`. False, with the record as it was, when cancelled.
bool define_igrf(QWidget & parent, IgrfRecord & record, const SurveyPlace * survey, Host & host);
