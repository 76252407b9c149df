#pragma once

#include "host/dialogs.h"
#include "host/progress.h"

#include <functional>

#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>

/// The boxes that stop the user, as windows over `parent`.
class DesktopDialogs : public Dialogs {
public:
    explicit DesktopDialogs(QWidget & parent) : parent_(parent) {}

    void message(const std::string & text) override;
    bool question(const std::string & text) override;
    std::optional<std::string> open_file(const FileDialog & dialog) override;
    std::optional<std::string> save_file(const FileDialog & dialog) override;
    std::optional<std::string> choose_folder(const std::string & title, const std::string & start) override;
    std::optional<std::string> input(const std::string & title, const std::string & prompt, const std::string & start) override;
    bool check_options(const std::string & title, std::vector<CheckOption> & options) override;
    std::optional<PointTransform> define_transform(const PointTransform & transform) override;

private:
    QWidget & parent_;
};

/// Keeps the window alive in long work: shows what has been reported and lets its events run, and ends the work once the user has
/// asked to stop.
class DesktopProgress : public Progress {
public:
    /// show: shows the form as it is; running: told when a run begins and ends.
    DesktopProgress(std::function<void()> show, std::function<void(bool)> running)
        : show_(std::move(show)), running_(std::move(running))
    {
    }

    void stop() { stop_asked_ = true; }
    bool is_running() const { return depth_ > 0; }

    void begin() override;
    void end() override;
    void line(const std::string & text) override;
    void step(const std::string & text) override;
    void percent(int percent) override;

private:
    void let_events_run(bool at_once);

    std::function<void()> show_;
    std::function<void(bool)> running_;
    int depth_ = 0;
    bool stop_asked_ = false;
    QElapsedTimer since_last_;
};
