#include "support/text_file.h"

#include "support/text.h"

namespace {

/// Takes the raw line at the front and its line end.
std::string_view take_raw_line(TextFile & file)
{
    const std::string_view rest = file.rest();
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    std::size_t taken = std::min(end + 1, rest.size());
    if (rest.substr(end).starts_with("\r\n")) taken = end + 2;
    file.skip(taken);
    return rest.substr(0, end);
}

}

bool read_raw_line(TextFile & file, std::string & line)
{
    line.clear();
    if (file.at_end()) return false;
    line = take_raw_line(file);
    return true;
}

bool read_text_line(TextFile & file, std::string & line)
{
    line.clear();
    if (file.at_end()) return false;
    const std::string_view rest = file.rest();
    std::size_t at = 0;
    for (; at < rest.size(); ++at) {
        const char c = rest[at];
        if (c == '\n' || c == '\r') {
            at += rest.substr(at).starts_with("\r\n") ? 2 : 1;
            break;
        }
        if (c == '\t')
            line += ' ';
        else if (c >= ' ' && c <= '~')
            line += c;
        if (line.size() >= longest_text_line) {
            ++at;
            break;
        }
    }
    file.skip(at);
    return true;
}

bool read_nonblank_line(TextFile & file, std::string & line)
{
    while (read_text_line(file, line))
        if (!trim(line).empty()) return true;
    return false;
}

bool read_data_line(TextFile & file, std::string & line)
{
    while (read_nonblank_line(file, line)) {
        line = std::string(trim(line));
        if (line[0] != '!' && line[0] != '#') return true;
    }
    return false;
}

bool detect_line_ending(TextFile & file)
{
    file.rewind();
    const std::string_view start = file.all().substr(0, 512);
    if (start.starts_with('\xEF')) return true;
    return start.find('\r') == std::string_view::npos;
}
