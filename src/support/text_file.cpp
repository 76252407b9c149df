#include "support/text_file.h"

#include "support/text.h"

#include <cstdint>
#include <cstring>

namespace {

using LineFunction = bool (*)(std::string_view &, std::string &);

bool read_line(TextFile & file, std::string & line, LineFunction read)
{
    std::string_view rest = file.rest();
    const std::size_t size = rest.size();
    const bool found = read(rest, line);
    file.verify();
    file.skip(size - rest.size());
    return found;
}

constexpr bool is_printable(char c) { return c >= ' ' && c <= '~'; }

/// True when all eight bytes are printable. Looks at each byte's top bit: set by the byte itself, by its distance below 32,
/// or by the sum with 1 of a 127; what a byte lends its neighbour can only call for the closer look.
bool all_printable(const char * bytes)
{
    constexpr std::uint64_t ones = 0x0101010101010101U, tops = ones << 7;
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes, sizeof eight);
    return ((eight | (eight - ones * 32) | (eight + ones)) & tops) == 0;
}

/// How many characters at the front are printable.
std::size_t printable_count(std::string_view text)
{
    std::size_t count = 0;
    while (count + 8 <= text.size() && all_printable(text.data() + count)) count += 8;
    while (count < text.size() && is_printable(text[count])) ++count;
    return count;
}

}

bool take_raw_line(std::string_view & text, std::string & line)
{
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    line = text.substr(0, end);
    if (text.empty()) return false;
    text.remove_prefix(text.substr(end).starts_with("\r\n") ? end + 2 : std::min(end + 1, text.size()));
    return true;
}

bool take_text_line(std::string_view & text, std::string & line)
{
    line.clear();
    if (text.empty()) return false;
    std::size_t at = 0;
    for (;;) {
        const std::size_t kept = printable_count(text.substr(at, longest_text_line - line.size()));
        line.append(text, at, kept);
        at += kept;
        if (at == text.size()) break;
        const char c = text[at];
        if (c == '\n' || c == '\r') {
            at += text.substr(at).starts_with("\r\n") ? 2 : 1;
            break;
        }
        // What does not fit is left for the next line; a line of just the longest length still takes its end with it.
        if (line.size() == longest_text_line && (is_printable(c) || c == '\t')) break;
        if (c == '\t') line += ' ';
        ++at;
    }
    text.remove_prefix(at);
    return true;
}

bool read_raw_line(TextFile & file, std::string & line) { return read_line(file, line, take_raw_line); }
bool read_text_line(TextFile & file, std::string & line) { return read_line(file, line, take_text_line); }

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
