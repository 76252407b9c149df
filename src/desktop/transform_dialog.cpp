#include "desktop/transform_dialog.h"

#include "ui_transform_dialog.h"

#include <QScreen>
#include <QSignalBlocker>

namespace {

constexpr const char * section = "ZEB2024";
constexpr const char * size_setting = "DefinePointTransformFormSize";

}

TransformDialog::TransformDialog(QWidget & parent, const PointTransform & start, Host & host)
    : QDialog(&parent), setup_(open_transform(start)), host_(host)
{
    Ui::transform_dialog layout;
    layout.setupUi(this);
    tabs_ = layout.Tab_transform_type;
    const auto changed = [this](const std::string & control, int) {
        if (control != "Tab_transform_type") return;
        guarded([this] { static_cast<void>(change_transform_page(setup_, tabs_->currentIndex(), host_)); });
    };
    const auto nothing = [](const std::string &, int) {};
    view_ = new FormView(
        setup_.form, *this,
        FormEvents{ changed, nothing, nothing, [this](const std::string & command, int) { pressed(command); }, nothing });
    take_size();
    guarded([] {});
}

void TransformDialog::pressed(const std::string & command)
{
    guarded([&] {
        if (command == "Command_cancel")
            reject();
        else if (command != "Command_done")
            static_cast<void>(press_transform(setup_, command, host_));
        else if (apply_transform_page(setup_, host_) == Status::good)
            accept();
    });
}

void TransformDialog::guarded(const std::function<void()> & action)
{
    try {
        action();
    } catch (const std::exception & fault) {
        host_.dialogs.message(fault.what());
    }
    view_->show();
    const QSignalBlocker quiet(tabs_); // this is no choice of the user's
    tabs_->setCurrentIndex(setup_.page);
}

void TransformDialog::take_size()
{
    const QStringList parts =
        QString::fromStdString(host_.settings.read(section, size_setting, no_setting)).split(QLatin1Char(','));
    if (parts.size() == 2)
        resize(QSize(parts[0].toInt(), parts[1].toInt()).expandedTo(sizeHint()).boundedTo(screen()->availableSize()));
}

void TransformDialog::done(int result)
{
    host_.settings.write(section, size_setting, std::to_string(width()) + "," + std::to_string(height()));
    QDialog::done(result);
}

std::optional<PointTransform> define_transform(QWidget & parent, const PointTransform & start, Host & host)
{
    TransformDialog dialog(parent, start, host);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.transform();
}
