#pragma once

/// The mark of a number that has not been set; some fields hold -1e30 instead.
inline constexpr double missing_value = -1e32;
inline constexpr float missing_value_f32 = -1e32F;
inline constexpr double missing_limit = -1e30;

/// True for any value at or below -1e30, the one test for a missing number. NaN is missing too.
inline bool is_missing(double value) { return !(value > missing_limit); }

/// True for a 32-bit value that is missing. Compared as the float it is, so that a stored -1e30 counts.
inline bool is_missing(float value) { return !(value > static_cast<float>(missing_limit)); }
