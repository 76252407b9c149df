#pragma once

#include "support/status.h"

#include <string>
#include <string_view>

// Angles as texts: decimal degrees, or degrees, minutes and seconds in fields with blanks between, and perhaps a letter of the
// hemisphere behind them.

/// Which letters stand for a hemisphere.
enum class DmsAxis {
    longitude = 1, ///< "E" and "W"
    latitude = -1  ///< "N" and "S"
};

/// The value of a text that is no angle.
inline constexpr double no_angle = -999;

/// Bad for a text that is no angle on this axis.
Status check_dms_text(std::string_view text, DmsAxis axis);
/// The angle in decimal degrees, west and south negative; -999 for a text that is blank or not numeric.
double parse_dms_text(std::string_view text, DmsAxis axis);
/// The angle as text. style: its size 1 degrees and minutes, 2 with whole seconds, 3 with the marks of minutes and seconds too,
/// 4, 5 with decimals of seconds; above 0 with a letter "E" or "W" ahead, below 0 with "N" or "S", at 0 with a sign.
std::string format_dms_text(double value, int style);
