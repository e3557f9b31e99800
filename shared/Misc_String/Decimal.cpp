#include "shared/Misc_String/Decimal.h"

#include "shared/Misc_String/DigitWord.h"
#include "shared/Misc_String/PowerOfTen.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <system_error>

namespace
{
constexpr std::array<double, 23> exactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::array<std::uint64_t, 8> integerPowers = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};

// A scanned number: `mantissa` * 10^`exponent`. The mantissa has wrapped round when `digitCount` exceeds 19.
struct ScannedDecimal
{
    const char* digits; // behind the sign
    const char* stop;
    std::uint64_t mantissa;
    std::ptrdiff_t digitCount;
    std::int64_t exponent;
    bool negative;
};

constexpr bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// A sign is as likely as not: no branch.
double WithSign(double magnitude, bool negative)
{
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(magnitude) ^ (std::uint64_t{negative} << 63));
}

// Whether the number, known to be beyond the doubles, is so on the large side.
bool IsHuge(const ScannedDecimal& number)
{
    std::int64_t digitsBeforePoint = number.exponent + number.digitCount;
    for (const char* p = number.digits; *p == '0' || *p == '.'; ++p)
    {
        digitsBeforePoint -= *p == '0' ? 1 : 0;
    }
    return digitsBeforePoint > 0;
}

DecimalResult ConvertAnyNumber(const ScannedDecimal& number)
{
    double value = 0.0;
    DecimalVerdict verdict = DecimalVerdict::Ok;
    if (std::from_chars(number.digits, number.stop, value).ec == std::errc::result_out_of_range)
    {
        verdict = IsHuge(number) ? DecimalVerdict::Overflow : DecimalVerdict::Underflow;
        value = verdict == DecimalVerdict::Overflow ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return {WithSign(value, number.negative), number.stop, verdict};
}

// Both operands are exact, so the one operation rounds correctly.
double ScaleExactly(std::uint64_t mantissa, std::int64_t exponent)
{
    const auto value = static_cast<double>(static_cast<std::int64_t>(mantissa));
    return exponent < 0 ? value / exactPowers[static_cast<std::size_t>(-exponent)]
                        : value * exactPowers[static_cast<std::size_t>(exponent)];
}

constexpr bool IsExactPower(std::int64_t exponent)
{
    return exponent >= -22 && exponent <= 22;
}

DecimalResult ConvertLongNumber(const ScannedDecimal& number)
{
    constexpr std::uint64_t exactIntegers = std::uint64_t{1} << 53;
    const std::int64_t exponent = number.exponent;
    if (number.digitCount > 19 || exponent < -largestPowerOfTen || exponent > largestPowerOfTen)
    {
        return ConvertAnyNumber(number);
    }

    if (number.mantissa <= exactIntegers && IsExactPower(exponent))
    {
        return {WithSign(ScaleExactly(number.mantissa, exponent), number.negative), number.stop,
                DecimalVerdict::Ok};
    }
    if (number.mantissa != 0)
    {
        if (const auto value = MultiplyByPowerOfTen(number.mantissa, static_cast<int>(exponent)))
        {
            return {WithSign(*value, number.negative), number.stop, DecimalVerdict::Ok};
        }
    }
    return ConvertAnyNumber(number);
}

inline bool IsExponentLetter(const char* p, const char* last)
{
    return p < last && (*p == 'e' || *p == 'E');
}

// Takes in the exponent at `number.stop`, an exponent letter, unless it is incomplete.
inline void ReadExponent(ScannedDecimal& number, const char* last)
{
    constexpr std::int64_t limit = 100'000'000'000'000; // more digits than a text can make up for
    const char* p = number.stop + 1;
    if (p == last)
    {
        return;
    }
    const bool negative = *p == '-';
    p += static_cast<int>(negative | (*p == '+'));
    if (p == last || !IsDigit(*p))
    {
        return;
    }
    std::int64_t exponent = *p++ - '0';
    // Exponents of one and of two digits mix: the second digit goes without a branch.
    const unsigned second = p < last ? static_cast<unsigned char>(*p - '0') : 255U;
    const bool isDigit = second < 10;
    exponent = isDigit ? exponent * 10 + static_cast<int>(second) : exponent;
    p += static_cast<int>(isDigit);
    if (isDigit)
    {
        for (; p < last && IsDigit(*p); ++p)
        {
            exponent = exponent < limit ? exponent * 10 + (*p - '0') : exponent;
        }
    }
    number.exponent += negative ? -exponent : exponent;
    number.stop = p;
}

// Appends the digits at `p` to `mantissa`; eight characters before `last` are readable.
inline const char* AppendDigits(const char* p, const char* last, std::uint64_t& mantissa)
{
    for (;;)
    {
        const DigitWord word = LoadUpTo(p, last);
        const DigitWord nonDigits = MarkNonDigits(word);
        if (nonDigits == 0)
        {
            mantissa = mantissa * 100'000'000 + EightDigits(word);
            p += 8;
            continue;
        }
        const unsigned count = static_cast<unsigned>(std::countr_zero(nonDigits)) / 8;
        mantissa = mantissa * integerPowers[count] + FirstDigits(word, count);
        return p + count;
    }
}

// Goes on with a number whose sign and first eight characters, up to `p`, are read; `fraction` is behind its
// point, null when none was met.
DecimalResult ParseLongNumber(const char* first, const char* p, std::uint64_t mantissa, const char* fraction,
                              const char* last)
{
    p = AppendDigits(p, last, mantissa);
    if (fraction == nullptr && p < last && *p == '.')
    {
        fraction = p + 1;
        p = AppendDigits(fraction, last, mantissa);
    }
    const bool negative = *first == '-';
    const char* const digits = first + static_cast<int>(negative | (*first == '+'));
    const bool point = fraction != nullptr;
    ScannedDecimal number = {
        digits, p, mantissa, p - digits - static_cast<int>(point), point ? fraction - p : 0, negative};
    if (IsExponentLetter(p, last))
    {
        ReadExponent(number, last);
    }
    return ConvertLongNumber(number);
}
} // namespace

