#pragma once

#include "data/line_scanner.h"

#include <cstdint>
#include <string_view>

/// True for a line that is nothing to the reader of locations.
inline bool is_skipped(std::string_view line) { return line.starts_with('\\') || line.starts_with('!'); }

/// The line of the next record. Every line but a skipped one counts towards the increment, a blank one too, but a record is never
/// blank. False at the end of the text, even with a line in hand that has not been counted out. see: is shown each line that
/// counts.
template <class See>
bool next_record(LineScanner & lines, std::int32_t read_increment, std::string_view & line, const See & see)
{
    line = {};
    for (std::int32_t count = 0; line.empty() || count < read_increment;) {
        if (!lines.next(line)) return false;
        if (is_skipped(line)) {
            line = {};
        } else {
            see(line);
            ++count;
        }
    }
    return true;
}

inline bool next_record(LineScanner & lines, std::int32_t read_increment, std::string_view & line)
{
    return next_record(lines, read_increment, line, [](std::string_view) {});
}
