#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The bytes of a file, mapped where the system can map it and read whole where it cannot (a pipe, a device).
/// Movable; the bytes stay in place until it is destroyed.
class FileBytes {
public:
    /// path: a definition path. most: bytes wanted from the beginning of the file. Fails with a `FileFault` when the file cannot
    /// be opened or read, or is a folder.
    explicit FileBytes(const std::string & path, std::size_t most = static_cast<std::size_t>(-1));
    ~FileBytes();
    FileBytes(FileBytes && other) noexcept;
    FileBytes(const FileBytes &) = delete;
    FileBytes & operator=(const FileBytes &) = delete;
    FileBytes & operator=(FileBytes &&) = delete;

    std::string_view text() const { return { data_, size_ }; }

private:
    const char * data_ = nullptr;
    std::size_t size_ = 0;
    bool mapped_ = false;
    std::vector<char> held_;
};
