#include "desktop/main_window.h"

#include "app/file_commands.h"
#include "app/output_folder.h"
#include "app/press.h"
#include "desktop/about.h"
#include "desktop/appearance.h"
#include "desktop/check_list.h"
#include "desktop/companions.h"
#include "desktop/data_previews.h"
#include "desktop/igrf_dialog.h"
#include "desktop/layout_panel.h"
#include "desktop/transform_dialog.h"
#include "rules/change_rules.h"
#include "rules/file_boxes.h"
#include "rules/form_events.h"
#include "rules/layout_rules.h"
#include "rules/live_checks.h"
#include "support/fault.h"
#include "support/paths.h"
#include "support/text.h"
#include "ui_page_create.h"
#include "ui_page_data.h"
#include "ui_page_mesh.h"
#include "ui_page_parameters.h"
#include "ui_page_solver.h"
#include "ui_page_tiles.h"
#include "ui_page_topography.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollArea>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr const char * section = "ZEB_QVinv3d_setup";
constexpr const char * look_setting = "Colours";
constexpr int tiles_page = 5, topography_page = 2;
constexpr int message_time = 15000; // milliseconds

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

/// A menu item; its name joins it to its control.
struct Item {
    const char * name; ///< empty: a line
    const char * text; ///< empty: the form's
    const char * shortcut = "";
};

constexpr Item read_items[] = {
    { "menu_read_file_0", "", "Ctrl+O" }, { "menu_read_file_1", "" }, { "menu_read_file_2", "" },
    { "menu_read_file_3", "" },           { "menu_read_file_4", "" },
};

constexpr Item file_items[] = {
    { "menu_save", "&Save definition...", "Ctrl+S" },
    { "", "" },
    { "menu_working_directory", "&Working folder..." },
    { "menu_sep_file", "" },
    { "menu_file_list_0", "" },
    { "menu_file_list_1", "" },
    { "menu_file_list_2", "" },
    { "menu_file_list_3", "" },
    { "menu_file_list_4", "" },
    { "menu_file_list_5", "" },
    { "", "" },
    { "menu_exit", "E&xit", "Ctrl+Q" },
};

constexpr Item mode_items[] = {
    { "menu_define_inversion_mode_0", "" },
    { "menu_define_inversion_mode_1", "" },
};

void add_items(QMenu & menu, std::span<const Item> items)
{
    for (const Item & item : items) {
        auto * const action = new QAction(QString::fromLatin1(item.text), &menu);
        action->setObjectName(QString::fromLatin1(item.name));
        action->setShortcut(QKeySequence(QString::fromLatin1(item.shortcut)));
        action->setSeparator(*item.name == 0 || action->objectName() == QLatin1String("menu_sep_file"));
        menu.addAction(action);
    }
}

/// Commands that may change the definition. Others only check it, which fills in what is derived from it.
constexpr std::string_view editing_commands[] = { "Command_define_coordinate_transform", "Command_calculate_IGRF",
                                                  "Command_depth_weighting_file",        "Command_update",
                                                  "Command_set_limits_from_file",        "menu_read_file" };

void log_surroundings(Host & host)
{
    const QString user = qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
    debug_write(host.debug, host.dialogs, false, "user name: " + user.toStdString());
    debug_write(host.debug, host.dialogs, false, "computer name: " + QSysInfo::machineHostName().toStdString());
}

std::string path_of(const QUrl & url) { return definition_path(std::filesystem::path(url.toLocalFile().toStdString())); }

}

MainWindow::MainWindow(SettingsStore & settings, ScriptLauncher & launcher, Dialogs * dialogs, DebugLog debug)
    : own_dialogs_(*this), display_progress_({ [this] { refresh(); }, [this](bool running) { show_running(running); },
                                               [this](const std::string & text) { step_->setText(QString::fromStdString(text)); },
                                               [this](int percent) { bar_->setValue(percent); } }),
      debug_(std::move(debug)), display_{ dialogs ? *dialogs : own_dialogs_, display_progress_, settings, launcher, debug_ },
      progress_(session_.setup.form, display_), host_{ display_.dialogs, progress_, settings, launcher, debug_ }
{
    own_dialogs_.transform_dialog = [this](const PointTransform & start) { return define_transform(*this, start, host_); };
    own_dialogs_.igrf_dialog = [this](IgrfRecord & record, const SurveyPlace * survey) {
        return define_igrf(*this, record, survey, host_);
    };
    setObjectName(QStringLiteral("Form_mag3d"));
    setAcceptDrops(true);
    setWindowIcon(program_icon());
    setMinimumSize(900, 520);
    resize(1180, 780);
    restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(settings.read(section, "WindowGeometry", ""))));
    log_surroundings(host_);
    start_session(session_, host_);
    build();
    view_ = std::make_unique<FormView>(session_.setup.form, *this,
                                       FormEvents{ [this](const std::string & c, int i) { changed(c, i); },
                                                   [this](const std::string & c, int i) { left(c, i); },
                                                   [this](const std::string & c, int i) { entered(c, i); },
                                                   [this](const std::string & c, int i) { pressed(c, i); },
                                                   [this](const std::string & c, int i) { opened(c, i); } });
    refresh();
}

