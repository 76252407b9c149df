#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>

/// A lock on a folder or a file among programs. The system drops it with its process, however that ends, and nothing is left
/// behind. Programs that do not ask for it are not hindered.
class FileLock {
public:
    FileLock() = default;
    ~FileLock();
    FileLock(FileLock && other) noexcept;
    FileLock & operator=(FileLock && other) noexcept;
    FileLock(const FileLock &) = delete;
    FileLock & operator=(const FileLock &) = delete;

    /// False where the file system knows no locks.
    bool holds() const { return handle_ != none; }

private:
    friend std::optional<FileLock> lock_path(const std::string & path, std::chrono::milliseconds patience);
    friend std::optional<FileLock> lock_open_file(std::FILE * file);

    static constexpr std::intptr_t none = -1;
    explicit FileLock(std::intptr_t handle) : handle_(handle) {}

    std::intptr_t handle_ = none; ///< of the system
};

/// Locks a folder, or a file that is there; nothing when another still has it after the time given.
///
/// path: a definition path. Never fails: a lock that cannot be had at all holds nothing.
std::optional<FileLock> lock_path(const std::string & path, std::chrono::milliseconds patience = {});

/// The same for a file that this process has open. The lock outlives the closing of the file.
std::optional<FileLock> lock_open_file(std::FILE * file);
