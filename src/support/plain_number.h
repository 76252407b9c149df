#pragma once

#include <charconv>
#include <cstdint>

/// Powers of ten that a double holds exactly.
inline constexpr double exact_powers_of_ten[] = { 1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22 };

namespace plain_number {

/// A number being taken apart: its digits as one whole number (meaningful up to 19 of them) and the power of ten on it.
struct Digits {
    std::uint64_t mantissa = 0;
    std::int64_t count = 0;
    int power = 0;
};

inline bool is_digit(char c) { return static_cast<unsigned char>(c - '0') < 10; }

inline const char * take_digits(const char * at, Digits & digits)
{
    const char * const first = at;
    // One question per digit and no more: the processor has to foresee the answers for a whole line.
    for (; is_digit(*at); ++at) digits.mantissa = digits.mantissa * 10 + static_cast<unsigned>(*at - '0');
    digits.count += at - first;
    return at;
}

/// Takes "e", a sign and one to three digits; nullptr for anything else.
inline const char * take_exponent(const char * at, const char * end, Digits & digits)
{
    ++at;
    const bool negative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+')) ++at;
    Digits exponent;
    at = take_digits(at, exponent);
    if (exponent.count < 1 || exponent.count > 3) return nullptr;
    digits.power += negative ? -static_cast<int>(exponent.mantissa) : static_cast<int>(exponent.mantissa);
    return at;
}

}

/// Reads a number that begins right at `at`, and gives where it ends; nullptr when this is not a number of the everyday form or
/// one that a double cannot hold, for which `is_numeric` and `number_prefix` must be asked. The value is the nearest double. A
/// byte that is no digit must stand at `end`.
inline const char * read_plain_number(const char * at, const char * end, double & value)
{
    const bool negative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+')) ++at;
    const char * const first = at;
    plain_number::Digits digits;
    at = plain_number::take_digits(at, digits);
    if (at != end && *at == '.') {
        const char * const point = at;
        at = plain_number::take_digits(at + 1, digits);
        digits.power = -static_cast<int>(at - point - 1);
    }
    if (digits.count == 0) return nullptr;
    if (at != end && (*at | 0x20) == 'e') {
        at = plain_number::take_exponent(at, end, digits);
        if (at == nullptr) return nullptr;
    }
    // Both the digits and the power are exact here, so that one operation rounds once, to the nearest double.
    if (digits.count <= 19 && digits.mantissa <= (std::uint64_t{ 1 } << 53) && digits.power >= -22 && digits.power <= 22) {
        const auto whole = static_cast<double>(static_cast<std::int64_t>(digits.mantissa));
        value = digits.power < 0 ? whole / exact_powers_of_ten[-digits.power] : whole * exact_powers_of_ten[digits.power];
    } else if (std::from_chars(first, at, value).ec != std::errc()) {
        return nullptr;
    }
    if (negative) value = -value;
    return at;
}