MainWindow::~MainWindow() = default;

void MainWindow::build()
{
    auto * const centre = new QWidget;
    auto * const layout = new QVBoxLayout(centre);
    layout->setContentsMargins(6, 6, 6, 0);
    build_pages();
    layout_ = new LayoutPanel;
    layout->addWidget(pages_);
    layout->addWidget(layout_);
    new CheckList(this);
    setCentralWidget(centre);
    wire_layout();
    build_menus();
    build_foot();
    previews_ = std::make_unique<DataPreviews>(*this);
    // A box would take the address of a file that is dropped on it for a text; the window takes the file.
    for (auto * const box : findChildren<QLineEdit *>()) box->setAcceptDrops(false);
    for (auto * const box : findChildren<QPlainTextEdit *>()) box->setAcceptDrops(false);
    // Each file box has a button of its own beside it, which opens its dialog as a double click does.
    for (auto * const button : findChildren<QToolButton *>()) {
        const QString name = button->objectName();
        if (!name.startsWith(QLatin1String("browse_"))) continue;
        const QString box = name.mid(7);
        const QString last = box.section(QLatin1Char('_'), -1);
        bool numbered = false;
        const int index = last.toInt(&numbered);
        const std::string control = (numbered ? box.chopped(last.size() + 1) : box).toStdString();
        connect(button, &QToolButton::clicked, this, [this, control, index] { opened(control, index); });
    }
}

void MainWindow::build_menus()
{
    QMenu & files = *menuBar()->addMenu(tr("&File"));
    add_items(*files.addMenu(tr("&Open definition")), read_items);
    add_items(files, file_items);
    add_items(*menuBar()->addMenu(tr("&Mode")), mode_items);
    QMenu & pages = *menuBar()->addMenu(tr("&View"));
    for (int page = 0; page < pages_->count(); ++page)
        page_items_ << pages.addAction(pages_->tabText(page), this, [this, page] { pages_->setCurrentIndex(page); });
    pages.addSeparator();
    add_looks(*pages.addMenu(tr("&Colours")));
    QMenu & help = *menuBar()->addMenu(tr("&Help"));
    help.addAction(tr("&Check list"), QKeySequence(Qt::Key_F1), this, [this] { pressed("Command_checklist", 0); });
    help.addAction(tr("&About..."), this, [this] { show_about(*this); });
}

void MainWindow::add_looks(QMenu & menu)
{
    const QString words[] = { tr("As the &desktop"), tr("&Light"), tr("D&ark") };
    const std::string set = host_.settings.read(section, look_setting, looks[0]);
    auto * const group = new QActionGroup(&menu);
    for (std::size_t i = 0; i < std::size(looks); ++i) {
        QAction * const action = menu.addAction(words[i]);
        action->setCheckable(true);
        action->setChecked(set == looks[i]);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, look = std::string(looks[i])] {
            apply_look(look);
            static_cast<void>(host_.settings.write(section, look_setting, look));
        });
    }
    apply_look(set);
}

void MainWindow::build_pages()
{
    pages_ = new QTabWidget;
    pages_->setObjectName(QStringLiteral("Tab_inversion"));
    add_page<Ui::page_solver>(*pages_, tr("Solver"));
    add_page<Ui::page_data>(*pages_, tr("Data"));
    add_page<Ui::page_topography>(*pages_, tr("Topography"));
    add_page<Ui::page_mesh>(*pages_, tr("Mesh"));
    add_page<Ui::page_parameters>(*pages_, tr("Parameters"));
    add_page<Ui::page_tiles>(*pages_, tr("Tiles"));
    add_page<Ui::page_create>(*pages_, tr("Create and run"));
    follow_boxes(*pages_);
    written_into_ = pages_->findChild<QLabel *>(QStringLiteral("written_into"));
}

void MainWindow::build_foot()
{
    step_ = new QLabel;
    bar_ = new QProgressBar;
    bar_->setMaximumWidth(260);
    stop_ = new QPushButton(tr("Stop"));
    stop_->setShortcut(QKeySequence(Qt::Key_Escape));
    connect(stop_, &QPushButton::clicked, this, [this] { display_progress_.stop(); });
    statusBar()->addWidget(step_, 1);
    statusBar()->addPermanentWidget(bar_);
    statusBar()->addPermanentWidget(stop_);
    bar_->hide();
    stop_->hide();
}

