#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <optional>

// significand * 2^exponent, the highest bit of the significand set: 10^n exactly for n >= 0, otherwise less
// than one unit of the significand too small.
struct PowerOfTen
{
    std::uint64_t significand;
    int exponent;
};

// The powers whose power of five fits in 64 bits.
inline constexpr int largestPowerOfTen = 27;

constexpr PowerOfTen MakePowerOfTen(int n)
{
    std::uint64_t five = 1;
    for (int i = 0; i < (n < 0 ? -n : n); ++i)
    {
        five *= 5;
    }
    const int shift = std::countl_zero(five);
    const std::uint64_t divisor = five << shift;
    if (n >= 0)
    {
        return {divisor, n - shift};
    }

    std::uint64_t remainder = std::uint64_t{1} << 63;
    std::uint64_t quotient = 0; // of 2^127 by the divisor, which is above 2^63
    for (int bit = 0; bit < 64; ++bit)
    {
        const bool carry = (remainder >> 63) != 0;
        remainder <<= 1;
        const bool goes = carry || remainder >= divisor;
        if (goes)
        {
            remainder -= divisor;
        }
        quotient = (quotient << 1) | (goes ? 1U : 0U);
    }
    return {quotient, n + shift - 127};
}

inline constexpr auto powersOfTen = []
{
    std::array<PowerOfTen, 2 * largestPowerOfTen + 1> powers{};
    for (int n = -largestPowerOfTen; n <= largestPowerOfTen; ++n)
    {
        const int index = n + largestPowerOfTen;
        powers[static_cast<std::size_t>(index)] = MakePowerOfTen(n);
    }
    return powers;
}();

// The upper half of the 128-bit product.
constexpr std::uint64_t MultiplyHigh(std::uint64_t a, std::uint64_t b)
{
    constexpr std::uint64_t low = 0xFFFFFFFF;
    const std::uint64_t cross = (a & low) * (b >> 32);
    const std::uint64_t middle = (a >> 32) * (b & low) + (((a & low) * (b & low)) >> 32) + (cross & low);
    return (a >> 32) * (b >> 32) + (middle >> 32) + (cross >> 32);
}

// The double nearest to digits * 10^exponent, for digits > 0 and |exponent| <= largestPowerOfTen; nothing
// for the one number in some hundreds that lies too near to the middle between two doubles to tell.
constexpr std::optional<double> MultiplyByPowerOfTen(std::uint64_t digits, int exponent)
{
    const int index = exponent + largestPowerOfTen;
    const PowerOfTen& power = powersOfTen[static_cast<std::size_t>(index)];
    const int shift = std::countl_zero(digits);
    // The exact product, in units of `high`, is at least `high` and less than `high` + 2.
    const std::uint64_t high = MultiplyHigh(digits << shift, power.significand);
    const int dropped = 10 + static_cast<int>(high >> 63);
    const std::uint64_t half = std::uint64_t{1} << (dropped - 1);
    const std::uint64_t rest = high & (2 * half - 1);
    if (rest == half || rest == half - 1)
    {
        return std::nullopt;
    }
    const std::uint64_t significand = (high >> dropped) + (rest > half ? 1U : 0U);
    // The significand's bit 52 adds the 1 that is missing in the exponent, a carry to 2^53 another.
    const auto biased = static_cast<std::uint64_t>(power.exponent - shift + 64 + dropped + 52 + 1023 - 1);
    return std::bit_cast<double>((biased << 52) + significand);
}
