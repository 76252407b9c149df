#pragma once

#include "app/form_progress.h"
#include "app/session.h"
#include "desktop/desktop_host.h"
#include "desktop/form_view.h"

#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <memory>

class DataPreviews;
class LayoutPanel;

/// The program's one window: the pages of the form, the layout view, the progress of a run and the menus.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// dialogs: other ones than the program's own, for its tests.
    MainWindow(SettingsStore & settings, ScriptLauncher & launcher, Dialogs * dialogs = nullptr, DebugLog debug = {});
    ~MainWindow() override;

    Session & session() { return session_; }
    Host & host() { return host_; }
    FormView & view() { return *view_; }
    /// Shows the form as it is.
    void refresh();
    /// Reads a definition as the menu does, for one that was named when the program was started or was dropped on the window.
    void open_definition(const std::string & path);
    /// Presses a button or menu item, whether it can be seen or not.
    void press(const std::string & control, int index = 0) { pressed(control, index); }

private:
    void build();
    void build_menus();
    void build_pages();
    void build_foot();
    void add_looks(QMenu & menu);
    void wire_layout();

    void changed(const std::string & control, int index);
    void left(const std::string & control, int index);
    void entered(const std::string & control, int index);
    void pressed(const std::string & control, int index);
    void opened(const std::string & control, int index);
    void tell_done(const std::string & control, int index);
    /// Runs what an event leads to, unless a command is running already; a fault that nobody handled is shown, and then the form.
    void guarded(const std::function<void()> & action);

    void number_pages(bool refined);
    void show_column_names();
    /// Takes the column that was picked in the list of names, and goes back to its box.
    void take_column(int index);
    void show_running(bool running);
    /// As `guarded`, for what may change the definition without a control that tells of it.
    void guarded_change(const std::function<void()> & action);
    bool may_drop_changes();
    /// Takes a file into the file box at a place of the window, or else into the data box of the page that is shown.
    void take_dropped_file(const std::string & path, const QPoint & place);

    void closeEvent(QCloseEvent * event) override;
    void dragEnterEvent(QDragEnterEvent * event) override;
    void dropEvent(QDropEvent * event) override;

    Session session_;
    DesktopDialogs own_dialogs_;
    DesktopProgress display_progress_;
    DebugLog debug_;
    Host display_;
    FormProgress progress_;
    Host host_;

    QTabWidget * pages_ = nullptr;
    QList<QAction *> page_items_; ///< one per page
    LayoutPanel * layout_ = nullptr;
    QLabel * step_ = nullptr;
    QLabel * written_into_ = nullptr;
    QProgressBar * bar_ = nullptr;
    QPushButton * stop_ = nullptr;
    std::unique_ptr<DataPreviews> previews_;
    std::unique_ptr<FormView> view_;
    std::pair<std::string, int> last_entered_;
    bool returning_ = false; ///< the focus goes back to the box that was filled from the list of names
    bool closing_ = false;
};
