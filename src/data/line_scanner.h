#pragma once

#include "support/text_file.h"

#include <string>
#include <string_view>

/// How a text is taken apart into lines.
enum class LineReader {
    raw,      ///< as `read_raw_line` does: all bytes stay
    printable ///< as `read_text_line` does
};

/// Gives the lines of a text exactly as `read_raw_line` or `read_text_line` would, but without copying them.
///
/// The text is examined in blocks of whole lines. A block without odd bytes is taken apart in place; in any other the line
/// readers themselves do the work. Tabs may be left as they are where they can only stand between fields.
class LineScanner {
public:
    LineScanner(std::string_view text, LineReader reader);

    /// The next line, valid until the next call; false at the end of the file. A byte that is no digit stands behind it: a line
    /// end or a NUL.
    bool next(std::string_view & line)
    {
        if (at_ < plain_end_ && take_plain(line)) return true;
        return next_examined(line);
    }

    /// What has not been read yet.
    std::string_view rest() const { return text_.substr(static_cast<std::size_t>(at_ - text_.data())); }

private:
    bool take_plain(std::string_view & line);
    bool next_examined(std::string_view & line);
    bool read_oddly(std::string_view & line);
    void examine_block();

    LineReader reader_;
    std::string_view text_;
    const char * at_;        // the next byte to be read
    const char * block_end_; // what has been examined
    const char * plain_end_; // equal to block_end_ in a block without odd bytes, otherwise no further than `at_`
    std::string odd_line_;
};

/// About how many lines a text holds, judged by parts of it when it is large.
std::int64_t estimate_line_count(std::string_view text);
