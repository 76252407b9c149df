#include "support/text_file.h"

#include "support/text.h"

#include <cstdint>
#include <cstring>

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
    for (;;) {
        const std::size_t kept = printable_count(rest.substr(at, longest_text_line - line.size()));
        line.append(rest, at, kept);
        at += kept;
        if (at == rest.size()) break;
        const char c = rest[at];
        if (c == '\n' || c == '\r') {
            at += rest.substr(at).starts_with("\r\n") ? 2 : 1;
            break;
        }
        // What does not fit is left for the next line; a line of just the longest length still takes its end with it.
        if (line.size() == longest_text_line && (is_printable(c) || c == '\t')) break;
        if (c == '\t') line += ' ';
        ++at;
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
