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

/// Bad for a text that is no angle on this axis: at most three numbers, the degrees within 180 of 0 on either axis, the minutes
/// from 0 to 59, the seconds from 0 to below 60, and at the end perhaps a letter of the axis in either case.
Status check_dms_text(std::string_view text, DmsAxis axis);
/// The angle in decimal degrees, west and south negative; -999 for a text that is blank or not numeric. The range is not looked
/// at. A minus and a letter of the west or the south together cancel.
double parse_dms_text(std::string_view text, DmsAxis axis);
/// The angle as text: the degrees in four places, minutes and seconds in two, right-aligned, with blanks between.
///
/// style: its size is 1 for degrees and minutes, 2 with whole seconds, 3, 4 and 5 with seconds of that many decimals, 3 with the
/// marks of minutes and seconds too. Above 0 a letter "E" or "W" stands ahead, below 0 "N" or "S". At 0 a negative angle has a
/// "-" before its first digit, and the seconds have three decimals and no marks: only this form is one that `parse_dms_text`
/// reads.
std::string format_dms_text(double value, int style);