void MainWindow::wire_layout()
{
    Setup & setup = session_.setup;
    connect(layout_, &LayoutPanel::pointer_moved, this, [this, &setup](double x, double y) {
        if (display_progress_.in_command()) return;
        point_at(setup, x, y);
        view_->show();
    });
    connect(layout_, &LayoutPanel::pointer_released, this,
            [this, &setup](double x, double y) { guarded([&] { choose_at(setup, x, y); }); });
    connect(layout_, &LayoutPanel::clip_pressed, this,
            [this, &setup](int index, bool up) { guarded_change([&] { press_clip(setup, index, up, host_); }); });
    connect(layout_, &LayoutPanel::save_picture, this, [this] {
        guarded([this] {
            const auto path =
                host_.dialogs.save_file({ "Save the picture of the mesh layout", "Pictures (*.png)|*.png", "", "png" });
            if (path && !layout_->write_picture(QString::fromStdString(host_path(*path).string())))
                throw Fault("cannot write the picture " + *path);
        });
    });
}

void MainWindow::refresh()
{
    if (!view_) return;
    const Setup & setup = session_.setup;
    number_pages(setup.refinement_mode == 1);
    view_->show();
    const bool opened = setup.form["Form_mag3d"].caption.starts_with("3D inversion setup");
    view_->show_faults([&setup](const std::string & control, int index) { return box_fault(setup, control, index); }, opened);
    if (!display_progress_.in_command()) previews_->show(setup);
    layout_->show_layout(setup);
    show_column_names();
    written_into_->setText(QString::fromStdString(output_folder_of(setup.form)));
}

/// The pages that there are bear the numbers of the steps, by which keys reach them.
void MainWindow::number_pages(bool refined)
{
    pages_->setTabVisible(tiles_page, refined);
    int number = 0;
    for (int page = 0; page < pages_->count(); ++page) {
        QAction & item = *page_items_[page];
        item.setVisible(pages_->isTabVisible(page));
        item.setShortcut({});
        if (!item.isVisible()) continue;
        pages_->setTabText(page, QStringLiteral("%1 %2").arg(++number).arg(item.text()));
        item.setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(number)));
    }
}

/// The open list of names lies over the box that it fills.
void MainWindow::show_column_names()
{
    for (int slot : { 0, 1 }) {
        auto * const list = qobject_cast<QComboBox *>(view_->widget_of("Combo_names", slot));
        auto * const box = qobject_cast<QWidget *>(view_->widget_of(last_entered_.first, last_entered_.second));
        if (list == nullptr || box == nullptr || !session_.setup.form("Combo_names", slot).visible) continue;
        list->setParent(box->parentWidget());
        list->setGeometry(box->geometry());
        list->show();
        list->raise();
    }
}

void MainWindow::guarded(const std::function<void()> & action)
{
    if (display_progress_.in_command()) return;
    display_progress_.begin_command();
    try {
        action();
    } catch (const Stopped &) {
        // said below: most commands end by themselves
    } catch (const std::exception & fault) {
        host_.dialogs.message(fault.what());
    }
    display_progress_.end_command();
    refresh();
    if (display_progress_.stopped())
        statusBar()->showMessage(tr("Stopped. What had been written stays, and is not complete"), message_time);
    if (closing_ || session_.done) close();
}

void MainWindow::guarded_change(const std::function<void()> & action)
{
    const InversionDefinition before = session_.setup.definition;
    guarded(action);
    if (session_.setup.definition != before) setWindowModified(true);
}

void MainWindow::changed(const std::string & control, int index)
{
    if (control == "Combo_names" && !returning_) {
        take_column(index);
        return;
    }
    guarded([&] {
        if (waits_until_left(control)) return;
        try {
            form_changed(session_.setup, control, index, host_);
        } catch (const OverflowFault &) {
            // The box is marked with these words while it is typed in; the check says them.
        }
    });
    if (control != "Tab_inversion" && control != "Combo_view_limits") setWindowModified(true);
}

void MainWindow::take_column(int index)
{
    returning_ = true;
    changed("Combo_names", index);
    // The list took the focus, and has given it to whatever comes next.
    if (auto * const box = qobject_cast<QWidget *>(view_->widget_of(last_entered_.first, last_entered_.second))) box->setFocus();
    returning_ = false;
}

void MainWindow::left(const std::string & control, int index)
{
    if (control == "Combo_names") {
        take_column(index);
        return;
    }
    guarded([&] { form_left(session_.setup, control, index, host_); });
}

void MainWindow::entered(const std::string & control, int index)
{
    if (returning_ || control == "Combo_names") return; // the list is part of the box that it lies over
    last_entered_ = { control, index };
    guarded([&] { form_entered(session_.setup, control, index); });
}

