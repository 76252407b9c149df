#include "app/system_launcher.h"

#include "app/session.h"
#include "support/fault.h"
#include "support/paths.h"
#include "support/text.h"

#include <cerrno>
#include <system_error>
#include <vector>

#ifdef _WIN32
#define NOMINMAX
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

constexpr const char * where_to_name_it = "the setting \"Launcher\" in section ZEB_QVinv3d_setup";

/// The words of a command line, parted by blanks that stand outside double quotes.
std::vector<std::string> words_of(std::string_view line)
{
    std::vector<std::string> words;
    while (!(line = trim(line)).empty()) {
        const bool quoted = line.front() == '"';
        if (quoted) line.remove_prefix(1);
        const std::size_t end = line.find(quoted ? '"' : ' ');
        words.emplace_back(line.substr(0, end));
        line.remove_prefix(end == line.npos ? line.size() : end + 1);
    }
    return words;
}

/// The words of the user's own launcher; none when none is set.
std::vector<std::string> own_launcher(SettingsStore & settings)
{
    const std::string line = settings.read(settings_section, "Launcher", no_setting);
    return line == no_setting ? std::vector<std::string>() : words_of(line);
}

#ifdef _WIN32

std::wstring wide(const std::string & text)
{
    return std::filesystem::path(reinterpret_cast<const char8_t *>(text.c_str())).wstring();
}

void start_detached(const std::vector<std::string> & words, const std::string & folder)
{
    std::wstring line;
    for (const std::string & word : words)
        line += (line.empty() ? L"" : L" ") + (word.find(' ') == word.npos ? wide(word) : L"\"" + wide(word) + L"\"");
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWMINNOACTIVE;
    PROCESS_INFORMATION process = {};
    if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NEW_CONSOLE, nullptr, host_path(folder).c_str(),
                          &startup, &process))
        throw Fault("cannot start " + words.front() + ": " + std::system_category().message(static_cast<int>(::GetLastError())));
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
}

#else

/// Why a process could not become the program.
struct Failure {
    enum Step { none, no_process, no_folder, no_program } step = none;
    int error = 0;
};

/// Both ends of a pipe, which close when a program is started.
struct Pipe {
    int ends[2] = { -1, -1 };

    Pipe()
    {
        if (::pipe(ends) != 0) throw Fault("cannot start a process: " + std::generic_category().message(errno));
        for (int & end : ends) { // clear of the three streams, which the started program gets anew
            const int low = end;
            end = ::fcntl(low, F_DUPFD_CLOEXEC, 3);
            ::close(low);
        }
    }
    ~Pipe()
    {
        ::close(ends[0]);
        close_writing();
    }
    Pipe(const Pipe &) = delete;
    Pipe & operator=(const Pipe &) = delete;

    void close_writing()
    {
        if (ends[1] >= 0) ::close(ends[1]);
        ends[1] = -1;
    }
};

// From here to the end of `run_detached` a copy of this process runs, in which nothing may be allocated.

[[noreturn]] void give_up(Failure::Step step, int report)
{
    const Failure failure = { step, errno };
    const ssize_t written = ::write(report, &failure, sizeof failure);
    ::_exit(written == sizeof failure ? 0 : 1);
}

[[noreturn]] void become_program(char * const * words, const char * folder, int report)
{
    const int nothing = ::open("/dev/null", O_RDWR);
    for (const int stream : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO }) ::dup2(nothing, stream);
    if (::chdir(folder) != 0) give_up(Failure::no_folder, report);
    ::execvp(words[0], words);
    give_up(Failure::no_program, report);
}

/// The run belongs to a process that ends at once, so that nobody has to wait for it, and to a session of its own.
[[noreturn]] void run_detached(char * const * words, const char * folder, int report)
{
    ::setsid();
    const pid_t run = ::fork();
    if (run < 0) give_up(Failure::no_process, report);
    if (run == 0) become_program(words, folder, report);
    ::_exit(0);
}

Failure start_process(const std::vector<std::string> & words, const std::string & folder)
{
    std::vector<char *> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string & word : words) arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    const std::string place = host_path(folder).string();
    Pipe report;
    const pid_t child = ::fork();
    if (child < 0) return { Failure::no_process, errno };
    if (child == 0) run_detached(arguments.data(), place.c_str(), report.ends[1]);
    report.close_writing();
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    Failure failure;
    ssize_t count = 0;
    while ((count = ::read(report.ends[0], &failure, sizeof failure)) < 0 && errno == EINTR) {
    }
    return count == sizeof failure ? failure : Failure(); // the pipe closes without a word when the program starts
}

void start_detached(const std::vector<std::string> & words, const std::string & folder)
{
    const Failure failure = start_process(words, folder);
    const std::string reason = std::generic_category().message(failure.error);
    if (failure.step == Failure::no_folder) throw FileFault("cannot start a run in", folder, reason);
    if (failure.step == Failure::no_program && failure.error == ENOENT && words.front() == "wine")
        throw Fault("No command interpreter was found to run " + words.back() + ": install wine, or name another program in " +
                    where_to_name_it);
    if (failure.step != Failure::none) throw Fault("cannot start " + words.front() + ": " + reason + ". See " + where_to_name_it);
}

#endif

}

void SystemLauncher::start(const std::string & folder, const std::string & script)
{
    std::vector<std::string> words = own_launcher(settings_);
#ifdef _WIN32
    if (words.empty()) words = { "cmd", "/c" };
#else
    if (words.empty()) words = { "wine", "cmd", "/c" };
#endif
    words.push_back(script);
    start_detached(words, folder);
}
