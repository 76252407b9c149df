#include "support/file_lock.h"

#include "support/paths.h"

#include <cerrno>
#include <thread>
#include <utility>

#ifdef _WIN32
#define NOMINMAX
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace {

/// What came of one attempt: a handle of the system, nothing to lock, or another's lock.
struct Attempt {
    std::intptr_t handle = -1;
    bool taken_by_another = false;
};

#ifdef _WIN32

/// Folders cannot be locked here: a file in them is, which goes with its handle. An open file is safe without a lock.
Attempt try_to_lock(const std::string & path)
{
    if (!folder_exists(path)) return {};
    const std::filesystem::path file = host_path(path) / L"~WDqvinv3d.lock";
    const HANDLE handle = ::CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_ALWAYS,
                                        FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return { reinterpret_cast<std::intptr_t>(handle) };
    return { -1, ::GetLastError() == ERROR_SHARING_VIOLATION };
}

void release(std::intptr_t handle) { ::CloseHandle(reinterpret_cast<HANDLE>(handle)); }

#else

Attempt lock_descriptor(int descriptor)
{
    if (descriptor < 0) return {};
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) return { descriptor };
    const bool taken = errno == EWOULDBLOCK;
    ::close(descriptor);
    return { -1, taken };
}

Attempt try_to_lock(const std::string & path) { return lock_descriptor(::open(host_path(path).c_str(), O_RDONLY | O_CLOEXEC)); }

void release(std::intptr_t handle) { ::close(static_cast<int>(handle)); }

#endif

}

FileLock::~FileLock()
{
    if (holds()) release(handle_);
}

FileLock::FileLock(FileLock && other) noexcept : handle_(std::exchange(other.handle_, none)) {}

FileLock & FileLock::operator=(FileLock && other) noexcept
{
    std::swap(handle_, other.handle_);
    return *this;
}

std::optional<FileLock> lock_path(const std::string & path, std::chrono::milliseconds patience)
{
    constexpr std::chrono::milliseconds pause(5);
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        const Attempt attempt = try_to_lock(path);
        if (!attempt.taken_by_another) return FileLock(attempt.handle);
        if (std::chrono::steady_clock::now() >= end) return std::nullopt;
        std::this_thread::sleep_for(pause);
    }
}

std::optional<FileLock> lock_open_file([[maybe_unused]] std::FILE * file)
{
#ifdef _WIN32
    return FileLock();
#else
    const Attempt attempt = lock_descriptor(::fcntl(::fileno(file), F_DUPFD_CLOEXEC, 0));
    if (attempt.taken_by_another) return std::nullopt;
    return FileLock(attempt.handle);
#endif
}
