#pragma once

#include <cstddef>

// The number forms of files with millions of numbers, written in place. Each gives the same characters as `format_number` with
// its pattern, for every value, and many times faster. All return the end of what they wrote, write no NUL, and fail with an
// `OverflowFault` for a value that is not finite.

/// The most that `put_fixed` writes: a sign, 309 digits, the point and 9 decimals.
inline constexpr std::size_t longest_fixed = 320;
/// The most that `put_exponent` writes.
inline constexpr std::size_t longest_exponent = 12;
/// What `put_field` writes.
inline constexpr std::size_t field_width = 14;

/// The form "0" or, with `decimals` zeros behind the point, "0.000". decimals: 0 to 9.
char * put_fixed(char * at, double value, int decimals);

/// A field of the data files: the form "0.0000" with blanks in front to 14 characters. A longer text keeps its first 14.
char * put_field(char * at, double value);

/// A value of a model file: the form "0.00000E+00".
char * put_exponent(char * at, float value);
