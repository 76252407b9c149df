#pragma once

#include "support/plain_number.h"

#include <bit>
#include <cstdint>
#include <cstring>

/// What may be looked at from the start of a number on.
inline constexpr std::ptrdiff_t usual_number_reach = 16;

namespace usual_number {

static_assert(std::endian::native == std::endian::little, "digits are taken as the bytes of a whole number");

/// Eight bytes as digits: 0 to 9 in each byte that is one.
inline std::uint64_t eight_digits(const char * at)
{
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes ^ 0x3030303030303030U;
}

/// How many of the first bytes are digits; 8 at most.
inline int digit_count(std::uint64_t digits)
{
    const std::uint64_t others = ((digits + 0x7676767676767676U) | digits) & 0x8080808080808080U;
    return std::countr_zero(others) / 8;
}

/// The whole number of the first `count` digits.
template <int count>
std::uint64_t number_of(std::uint64_t digits)
{
    digits <<= 64 - 8 * count; // zeros in front
    digits = digits * 10 + (digits >> 8);
    const std::uint64_t odd = (digits & 0x000000FF000000FFU) * 0x000F424000000064U;
    const std::uint64_t even = ((digits >> 16) & 0x000000FF000000FFU) * 0x0000271000000001U;
    return ((odd + even) >> 32) & 0xFFFFFFFFU;
}

struct Decimal {
    std::uint64_t mantissa = 0;
    int power = 0;
};

template <int count>
const char * take_decimals(const char * at, std::uint64_t digits, Decimal & decimal)
{
    constexpr std::uint64_t powers[] = { 1, 10, 100, 1000, 10000, 100000, 1000000, 10000000 };
    decimal.mantissa = decimal.mantissa * powers[count] + number_of<count>(digits);
    decimal.power = -count;
    return at + count;
}

inline const char * take_decimals(const char * at, Decimal & decimal)
{
    const std::uint64_t digits = eight_digits(at);
    switch (digit_count(digits)) {
    case 1:
        return take_decimals<1>(at, digits, decimal);
    case 2:
        return take_decimals<2>(at, digits, decimal);
    case 3:
        return take_decimals<3>(at, digits, decimal);
    case 4:
        return take_decimals<4>(at, digits, decimal);
    case 5:
        return take_decimals<5>(at, digits, decimal);
    case 6:
        return take_decimals<6>(at, digits, decimal);
    case 7:
        return take_decimals<7>(at, digits, decimal);
    default:
        return nullptr;
    }
}

/// Takes "E", a sign and two digits; nullptr for anything else.
inline const char * take_exponent(const char * at, Decimal & decimal)
{
    using plain_number::is_digit;
    const bool negative = at[1] == '-';
    if ((!negative && at[1] != '+') || !is_digit(at[2]) || !is_digit(at[3]) || is_digit(at[4])) return nullptr;
    const int exponent = (at[2] - '0') * 10 + (at[3] - '0');
    decimal.power += negative ? -exponent : exponent;
    return at + 4;
}

}

/// Reads a number as most model files have them: one digit, a point, one to seven decimals, and an exponent of a sign and two
/// digits or none, "-1.23457E-03" or "0.0001". Gives where it ends, or nullptr for any other, which `read_plain_number` must be
/// asked for. The value is the nearest double as a float, the same as there.
///
/// The number of decimals decides which code is run and is no operand in it. So the processor, which foresees the one, need not
/// wait for the end of a number to begin with the next.
inline const char * read_usual_number(const char * at, float & value)
{
    usual_number::Decimal decimal;
    const auto negative = static_cast<std::uint32_t>(*at == '-');
    at += negative;
    if (!plain_number::is_digit(*at) || at[1] != '.') return nullptr;
    decimal.mantissa = static_cast<std::uint64_t>(*at - '0');
    at = usual_number::take_decimals(at + 2, decimal);
    if (at != nullptr && (*at | 0x20) == 'e') at = usual_number::take_exponent(at, decimal);
    // Both the digits and the power are exact here, so that one operation rounds once, to the nearest double.
    if (at == nullptr || decimal.power < -22 || decimal.power > 22) return nullptr;
    const auto whole = static_cast<double>(static_cast<std::int64_t>(decimal.mantissa));
    const double size =
        decimal.power < 0 ? whole / exact_powers_of_ten[-decimal.power] : whole * exact_powers_of_ten[decimal.power];
    // Put on without a branch: signs can follow each other in no order.
    value = std::bit_cast<float>(std::bit_cast<std::uint32_t>(static_cast<float>(size)) | (negative << 31));
    return at;
}
