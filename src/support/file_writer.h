#pragma once

#include "support/work_file.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// A file being written anew through a large buffer. Every write is checked, the close included.
///
/// The file appears under its name when it is closed, whole. Fails with a `FileFault` that names the path. A writer destroyed
/// without `close` leaves what stood there before.
class FileWriter {
public:
    /// path: a definition path.
    explicit FileWriter(const std::string & path);

    void text(std::string_view text);
    /// The text and CR LF.
    void line(std::string_view text);

    /// Room for at least `size` bytes (up to 64 KiB) to be formatted in place; `commit` takes them over up to `end`.
    char * room(std::size_t size);
    void commit(const char * end) { used_ = static_cast<std::size_t>(end - buffer_.data()); }

    /// Writes what is held back and closes; `durable` also waits until the disk has it.
    void close(bool durable = false);

private:
    void flush();
    void write(const char * bytes, std::size_t count);

    NewFile file_;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
};

/// Writes a small file and waits until the disk has it, so that even a crash of the system leaves the old file or the new one.
void replace_file(const std::string & path, std::string_view content);

/// Copies a file into the place of whatever stands at `target`; a file copied onto itself stays. Fails with a `FileFault` that
/// names the file.
void copy_file(const std::string & source, const std::string & target);
