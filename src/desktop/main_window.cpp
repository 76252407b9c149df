#include "desktop/main_window.h"

#include "app/press.h"
#include "desktop/companions.h"
#include "rules/change_rules.h"
#include "rules/file_boxes.h"
#include "rules/form_events.h"
#include "rules/live_checks.h"
#include "ui_page_create.h"
#include "ui_page_data.h"
#include "ui_page_mesh.h"
#include "ui_page_parameters.h"
#include "ui_page_solver.h"
#include "ui_page_tiles.h"
#include "ui_page_topography.h"

#include <QScrollArea>

namespace {

template <class Page>
void add_page(QTabWidget & tabs, const QString & title)
{
    auto * const area = new QScrollArea;
    auto * const page = new QWidget;
    Page().setupUi(page);
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    tabs.addTab(area, title);
}

}

MainWindow::MainWindow(SettingsStore & settings, ScriptLauncher & launcher, Dialogs * dialogs)
    : own_dialogs_(*this), display_progress_([this] { refresh(); }, [this](bool running) { show_running(running); }),
      display_{ dialogs ? *dialogs : own_dialogs_, display_progress_, settings, launcher, debug_ },
      progress_(session_.setup.form, display_), host_{ display_.dialogs, progress_, settings, launcher, debug_ }
{
    setObjectName(QStringLiteral("Form_mag3d"));
    start_session(session_, host_);
    build_pages();
    view_ = std::make_unique<FormView>(session_.setup.form, *this,
                                       FormEvents{ [this](const std::string & c, int i) { changed(c, i); },
                                                   [this](const std::string & c, int i) { left(c, i); },
                                                   [this](const std::string & c, int i) { entered(c, i); },
                                                   [this](const std::string & c, int i) { pressed(c, i); },
                                                   [this](const std::string & c, int i) { opened(c, i); } });
    refresh();
}

MainWindow::~MainWindow() = default;

void MainWindow::build_pages()
{
    auto * const tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("Tab_inversion"));
    add_page<Ui::page_solver>(*tabs, tr("1 Solver"));
    add_page<Ui::page_data>(*tabs, tr("2 Data"));
    add_page<Ui::page_topography>(*tabs, tr("3 Topography"));
    add_page<Ui::page_mesh>(*tabs, tr("4 Mesh"));
    add_page<Ui::page_parameters>(*tabs, tr("5 Parameters"));
    add_page<Ui::page_tiles>(*tabs, tr("6 Tiles"));
    add_page<Ui::page_create>(*tabs, tr("7 Create and run"));
    setCentralWidget(tabs);
    follow_boxes(*tabs);
}

void MainWindow::refresh()
{
    if (!view_) return;
    view_->show();
    view_->show_faults([this](const std::string & control, int index) { return box_fault(session_.setup, control, index); });
}

void MainWindow::guarded(const std::function<void()> & action)
{
    try {
        action();
    } catch (const Stopped &) {
    } catch (const std::exception & fault) {
        host_.dialogs.message(fault.what());
    }
    refresh();
}

void MainWindow::changed(const std::string & control, int index)
{
    guarded([&] {
        if (!waits_until_left(control)) form_changed(session_.setup, control, index, host_);
    });
}

void MainWindow::left(const std::string & control, int index)
{
    guarded([&] { form_left(session_.setup, control, index, host_); });
}

void MainWindow::entered(const std::string & control, int index)
{
    guarded([&] { form_entered(session_.setup, control, index); });
}

void MainWindow::pressed(const std::string & control, int index)
{
    guarded([&] { static_cast<void>(press(session_, control, index, host_)); });
}

void MainWindow::opened(const std::string & control, int index)
{
    guarded([&] {
        if (is_file_box(control)) pick_file(session_.setup, control, index, host_);
    });
}

void MainWindow::show_running(bool running) { centralWidget()->setEnabled(!running); }
