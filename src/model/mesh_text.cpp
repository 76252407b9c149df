#include "model/mesh_text.h"

#include "support/text.h"

bool MeshText::data_line()
{
    const bool found = read_data_line(file_, line_);
    rest_ = line_;
    return found;
}

bool MeshText::nonblank_line()
{
    const bool found = read_nonblank_line(file_, line_);
    line_ = std::string(trim(line_));
    rest_ = line_;
    return found;
}

void MeshText::cut_comment()
{
    line_ = std::string(trim(std::string_view(line_).substr(0, line_.find('!'))));
    rest_ = line_;
}

std::string_view MeshText::line_token() { return ::next_token(rest_); }

bool MeshText::next_token(std::string_view & token)
{
    while (line_used_up())
        if (!take_whole_line()) return false;
    token = ::next_token(rest_);
    return true;
}

void MeshText::rewind()
{
    file_.rewind();
    line_.clear();
    rest_ = {};
}

bool MeshText::has_data_line() const
{
    std::string_view text = file_.rest();
    std::string line;
    while (take_text_line(text, line))
        if (const auto content = trim(line); !content.empty() && content[0] != '!' && content[0] != '#') return true;
    return false;
}

double MeshText::line_number() const
{
    std::string_view text = file_.all().substr(0, file_.all().size() - file_.rest().size());
    double number = 0;
    for (std::size_t end = 0; !text.empty(); text.remove_prefix(end), ++number) {
        end = std::min(text.find_first_of("\r\n"), text.size() - 1) + 1;
        if (text[end - 1] == '\r' && text.substr(end).starts_with('\n')) ++end;
    }
    return number;
}

/// Lines are taken in pieces of a bounded length. The pieces of a longer one are put together, so that no number is cut in two.
bool MeshText::take_whole_line()
{
    do {
        rest_ = {};
        if (!read_text_line(file_, line_)) return false;
        while (line_was_cut() && read_text_line(file_, more_)) line_ += more_;
    } while (!heading_.empty() && line_.find(heading_) != std::string::npos);
    rest_ = line_;
    return true;
}

bool MeshText::line_was_cut() const
{
    if (file_.at_end()) return false;
    const char last = file_.all()[file_.all().size() - file_.rest().size() - 1];
    return last != '\r' && last != '\n';
}
