#include "desktop/desktop_host.h"

#include "support/fault.h"
#include "support/paths.h"
#include "utilities/point_transform.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QVBoxLayout>
#include <filesystem>

namespace {

const QString program_name = QStringLiteral("3D Mag/Gravity Inversion Setup");

QString shown(const std::string & text)
{
    QString lines = QString::fromStdString(text);
    return lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

/// "words|*.a;*.b|more words|*.*" as Qt writes it: "words (*.a *.b);;more words (*)".
QString filters_of(const std::string & filter)
{
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        patterns.replace(QLatin1Char(';'), QLatin1Char(' ')).replace(QLatin1Char(','), QLatin1Char(' '));
        if (patterns == QLatin1String("*.*")) patterns = QStringLiteral("*");
        filters << parts[i].section(QLatin1Char('('), 0, 0).trimmed() + QStringLiteral(" (") + patterns + QLatin1Char(')');
    }
    return filters.join(QStringLiteral(";;"));
}

QString host_text(const std::string & path)
{
    return path.empty() ? QString() : QString::fromStdString(host_path(path).string());
}

std::optional<std::string> picked(const QString & host)
{
    if (host.isEmpty()) return std::nullopt;
    return definition_path(std::filesystem::path(host.toStdString()));
}

}

void DesktopDialogs::message(const std::string & text) { QMessageBox::information(&parent_, program_name, shown(text)); }

bool DesktopDialogs::question(const std::string & text)
{
    return QMessageBox::question(&parent_, program_name, shown(text)) == QMessageBox::Yes;
}

std::optional<std::string> DesktopDialogs::open_file(const FileDialog & dialog)
{
    return picked(
        QFileDialog::getOpenFileName(&parent_, shown(dialog.title), host_text(dialog.start), filters_of(dialog.filter)));
}

std::optional<std::string> DesktopDialogs::save_file(const FileDialog & dialog)
{
    // Whether a file may be overwritten is asked by who saves.
    return picked(QFileDialog::getSaveFileName(&parent_, shown(dialog.title), host_text(dialog.start), filters_of(dialog.filter),
                                               nullptr, QFileDialog::DontConfirmOverwrite));
}

std::optional<std::string> DesktopDialogs::choose_folder(const std::string & title, const std::string & start)
{
    return picked(QFileDialog::getExistingDirectory(&parent_, shown(title), host_text(start)));
}

std::optional<std::string> DesktopDialogs::input(const std::string & title, const std::string & prompt, const std::string & start)
{
    bool accepted = false;
    const QString text = QInputDialog::getText(&parent_, shown(title), shown(prompt), QLineEdit::Normal, shown(start), &accepted);
    return accepted ? std::optional(text.toStdString()) : std::nullopt;
}

bool DesktopDialogs::check_options(const std::string & title, std::vector<CheckOption> & options)
{
    QDialog dialog(&parent_);
    dialog.setWindowTitle(shown(title));
    QVBoxLayout layout(&dialog);
    dialog.setMinimumWidth(dialog.fontMetrics().horizontalAdvance(dialog.windowTitle()) + 160); // the title is read whole
    std::vector<QCheckBox *> boxes;
    for (const CheckOption & option : options) {
        boxes.push_back(new QCheckBox(shown(option.label), &dialog));
        boxes.back()->setToolTip(shown(option.tool_tip));
        boxes.back()->setChecked(option.on);
        layout.addWidget(boxes.back());
    }
    layout.addSpacing(dialog.fontMetrics().height() / 2);
    QDialogButtonBox buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    layout.addWidget(&buttons);
    QObject::connect(&buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(&buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted) return false;
    for (std::size_t i = 0; i < options.size(); ++i) options[i].on = boxes[i]->isChecked();
    return true;
}

std::optional<PointTransform> DesktopDialogs::define_transform(const PointTransform & start)
{
    return transform_dialog ? transform_dialog(start) : std::nullopt;
}

bool DesktopDialogs::define_igrf(IgrfRecord & record, const SurveyPlace * survey)
{
    return igrf_dialog && igrf_dialog(record, survey);
}

void DesktopProgress::begin_command()
{
    in_command_ = true;
    stop_asked_ = stopped_ = false;
    since_last_.start();
}

void DesktopProgress::end_command()
{
    in_command_ = false;
    if (shown_) foot_.show_running(false);
    shown_ = false;
}

void DesktopProgress::begin() { let_events_run(true); }
void DesktopProgress::end() { foot_.percent(100); }
void DesktopProgress::line(const std::string &) { let_events_run(true); }

void DesktopProgress::step(const std::string & text)
{
    foot_.step(text);
    let_events_run(true);
}

void DesktopProgress::percent(int percent)
{
    foot_.percent(percent);
    let_events_run(false);
}

/// Showing takes longer than most steps of the work, so a mere percentage waits until a blink has gone by.
void DesktopProgress::let_events_run(bool at_once)
{
    constexpr qint64 blink = 40; // milliseconds
    if (!at_once && since_last_.elapsed() < blink) return;
    if (!shown_) foot_.show_running(true);
    shown_ = true;
    foot_.show_form();
    QCoreApplication::processEvents();
    since_last_.start();
    if (!stop_asked_) return;
    stopped_ = true;
    throw Stopped();
}
