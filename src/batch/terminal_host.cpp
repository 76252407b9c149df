#include "batch/terminal_host.h"

#include "support/fault.h"

#include <csignal>
#include <cstdio>
#include <fmt/format.h>

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

/// What cannot be written here has nowhere else to go; of results on standard output the stream's state tells in the end.
void put(const std::string & text, std::FILE * stream) { static_cast<void>(std::fputs(text.c_str(), stream)); }

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
    put("message: " + joined(text) + "\n", stderr);
}

bool TerminalDialogs::question(const std::string & text)
{
    progress_.clear_bar();
    put("question: " + joined(text) + (answer_yes ? " -> Yes\n" : " -> No\n"), stderr);
    return answer_yes;
}

std::optional<std::string> TerminalDialogs::input(const std::string &, const std::string & prompt, const std::string &)
{
    progress_.clear_bar();
    put("question: " + joined(prompt) + " -> cancelled\n", stderr);
    return std::nullopt;
}

TerminalProgress::TerminalProgress() : on_terminal_(standard_error_is_terminal()) {}

void TerminalProgress::end() { clear_bar(); }

void TerminalProgress::line(const std::string & text)
{
    clear_bar();
    put(text + "\n", stdout);
    static_cast<void>(std::fflush(stdout));
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
    put(fmt::format("\r[{}{}] {:3}% {:30}", std::string(done, '#'), std::string(width - done, ' '), percent, step_), stderr);
    static_cast<void>(std::fflush(stderr));
    bar_shown_ = true;
}

void TerminalProgress::clear_bar()
{
    if (!bar_shown_) return;
    put("\r" + std::string(80, ' ') + "\r", stderr);
    bar_shown_ = false;
}