void MainWindow::pressed(const std::string & control, int index)
{
    const bool reads = control == "menu_file_list" || (control == "menu_read_file" && index == 0) ||
                       control == "menu_define_inversion_mode"; // which begins anew
    const bool keeps = control == "menu_save" || (control == "Command_create_inversion" && index == 0);
    // A shortcut leaves the box that is being typed in where it is.
    if (auto * const box = qobject_cast<QLineEdit *>(focusWidget()); box && box->property("changed").toBool())
        emit box->editingFinished();
    if (reads && !may_drop_changes()) return;
    statusBar()->clearMessage();
    Status status = Status::bad;
    const auto run = [&] { status = ::press(session_, control, index, host_); };
    if (std::ranges::find(editing_commands, control) != std::end(editing_commands))
        guarded_change(run);
    else
        guarded(run);
    if (status == Status::good && (reads || keeps)) setWindowModified(false);
    if (status == Status::good) tell_done(control, index);
}

/// Says in the foot what a command has done where nothing else shows it.
void MainWindow::tell_done(const std::string & control, int index)
{
    const std::string & definition = session_.recent_files.empty() ? std::string() : session_.recent_files.front();
    const QString file = QString::fromStdString(file_name_of_path(definition));
    const QString folder = QString::fromStdString(output_folder_of(session_.setup.form));
    const struct {
        const char * control;
        int index; ///< -1: any
        QString words;
    } done[] = {
        { "menu_save", -1, tr("Saved %1").arg(file) },
        { "menu_read_file", 0, tr("Opened %1").arg(file) },
        { "menu_file_list", -1, tr("Opened %1").arg(file) },
        { "Command_make_folder", -1, tr("Made %1").arg(folder) },
        { "Command_create_inversion", 0, session_.paused ? QString() : tr("Created the inversion in %1").arg(folder) },
        { "Command_create_inversion", 1, tr("Updated the parameters in %1").arg(folder) },
        { "Command_create_inversion", 2, tr("Created the variation in %1").arg(folder) },
        { "Command_continue_tile", -1, tr("Created the inversion in %1").arg(folder) },
    };
    for (const auto & row : done)
        if (control == row.control && (row.index < 0 || row.index == index)) statusBar()->showMessage(row.words, message_time);
}

void MainWindow::opened(const std::string & control, int index)
{
    if (is_file_box(control))
        guarded_change([&] { pick_file(session_.setup, control, index, host_); });
    else if (control == "Dir1")
        guarded([this] { pick_location(session_.setup.form, host_); });
    else
        entered(control, index); // a box that has the focus still gets its list of names again
}

void MainWindow::show_running(bool running)
{
    if (running) statusBar()->clearMessage(); // it would hide the words of the steps
    bar_->setVisible(running);
    stop_->setVisible(running);
    if (!running) step_->clear();
    view_->freeze(running);
    if (running)
        setCursor(Qt::BusyCursor);
    else
        unsetCursor();
}

bool MainWindow::may_drop_changes()
{
    return !isWindowModified() ||
           host_.dialogs.question("The definition has changes that have not been saved. Go on without them?");
}

void MainWindow::open_definition(const std::string & path)
{
    if (!may_drop_changes()) return;
    guarded([&] {
        if (read_definition(session_, path, Selection::all, host_) != Status::good) return;
        setWindowModified(false);
        tell_done("menu_read_file", 0);
    });
}

void MainWindow::take_dropped_file(const std::string & path, const QPoint & place)
{
    auto [control, index] = view_->control_of(childAt(place));
    if (!is_file_box(control)) {
        control = "Text_data_locations";
        index = pages_->currentIndex() == topography_page ? 1 : session_.setup.definition.data_file_type == 1 ? 2 : 0;
    }
    guarded_change([&, &control = control, &index = index] { take_file(session_.setup, control, index, path, host_); });
}

void MainWindow::closeEvent(QCloseEvent * event)
{
    if (display_progress_.in_command()) {
        closing_ = closing_ || host_.dialogs.question("Work is under way. Stop it and close?");
        if (closing_) display_progress_.stop();
        event->ignore(); // the end of the work closes the window
        return;
    }
    if (!closing_ && !may_drop_changes()) {
        session_.done = false;
        event->ignore();
        return;
    }
    static_cast<void>(host_.settings.write(section, "WindowGeometry", saveGeometry().toBase64().toStdString()));
    end_session(session_, host_);
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent * event)
{
    if (display_progress_.in_command()) return;
    if (event->mimeData()->hasUrls() && event->mimeData()->urls().first().isLocalFile()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent * event)
{
    const std::string path = path_of(event->mimeData()->urls().first());
    if (same_text(file_extension_of_path(path), "inp"))
        open_definition(path);
    else
        take_dropped_file(path, event->position().toPoint());
}