// Most numbers of a material file, point included, are shorter than eight characters. They are taken out of
// one word in one go, so that neither the number of digits nor the place of the point is a branch.
DecimalResult ParseDecimal(const char* first, const char* last) noexcept
{
    if (first == last)
    {
        return {0.0, first, DecimalVerdict::None};
    }
    const bool negative = *first == '-';
    const char* const digits = first + static_cast<int>(negative | (*first == '+'));

    const std::ptrdiff_t readable = last - digits;
    const DigitWord word =
        readable >= 8 ? LoadEight(digits) : LoadFewer(digits, static_cast<std::size_t>(readable));
    const DigitWord nonDigits = MarkNonDigits(word);
    if (nonDigits == 0)
    {
        return ParseLongNumber(first, digits + 8, EightDigits(word), nullptr, last);
    }

    const DigitWord mark = nonDigits & (~nonDigits + 1);
    const DigitWord markedByte = (mark << 1) - (mark >> 7);
    const DigitWord before = (mark >> 7) - 1;
    const bool point = ((word ^ (('.' ^ '0') * everyByte)) & markedByte) == 0;
    const DigitWord joined = ((word & before) << 8) | (word & ~before & ~markedByte);
    const DigitWord joinedWord = point ? joined : word;
    const DigitWord end = point ? nonDigits ^ mark : nonDigits;
    const int pointAt = std::countr_zero(nonDigits) / 8;
    if (end == 0)
    {
        return ParseLongNumber(first, digits + 8, EightDigits(joinedWord), digits + pointAt + 1, last);
    }

    const int length = std::countr_zero(end) / 8;
    if (length == static_cast<int>(point))
    {
        return {0.0, first, DecimalVerdict::None};
    }
    const std::uint64_t mantissa = FirstDigits(joinedWord, static_cast<unsigned>(length));
    const char* const stop = digits + length;
    const int fractionDigits = length - pointAt - static_cast<int>(point);
    if (IsExponentLetter(stop, last))
    {
        ScannedDecimal number = {digits,          stop,    mantissa, length - static_cast<int>(point),
                                 -fractionDigits, negative};
        ReadExponent(number, last);
        if (!IsExactPower(number.exponent))
        {
            return ConvertAnyNumber(number);
        }
        return {WithSign(ScaleExactly(mantissa, number.exponent), negative), number.stop, DecimalVerdict::Ok};
    }
    // A whole number is divided by one: that is quicker than to ask.
    const double value = static_cast<double>(static_cast<std::int64_t>(mantissa)) /
                         exactPowers[static_cast<std::size_t>(fractionDigits)];
    return {WithSign(value, negative), stop, DecimalVerdict::Ok};
}
