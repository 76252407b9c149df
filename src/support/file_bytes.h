#pragma once

#include "support/file_mapping.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The bytes of a file, mapped when it is large and the system can map it, and read whole otherwise (a small file, a pipe).
/// Movable; the bytes stay in place until it is destroyed.
class FileBytes {
public:
    /// path: a definition path. most: bytes wanted from the beginning of the file. Fails with a `FileFault` when the file cannot
    /// be opened or read, or is a folder.
    explicit FileBytes(const std::string & path, std::size_t most = static_cast<std::size_t>(-1));

    std::string_view text() const { return { data_, size_ }; }
    /// Fails with a `FileFault` when part of what has been read of the text was no longer there: the file was cut short, or its
    /// share went away. To be asked before what was read is believed.
    void verify() const;

private:
    const char * data_ = nullptr;
    std::size_t size_ = 0;
    std::string path_;
    std::unique_ptr<FileMapping> mapping_;
    std::vector<char> held_;
};
