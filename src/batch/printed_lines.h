#pragma once

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

/// What a command says of a file.
using PrintedLines = std::vector<std::pair<const char *, std::string>>;

/// On standard output, one "name: value" a line.
inline void print(const PrintedLines & lines)
{
    for (const auto & [name, value] : lines) std::printf("%s: %s\n", name, value.c_str());
}
