#include "support/bulk_format.h"

#include "support/pattern.h"
#include "support/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

/// "00" to "99", one after the other.
constexpr auto two_digits = [] {
    std::array<char, 200> digits = {};
    for (std::size_t i = 0; i < 100; ++i) {
        digits[2 * i] = static_cast<char>('0' + i / 10);
        digits[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return digits;
}();

const char * pair_of(std::uint64_t number) { return two_digits.data() + 2 * number; }

char * put_text(char * at, const std::string & text) { return std::copy(text.begin(), text.end(), at); }

// Both forms round the value's decimal text of 15 significant digits, half away from zero. A value a little below a half is
// a half in that text when it lies within half a unit of the 15th digit of it; so the place where rounding turns is that much
// below the half. Values too near to that place are left to the exact way.

// Fixed form: the value times ten to the number of decimals, as a double and what the double leaves out.

constexpr std::array<double, 10> power_of_ten = { 1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9 };
constexpr double largest_scaled = 1e14; // up to here a half is within the 15 digits

/// Half a unit of the 15th digit of a number with so many digits in front of its point.
constexpr std::array<double, 15> half_unit = { 0.5e-15, 0.5e-14, 0.5e-13, 0.5e-12, 0.5e-11, 0.5e-10, 0.5e-9, 0.5e-8,
                                               0.5e-7,  0.5e-6,  0.5e-5,  0.5e-4,  0.5e-3,  0.5e-2,  0.5e-1 };

std::size_t digit_count(std::int64_t number)
{
    std::size_t count = 0;
    for (; number > 0; number /= 10) ++count;
    return count;
}

/// size: at least 0. False when the exact way must decide.
bool scale_and_round(double size, int decimals, std::int64_t & rounded)
{
    const double power = power_of_ten[static_cast<std::size_t>(decimals)];
    const double scaled = size * power;
    if (!(scaled < largest_scaled)) return false;
    rounded = static_cast<std::int64_t>(scaled);
    const double above_half = scaled - static_cast<double>(rounded) - 0.5;
    // The double's own error and the 15th digit are both below this part of the number.
    if (std::abs(above_half) > scaled * 1e-14) {
        rounded += above_half > 0;
        return true;
    }
    const double exact = above_half + std::fma(size, power, -scaled);
    const double turn = half_unit[digit_count(rounded)];
    if (std::abs(exact + turn) <= turn * 1e-9) return false;
    rounded += exact + turn > 0;
    return true;
}

/// Writes the digits of a number backwards from `end`, at least `least` of them, and gives where they start.
char * put_digits_before(char * end, std::uint64_t number, int least)
{
    char * at = end;
    for (; number >= 100; number /= 100) std::memcpy(at -= 2, pair_of(number % 100), 2);
    if (number >= 10)
        std::memcpy(at -= 2, pair_of(number), 2);
    else if (number > 0)
        *--at = static_cast<char>('0' + number);
    while (end - at < least) *--at = '0';
    return at;
}

/// Writes sign, digits and point backwards from `end`; a null pointer when the exact way must do it. Needs 18 characters.
char * put_fixed_before(char * end, double value, int decimals)
{
    std::int64_t rounded = 0;
    if (!scale_and_round(std::abs(value), decimals, rounded)) return nullptr;
    const auto number = static_cast<std::uint64_t>(rounded);
    char * at = end;
    if (decimals == 0) {
        at = put_digits_before(at, number, 1);
    } else {
        const auto power = static_cast<std::uint64_t>(power_of_ten[static_cast<std::size_t>(decimals)]);
        at = put_digits_before(at, number % power, decimals);
        *--at = '.';
        at = put_digits_before(at, number / power, 1);
    }
    if (value < 0) *--at = '-';
    return at;
}

std::string exact_fixed(double value, int decimals) { return format_fixed(value, decimals, false); }

// Exponent form: for each of the 255 binary exponents of a float a 64-bit factor that turns the 24-bit mantissa into the six
// digits and a binary fraction behind them.

/// A whole number of 256 bits, the lowest part first; only as much arithmetic as the table needs.
struct Wide {
    std::array<std::uint32_t, 8> parts = {};

    void times_ten()
    {
        std::uint64_t carry = 0;
        for (std::uint32_t & part : parts) {
            carry += std::uint64_t{ part } * 10;
            part = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
    }
    void tenth()
    {
        std::uint64_t rest = 0;
        for (std::size_t i = parts.size(); i-- > 0;) {
            rest = (rest << 32) | parts[i];
            parts[i] = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
    }
    /// The number times two to the power `shift`, cut to a whole number; it must fit.
    std::uint64_t shifted(int shift) const
    {
        std::uint64_t result = 0;
        for (int bit = 0; bit < 64; ++bit) {
            const int from = bit - shift;
            if (from < 0 || from >= 256) continue;
            const std::uint64_t set = (parts[static_cast<std::size_t>(from / 32)] >> (from % 32)) & 1U;
            result |= set << bit;
        }
        return result;
    }
};

constexpr int first_power = -45; // of ten, below the smallest float
constexpr int last_power = 38;
constexpr int significant = 5;    // decimals behind the first digit
constexpr int factor_shift = 67;  // bits by which a factor is enlarged
constexpr int fraction_bits = 35; // what is left of them behind the point
constexpr int inverse_bits = 200; // by which a negative power of ten is enlarged
constexpr std::uint64_t one_in_fraction = std::uint64_t{ 1 } << fraction_bits;

/// Ten to the powers by which values from 1E-45 to 9E+38 become six digits.
struct Powers {
    std::array<Wide, significant - first_power + 1> up = {};  // 0, 1, 2 ...
    std::array<Wide, last_power - significant + 1> down = {}; // 0, -1, -2 ... enlarged by `inverse_bits`

    Powers()
    {
        up[0].parts[0] = 1;
        for (std::size_t i = 1; i < up.size(); ++i) (up[i] = up[i - 1]).times_ten();
        down[0].parts[inverse_bits / 32] = 1U << (inverse_bits % 32);
        for (std::size_t i = 1; i < down.size(); ++i) (down[i] = down[i - 1]).tenth();
    }
    std::uint64_t factor(int decimal_exponent, int binary_exponent) const
    {
        const int power = significant - decimal_exponent;
        if (power >= 0) return up[static_cast<std::size_t>(power)].shifted(binary_exponent + factor_shift);
        return down[static_cast<std::size_t>(-power)].shifted(binary_exponent + factor_shift - inverse_bits);
    }
};

/// The floats of one binary exponent: those below ten to the power `exponent` + 1, and those from there up.
struct Binade {
    std::array<std::uint64_t, 2> factors = {};
    int exponent = 0;
};

std::array<Binade, 255> make_binades()
{
    const Powers powers;
    std::array<Binade, 255> binades = {};
    for (int biased = 1; biased < 255; ++biased) {
        const int binary_exponent = biased - 150; // of the mantissa's lowest bit
        Binade & binade = binades[static_cast<std::size_t>(biased)];
        binade.exponent = static_cast<int>(std::floor((binary_exponent + 23) * 0.30102999566398120));
        binade.factors[0] = powers.factor(binade.exponent, binary_exponent);
        if (binade.exponent < last_power) binade.factors[1] = powers.factor(binade.exponent + 1, binary_exponent);
    }
    return binades;
}

/// The mantissa times the factor, with `fraction_bits` bits behind the point, at most two units too small.
std::uint64_t scaled_mantissa(std::uint64_t mantissa, std::uint64_t factor)
{
    return mantissa * (factor >> 32) + ((mantissa * (factor & 0xFFFFFFFFU)) >> 32);
}

/// number: six digits.
char * put_six_digits(char * at, std::uint32_t number, int exponent)
{
    const char * const head = pair_of(number / 10000);
    at[0] = head[0];
    at[1] = '.';
    at[2] = head[1];
    std::memcpy(at + 3, pair_of(number / 100 % 100), 2);
    std::memcpy(at + 5, pair_of(number % 100), 2);
    at[7] = 'E';
    at[8] = exponent < 0 ? '-' : '+';
    std::memcpy(at + 9, pair_of(static_cast<std::uint64_t>(std::abs(exponent))), 2);
    return at + 11;
}

}

char * put_fixed(char * at, double value, int decimals)
{
    char text[32];
    char * const end = text + sizeof text;
    const char * const start = put_fixed_before(end, value, decimals);
    return start != nullptr ? std::copy<const char *>(start, end, at) : put_text(at, exact_fixed(value, decimals));
}

char * put_field(char * at, double value)
{
    char text[32];
    std::memset(text, ' ', sizeof text);
    char * const end = text + sizeof text;
    const char * const start = put_fixed_before(end, value, 4);
    if (start != nullptr)
        std::memcpy(at, std::min<const char *>(start, end - field_width), field_width);
    else
        put_text(at, pad_left(exact_fixed(value, 4), static_cast<int>(field_width)));
    return at + field_width;
}

char * put_exponent(char * at, float value)
{
    static const std::array<Binade, 255> binades = make_binades();
    constexpr std::uint64_t turn = one_in_fraction / 2 - one_in_fraction / 2'000'000'000;
    const auto bits = std::bit_cast<std::uint32_t>(value);
    const std::uint32_t biased = (bits >> 23) & 0xFFU;
    if (value == 0) return std::copy_n("0.00000E+00", 11, at);
    if (biased == 0 || biased == 255) return put_text(at, format_number(static_cast<double>(value), "0.00000E+00"));

    const Binade & binade = binades[biased];
    const std::uint64_t mantissa = (bits & 0x7FFFFFU) | 0x800000U;
    // Chosen without a branch, which would be guessed wrong for one value in three.
    const bool above = scaled_mantissa(mantissa, binade.factors[0]) >= 1'000'000 * one_in_fraction;
    const std::uint64_t scaled = scaled_mantissa(mantissa, binade.factors[above]);
    int exponent = binade.exponent + above;
    const std::uint64_t fraction = scaled & (one_in_fraction - 1);
    if (fraction - (turn - 4) <= 8) return put_text(at, format_number(static_cast<double>(value), "0.00000E+00"));
    auto number = static_cast<std::uint32_t>(scaled >> fraction_bits) + (fraction > turn ? 1U : 0U);
    if (number == 1'000'000) {
        number = 100'000;
        ++exponent;
    }
    *at = '-';
    return put_six_digits(at + (bits >> 31), number, exponent);
}
