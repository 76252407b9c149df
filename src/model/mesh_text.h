#pragma once

#include "support/status.h"
#include "support/text_file.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The text of a mesh file: its lines, and its tokens over as many lines as they take.
///
/// A token stays valid until the next line is taken.
class MeshText {
public:
    /// path: a definition path. Fails with a `FileFault` when the file cannot be opened.
    explicit MeshText(const std::string & path) : file_(path) {}

    /// Makes the next line that is neither blank nor a comment, or is just not blank, the current one, trimmed. At the end of
    /// the file false, and the current line is empty.
    bool data_line();
    bool nonblank_line();
    /// The current line as a whole.
    const std::string & line() const { return line_; }
    /// Cuts the current line before its first "!".
    void cut_comment();
    /// The rest of the current line is not looked at any more.
    void drop_line() { rest_ = {}; }

    /// The next token of the current line; empty when the line is used up.
    std::string_view line_token();
    bool line_used_up() const { return rest_.find_first_not_of(' ') == std::string_view::npos; }
    /// The next token of the current line or of the lines behind it. False at the end of the file.
    bool next_token(std::string_view & token);
    /// Hands `count` tokens, or those that there are, to `take(token, done)`, which counts `done` up by what it has dealt with.
    /// Bad as soon as `take` is.
    template <class Take>
    Status each_token(std::int64_t count, Take take);
    /// Lines with this word in them hold no tokens. Empty: all lines do.
    void skip_lines_with(std::string_view word) { heading_ = word; }

    void rewind();
    /// True when a line follows that `data_line` would take.
    bool has_data_line() const;
    bool starts_with(std::string_view text) const { return file_.all().starts_with(text); }
    std::size_t size() const { return file_.all().size(); }
    /// The number of the current line in the file.
    double line_number() const;

private:
    bool take_whole_line();
    bool line_was_cut() const;

    TextFile file_;
    std::string line_, more_;
    std::string_view rest_;    // of line_
    std::string_view heading_; // a literal
};

template <class Take>
Status MeshText::each_token(std::int64_t count, Take take)
{
    std::string_view token;
    for (std::int64_t done = 0; done < count && next_token(token);)
        if (take(token, done) != Status::good) return Status::bad;
    return Status::good;
}
