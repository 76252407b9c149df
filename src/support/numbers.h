#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// A number at the head of a text and how many characters, leading blanks included, it took. length 0: no number.
struct NumberPrefix {
    double value = 0;
    std::size_t length = 0;
};

/// The longest numeric prefix: blanks, a sign, digits with at most one point, and an exponent that has digits.
/// Fails with an `OverflowFault` when the number is beyond a double; one too small for a double is 0.
NumberPrefix number_prefix(std::string_view text);

/// The leading-number rule: the value of the longest numeric prefix, 0 if there is none. Never looks at the locale.
double leading_number(std::string_view text);

/// True when the whole text, blanks around it aside, is one finite number. A blank text is not.
bool is_numeric(std::string_view text);

/// The nearest whole number, halves to the even neighbour. Fails with an `OverflowFault` outside 32 bits and for NaN.
std::int32_t round_to_count(double value);

/// The leading number of a text as a count, rounded as `round_to_count` does.
std::int32_t leading_count(std::string_view text);

/// A double as the nearest float. Fails with an `OverflowFault` when its size is beyond the largest float.
float to_f32(double value);

/// Adds, or multiplies, counts. Fail with an `OverflowFault` outside 32 bits.
std::int32_t add_counts(std::int32_t a, std::int32_t b);
std::int32_t multiply_counts(std::int32_t a, std::int32_t b);

/// The signed root that tames large values: x itself up to a size of 1, beyond it the root of the size with x's sign.
double compress_value(double x);

/// General number text: the shortest decimal text with at most 15 (double) or 7 (float) significant digits.
/// Exponent form ("1E-05", "1.5E+15") from the decimal exponent -5 down, and from 15 (double) or 7 (float) up.
std::string general_text(double value);
std::string general_text(float value);
std::string general_text(std::int32_t value);

/// General text with the sign's place in front and no zero before the point: " .02", "-1.5", " 3".
std::string str_text(double value);
std::string str_text(float value);
