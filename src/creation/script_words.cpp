#include "creation/script_words.h"

#include <algorithm>

namespace {

bool is_beyond_ascii(char c) { return static_cast<unsigned char>(c) >= 0x80; }

}

std::string script_word(const std::string & name)
{
    std::string word;
    for (const char c : name) word += c == '%' ? "%%" : std::string(1, c);
    const bool plain = name.find_first_of(" \t&()^=;,<>|") == name.npos || name.starts_with('"');
    return plain ? word : "\"" + word + "\"";
}

void write_script(const std::string & path, const Lines & lines)
{
    const bool odd =
        std::ranges::any_of(lines, [](const std::string & line) { return std::ranges::any_of(line, is_beyond_ascii); });
    Lines script;
    if (odd) script.push_back("@chcp 65001 > nul"); // UTF-8
    append(script, lines);
    write_lines(path, script);
}
