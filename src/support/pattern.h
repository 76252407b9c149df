#pragma once

#include <string>
#include <string_view>

/// A number rendered by a pattern of the file formats.
///
/// pattern: text that stands as it is, around one number form made of "0" (a digit), "#" (a digit only when needed), "."
/// and, for exponent form, "E+00" behind it ("E" without a sign is a letter). Two parts with ";" between: the second is
/// for negative values and gets their size. With one part a negative value gets "-", which takes the place of a
/// leading blank of the pattern.
///
/// The value's decimal text of 15 significant digits is rounded half away from zero. A float is widened first by
/// the caller's conversion. A negative value that rounds to zero keeps its sign.
/// Fails with an `OverflowFault` for a value that is not finite.
std::string format_number(double value, std::string_view pattern);

/// "0" or "0." and `decimals` zeros as the pattern. strip: trailing zeros go, and a text ending in "." gets one 0 back.
std::string format_fixed(double value, int decimals, bool strip);

/// The pattern that shows a value of this size in about `width` digits. Fails with an `OverflowFault` for a value that is not
/// finite.
std::string format_pattern_for_value(double value, int width);

/// The pattern that suits the size of x: more decimals for small values, exponent form below 0.0001.
std::string format_pattern_for_magnitude(double x);
