#pragma once

#include "shared/Misc_String/ExactPowers.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

enum class DecimalVerdict
{
    None, // the text does not begin with a decimal number
    Ok,
    Overflow, // the number is beyond the largest double
    Underflow // the number is not zero but nearer to zero than to the smallest double
};

struct DecimalResult
{
    double value = 0.0;         // infinite after Overflow, zero after Underflow and None, with the sign
    const char* stop = nullptr; // behind the last character of the number; the beginning after None
    DecimalVerdict verdict = DecimalVerdict::None;
};

// Reads the decimal number at the beginning of [first, last): a sign or none, digits with or without a
// point among them, at either end too, and an exponent (e or E, a sign or none, digits) if it is complete.
// No blanks before it; no hexadecimal, infinity or NaN. The value is the double nearest to the number, of
// two equally near ones the even one, in every locale; it takes the default rounding mode. Denormal numbers
// are Ok. Nothing is thrown or allocated.
[[nodiscard]] DecimalResult ParseDecimal(const char* first, const char* last) noexcept;

[[nodiscard]] inline DecimalResult ParseDecimal(std::string_view text) noexcept
{
    return ParseDecimal(text.data(), text.data() + text.size());
}

// A number without a sign, for loops over many.
struct UnsignedDecimal
{
    double value;
    const char* stop; // null where ParseDecimal's verdict would not be Ok
};

// Reads the decimal number that begins with the digit at `first`, in a text that ends with NUL and seven more
// bytes that can be read. The same value as ParseDecimal's.
[[nodiscard]] inline UnsignedDecimal ParseUnsignedDecimal(const char* first) noexcept;

namespace decimal
{
// Its value, or more than 9.
constexpr unsigned DigitOf(char c)
{
    return static_cast<unsigned char>(c) - unsigned{'0'};
}

constexpr bool IsDigit(char c)
{
    return DigitOf(c) < 10;
}

constexpr bool IsSign(char c)
{
    return c == '-' || c == '+';
}

constexpr bool IsExponentLetter(char c)
{
    return c == 'e' || c == 'E';
}

// Appends the digits at `p`. Behind the last one.
inline const char* TakeDigits(const char* p, std::uint64_t& number) noexcept
{
    for (unsigned digit = DigitOf(*p); digit < 10; digit = DigitOf(*++p))
    {
        number = number * 10 + digit;
    }
    return p;
}

// The same eight at a time, while there are so many; eight bytes at `p` must be readable.
inline const char* TakeEightDigits(const char* p, std::uint64_t& number) noexcept
{
    static_assert(std::endian::native == std::endian::little,
                  "the first character must load as the lowest byte");
    constexpr std::uint64_t everyByte = 0x0101010101010101;
    constexpr std::uint64_t pairs = 0x000000FF000000FF;
    for (; IsDigit(p[7]); p += 8) // the last one tells most numbers from long ones
    {
        std::uint64_t word;
        std::memcpy(&word, p, sizeof word);
        word ^= '0' * everyByte;
        if ((((word + 0x76 * everyByte) | word) & 0x80 * everyByte) != 0)
        {
            break;
        }
        word = word * 10 + (word >> 8);
        word = (word & pairs) * (100 + (std::uint64_t{1000000} << 32)) +
               ((word >> 16) & pairs) * (1 + (std::uint64_t{10000} << 32));
        number = number * 100'000'000 + (word >> 32);
    }
    return p;
}

// Adds the exponent whose letter is at `p`, if it is complete. Behind it, or `p`.
inline const char* TakeExponent(const char* p, std::int64_t& exponent) noexcept
{
    constexpr std::ptrdiff_t mostDigits = 9;
    constexpr std::uint64_t beyondAll = 1'000'000'000;
    const char* const digits = p + (IsSign(p[1]) ? 2 : 1);
    std::uint64_t magnitude = 0;
    const char* const stop = TakeDigits(digits, magnitude);
    if (stop == digits)
    {
        return p;
    }
    const auto added = static_cast<std::int64_t>(stop - digits > mostDigits ? beyondAll : magnitude);
    exponent += p[1] == '-' ? -added : added;
    return stop;
}

// `digitCount` digits, `mantissa` * 10^`exponent` if they fit into 64 bits, written from `first` to `stop`.
[[nodiscard]] UnsignedDecimal Convert(const char* first, const char* stop, std::uint64_t mantissa,
                                      std::int64_t exponent, std::ptrdiff_t digitCount) noexcept;
} // namespace decimal

// Most numbers have few digits and a small exponent: both operands are exact, so the one operation rounds
// correctly.
inline UnsignedDecimal ParseUnsignedDecimal(const char* first) noexcept
{
    constexpr std::ptrdiff_t exactDigits = 15; // of any number that a double holds
    constexpr std::int64_t largestPower = exactPowersOfTen.size() - 1;
    std::uint64_t mantissa = decimal::DigitOf(*first);
    const char* p = decimal::TakeDigits(first + 1, mantissa);
    std::ptrdiff_t digitCount = p - first;
    std::int64_t exponent = 0;
    if (*p == '.') [[likely]]
    {
        const char* const fraction = p + 1;
        p = decimal::TakeDigits(decimal::TakeEightDigits(fraction, mantissa), mantissa);
        exponent = fraction - p;
        digitCount -= exponent;
    }
    const auto number = static_cast<double>(static_cast<std::int64_t>(mantissa));
    if (!decimal::IsExponentLetter(*p))
    {
        if (digitCount <= exactDigits)
        {
            return {number / exactPowersOfTen[static_cast<std::size_t>(-exponent)], p};
        }
        return decimal::Convert(first, p, mantissa, exponent, digitCount);
    }
    p = decimal::TakeExponent(p, exponent);
    if (digitCount > exactDigits || exponent < -largestPower || exponent > largestPower)
    {
        return decimal::Convert(first, p, mantissa, exponent, digitCount);
    }
    return {exponent < 0 ? number / exactPowersOfTen[static_cast<std::size_t>(-exponent)]
                         : number * exactPowersOfTen[static_cast<std::size_t>(exponent)],
            p};
}
