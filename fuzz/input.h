#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

/// One input of a fuzzed reader: bytes at its front choose how the reader is called, the rest is the text that it reads. Choices
/// of an input that has ended are 0.
struct Input {
    std::string_view text;

    unsigned take_byte()
    {
        if (text.empty()) return 0;
        const auto byte = static_cast<unsigned char>(text.front());
        text.remove_prefix(1);
        return byte;
    }
    /// A number from `least` on, `count` of them.
    std::int32_t take_number(std::int32_t least, std::int32_t count)
    {
        return least + static_cast<std::int32_t>(take_byte()) % count;
    }
    /// The text up to a mark, which goes with it; all of it when there is none.
    std::string_view take_to(char mark)
    {
        const std::string_view taken = text.substr(0, text.find(mark));
        text.remove_prefix(std::min(taken.size() + 1, text.size()));
        return taken;
    }
    bool take_flag() { return take_byte() % 2 == 1; }
};
