#include "batch/terminal_host.h"

#include "support/fault.h"

#include <csignal>
#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

volatile std::sig_atomic_t interrupted = 0;

void note_interrupt(int) { interrupted = 1; }

bool standard_error_is_terminal()
{
#ifdef _WIN32
    return ::_isatty(::_fileno(stderr)) != 0;
#else
    return ::isatty(STDERR_FILENO) == 1;
#endif
}

/// A text of several lines on one.
std::string joined(const std::string & text)
{
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        if (text[i] == '\r' || text[i] == '\n')
            line += " / ";
        else
            line += text[i];
    }
    return line;
}

}

void watch_for_interrupt()
{
#ifdef _WIN32
    std::signal(SIGINT, note_interrupt);
#else
    struct sigaction action = {};
    action.sa_handler = note_interrupt; // without SA_RESTART, so that a read that waits for a line ends too
    ::sigaction(SIGINT, &action, nullptr);
#endif
}

void stop_if_interrupted()
{
    if (interrupted != 0) throw Stopped();
}

void TerminalDialogs::message(const std::string & text)
{
    progress_.clear_bar();
    std::fprintf(stderr, "message: %s\n", joined(text).c_str());
}

bool TerminalDialogs::question(const std::string & text)
{
    progress_.clear_bar();
    std::fprintf(stderr, "question: %s -> %s\n", joined(text).c_str(), answer_yes ? "Yes" : "No");
    return answer_yes;
}

std::optional<std::string> TerminalDialogs::input(const std::string &, const std::string & prompt, const std::string &)
{
    progress_.clear_bar();
    std::fprintf(stderr, "question: %s -> cancelled\n", joined(prompt).c_str());
    return std::nullopt;
}

TerminalProgress::TerminalProgress() : on_terminal_(standard_error_is_terminal()) {}

void TerminalProgress::end() { clear_bar(); }

void TerminalProgress::line(const std::string & text)
{
    clear_bar();
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
    stop_if_interrupted();
}

void TerminalProgress::step(const std::string & text)
{
    step_ = text;
    draw(0);
    stop_if_interrupted();
}

void TerminalProgress::percent(int percent)
{
    draw(percent);
    stop_if_interrupted();
}

void TerminalProgress::draw(int percent)
{
    if (!on_terminal_) return;
    constexpr int width = 40;
    const auto done = static_cast<std::size_t>(percent * width / 100);
    std::fprintf(stderr, "\r[%s%s] %3d%% %-30s", std::string(done, '#').c_str(), std::string(width - done, ' ').c_str(), percent,
                 step_.c_str());
    std::fflush(stderr);
    bar_shown_ = true;
}

void TerminalProgress::clear_bar()
{
    if (!bar_shown_) return;
    std::fprintf(stderr, "\r%s\r", std::string(80, ' ').c_str());
    bar_shown_ = false;
}
