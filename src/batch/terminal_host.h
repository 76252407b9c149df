#pragma once

#include "host/cancelled_dialogs.h"
#include "host/host.h"
#include "utilities/point_transform.h"

/// Finished lines on standard output; on a terminal also a bar with the step's words on standard error. An interrupt (Ctrl-C) is
/// the user's Stop and takes effect at the next report.
class TerminalProgress : public Progress {
public:
    TerminalProgress();

    void begin() override {}
    void end() override;
    void line(const std::string & text) override;
    void step(const std::string & text) override;
    void percent(int percent) override;

    /// Makes room for a line of text where the bar stands.
    void clear_bar();

private:
    void draw(int percent);

    std::string step_;
    bool on_terminal_;
    bool bar_shown_ = false;
};

/// Message boxes as lines on standard error. Questions are answered No, or Yes throughout; prompts are cancelled.
class TerminalDialogs : public CancelledDialogs {
public:
    bool answer_yes = false;

    explicit TerminalDialogs(TerminalProgress & progress) : progress_(progress) {}

    void message(const std::string & text) override;
    bool question(const std::string & text) override;
    std::optional<std::string> input(const std::string & title, const std::string & prompt, const std::string & start) override;
    std::optional<PointTransform> define_transform(const PointTransform &) override { return std::nullopt; }

private:
    TerminalProgress & progress_;
};

/// Takes interrupts from now on as the user's Stop.
void watch_for_interrupt();
/// Fails with `Stopped` once an interrupt has come. For work that reports no progress.
void stop_if_interrupted();
