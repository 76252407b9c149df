#pragma once

#include "host/dialogs.h"
#include "host/progress.h"

#include <QElapsedTimer>
#include <QWidget>
#include <functional>

/// The boxes that stop the user, as windows over `parent`.
class DesktopDialogs : public Dialogs {
public:
    explicit DesktopDialogs(QWidget & parent) : parent_(parent) {}

    /// Opens the dialog of the transform; set by the window, which knows what the dialog needs.
    std::function<std::optional<PointTransform>(const PointTransform &)> transform_dialog;

    /// Opens the dialog of the field; set as the one above.
    std::function<bool(IgrfRecord &, const SurveyPlace *)> igrf_dialog;

    void message(const std::string & text) override;
    bool question(const std::string & text) override;
    std::optional<std::string> open_file(const FileDialog & dialog) override;
    std::optional<std::string> save_file(const FileDialog & dialog) override;
    std::optional<std::string> choose_folder(const std::string & title, const std::string & start) override;
    std::optional<std::string> input(const std::string & title, const std::string & prompt, const std::string & start) override;
    bool check_options(const std::string & title, std::vector<CheckOption> & options) override;
    std::optional<PointTransform> define_transform(const PointTransform & transform) override;
    bool define_igrf(IgrfRecord & record, const SurveyPlace * survey) override;

private:
    QWidget & parent_;
};

/// What the window shows of long work.
struct ProgressFoot {
    std::function<void()> show_form;               ///< shows the form as it is
    std::function<void(bool)> show_running;        ///< work has been going on for a while, or has ended
    std::function<void(const std::string &)> step; ///< the few words for the step under way
    std::function<void(int)> percent;
};

/// Keeps the window alive in long work: shows what has been reported and lets its events run, and ends the work once the user has
/// asked to stop.
class DesktopProgress : public Progress {
public:
    explicit DesktopProgress(ProgressFoot foot) : foot_(std::move(foot)) {}

    /// A command of the user begins or ends. Only one runs at a time.
    void begin_command();
    void end_command();
    bool in_command() const { return in_command_; }
    void stop() { stop_asked_ = true; }
    /// The user has stopped the command, or the last one.
    bool stopped() const { return stopped_; }

    void begin() override;
    void end() override;
    void line(const std::string & text) override;
    void step(const std::string & text) override;
    void percent(int percent) override;

private:
    void let_events_run(bool at_once);

    ProgressFoot foot_;
    bool in_command_ = false, shown_ = false, stop_asked_ = false, stopped_ = false;
    QElapsedTimer since_last_;
};
