#pragma once

#include "support/file_bytes.h"

#include <string>
#include <string_view>

/// A text file open for reading, and how far it has been read.
class TextFile {
public:
    /// path: a definition path. most: bytes wanted from the beginning of the file. Fails with a `FileFault` when the file cannot
    /// be opened.
    explicit TextFile(const std::string & path, std::size_t most = static_cast<std::size_t>(-1)) : bytes_(path, most) {}

    bool at_end() const { return at_ >= bytes_.text().size(); }
    void rewind() { at_ = 0; }
    std::string_view rest() const { return bytes_.text().substr(at_); }
    void skip(std::size_t count) { at_ += count; }
    std::string_view all() const { return bytes_.text(); }
    /// As of `FileBytes`. The functions below that take lines ask it themselves.
    void verify() const { bytes_.verify(); }

private:
    FileBytes bytes_;
    std::size_t at_ = 0;
};

/// The longest line `read_text_line` gives; the rest of a longer one comes as the next line.
inline constexpr std::size_t longest_text_line = 10240;

/// All of these return false, with an empty line, only when the file had ended before the call.

/// One whole line with all its bytes; CR, LF and CR LF end it.
bool read_raw_line(TextFile & file, std::string & line);
/// One line of printable text: a tab becomes a blank, all other bytes outside 32 to 126 are dropped.
bool read_text_line(TextFile & file, std::string & line);
/// The same two for a text in memory, from whose front they take the line.
bool take_raw_line(std::string_view & text, std::string & line);
bool take_text_line(std::string_view & text, std::string & line);
/// The next line that is not blank, as `read_text_line` gives it.
bool read_nonblank_line(TextFile & file, std::string & line);
/// The next line that is neither blank nor a comment ("!" or "#" first), trimmed.
bool read_data_line(TextFile & file, std::string & line);

/// Looks at up to 512 bytes from the start: false when a carriage return stands among them, true when none does or when the
/// first byte is a UTF-8 mark's. Rewinds the file.
bool detect_line_ending(TextFile & file);
