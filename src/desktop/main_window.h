#pragma once

#include "app/file_settings.h"
#include "app/form_progress.h"
#include "app/session.h"
#include "app/system_launcher.h"
#include "desktop/desktop_host.h"
#include "desktop/form_view.h"

#include <QMainWindow>
#include <QTabWidget>

#include <memory>

/// The program's one window: the pages of the form, the layout view, the progress of a run and the menus.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// dialogs, settings and launcher: other ones than the program's own, for its tests.
    explicit MainWindow(SettingsStore & settings, ScriptLauncher & launcher, Dialogs * dialogs = nullptr);
    ~MainWindow() override;

    Session & session() { return session_; }
    Host & host() { return host_; }
    FormView & view() { return *view_; }
    /// Shows the form as it is.
    void refresh();

private:
    void build_pages();
    void changed(const std::string & control, int index);
    void left(const std::string & control, int index);
    void entered(const std::string & control, int index);
    void pressed(const std::string & control, int index);
    void opened(const std::string & control, int index);
    /// Runs what an event leads to; a fault that nobody handled is shown, and the form after it.
    void guarded(const std::function<void()> & action);
    void show_running(bool running);

    Session session_;
    DesktopDialogs own_dialogs_;
    DesktopProgress display_progress_;
    DebugLog debug_;
    Host display_;
    FormProgress progress_;
    Host host_;
    std::unique_ptr<FormView> view_;
};
