#pragma once

#include "definition/definition.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// The table of a definition file, walked by its reader and its writer.

/// One value on a line and the field it lives in.
///
/// pattern: of a number, or "str" or "general" for its plain text with and without a sign's place; of a text, "" as it is,
/// "trimmed", or "path", which some write with "/". A text takes the whole rest of its line.
struct Value {
    const char * pattern;
    std::variant<std::int32_t *, float *, double *, std::string *> target;
    bool (*taken_when)(std::string_view rest) = nullptr; ///< otherwise the field keeps what it held
};

/// What the reader makes of a line whose values are not one per field. version: the file's.
using TakeValues = void (*)(InversionDefinition & record, std::string_view rest, int version);

/// One line. The reader asks for `take` first, then the values; the writer knows only the values.
struct Line {
    const char * label; ///< as written, blanks included; the reader compares it without colon and blanks
    std::vector<Value> values;
    const char * tail = "";                                             ///< words behind the values, for the eye alone
    void (*repair)(InversionDefinition & record) = nullptr;             ///< what the reader mends after taking the values
    TakeValues take = nullptr;                                          ///< takes the place of `values` in the reader
    bool (*written_when)(const InversionDefinition & record) = nullptr; ///< null: always
};

/// The lines in the order of writing, bound to the fields of `record`.
std::vector<Line> lines_of(InversionDefinition & record);

/// Headings of the sections behind the lines, each alone on its line.
inline constexpr const char * transform_heading = "[Coordinate transform]";
inline constexpr const char * comments_heading = "[Comments]";
