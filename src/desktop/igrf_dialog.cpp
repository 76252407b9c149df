#include "desktop/igrf_dialog.h"

#include "ui_igrf_dialog.h"

IgrfDialog::IgrfDialog(QWidget & parent, const IgrfRecord & start, const std::optional<SurveyPlace> & survey, Host & host)
    : QDialog(&parent), host_(host), setup_(open_igrf(start, survey, host))
{
    Ui::igrf_dialog layout;
    layout.setupUi(this);
    for (auto * const box : findChildren<QLineEdit *>()) {
        if (!box->isReadOnly()) continue;
        QPalette quiet; // a result is not typed in
        quiet.setColor(QPalette::Base, Qt::transparent);
        box->setPalette(quiet);
    }
    const auto changed = [this](const std::string & control, int) { guarded([&] { change_igrf(setup_, control, host_); }); };
    const auto nothing = [](const std::string &, int) {};
    view_ = new FormView(
        setup_.form, *this,
        FormEvents{ changed, nothing, nothing, [this](const std::string & command, int) { pressed(command); }, nothing });
    guarded([] {});
    layout.Text_IGRF_date->setFocus();
}

void IgrfDialog::pressed(const std::string & command)
{
    guarded([&] {
        if (command == "Command_cancel")
            reject();
        else if (press_igrf(setup_, command, host_) == Status::good && command == "Command_done")
            accept();
    });
}

void IgrfDialog::guarded(const std::function<void()> & action)
{
    try {
        action();
    } catch (const std::exception & fault) {
        host_.dialogs.message(fault.what());
    }
    view_->show();
}

bool define_igrf(QWidget & parent, IgrfRecord & record, const SurveyPlace * survey, Host & host)
{
    IgrfDialog dialog(parent, record, survey ? std::optional(*survey) : std::nullopt, host);
    if (dialog.exec() != QDialog::Accepted) return false;
    record = dialog.record();
    return true;
}
