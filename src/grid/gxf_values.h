#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// How the values of a GXF grid are written.
struct GxfValues {
    std::int32_t packed_size = 0; ///< characters of a packed value; 0 for plain numbers
    double scale = 1, offset = 0; ///< value = written * scale + offset
    std::string dummy;            ///< the text of a missing value; empty for none
};

/// Reads `row.size()` values from the head of `text` and takes them off; missing ones are -1e32.
/// Fails with a `Fault` when the text ends before, or holds something else.
void read_gxf_values(const GxfValues & form, std::string_view & text, std::span<double> row);
