#include "shared/Misc_String/CompareNatural.h"

#include "shared/Misc_String/CodePage.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace
{
using Byte = unsigned char;

constexpr std::string_view printableBelowLetters = R"(_-+.0123456789 !"#$%&'()*,/:;<=>?@[\]^`{|}~)";
static_assert(printableBelowLetters.size() == 95 - 2 * 26);

constexpr std::array<Byte, 256> MakeWeights()
{
    std::array<Byte, 256> weights{};
    for (std::size_t code = 0; code < weights.size(); ++code)
    {
        weights[code] = static_cast<Byte>(code);
    }
    Byte weight = ' ';
    for (const char c : printableBelowLetters)
    {
        weights[static_cast<Byte>(c)] = weight++;
    }
    for (std::size_t letter = 0; letter < 26; ++letter, ++weight)
    {
        weights['A' + letter] = weights['a' + letter] = weight;
    }
    return weights;
}

constexpr std::array<Byte, 256> weights = MakeWeights();

constexpr bool IsDigit(Byte c)
{
    return c >= '0' && c <= '9';
}

int CompareWeights(Byte a, Byte b)
{
    return static_cast<int>(weights[a] > weights[b]) - static_cast<int>(weights[a] < weights[b]);
}

// The numbers that `a` and `b` begin with; a text without one is below every number.
int CompareNumbers(const Byte* a, const Byte* b)
{
    const Byte* const beginA = a;
    const Byte* const beginB = b;
    while (*a == '0')
    {
        ++a;
    }
    while (*b == '0')
    {
        ++b;
    }
    int firstDifference = 0;
    for (; IsDigit(*a) && IsDigit(*b); ++a, ++b)
    {
        if (firstDifference == 0)
        {
            firstDifference = CompareWeights(*a, *b);
        }
    }
    if (IsDigit(*a) || IsDigit(*b))
    {
        return IsDigit(*a) ? 1 : -1;
    }
    if (firstDifference != 0)
    {
        return firstDifference;
    }
    const std::ptrdiff_t moreZeros = (a - beginA) - (b - beginB);
    return static_cast<int>(moreZeros > 0) - static_cast<int>(moreZeros < 0);
}

// The first difference, where neither text has a digit.
int CompareCharacters(const Byte* a, const Byte* b)
{
    const bool differInTrailDigit = a[0] != 0 && b[0] != 0 && IsDoubleByte(a[0], a[1]) &&
                                    IsDoubleByte(b[0], b[1]) && IsDigit(a[1]) != IsDigit(b[1]);
    return differInTrailDigit ? CompareWeights(a[1], b[1]) : CompareWeights(*a, *b);
}
} // namespace

int CompareNatural(const char* first, const char* second)
{
    auto a = reinterpret_cast<const Byte*>(first);
    auto b = reinterpret_cast<const Byte*>(second);
    std::size_t sharedDigits = 0;
    bool negative = false;
    for (; weights[*a] == weights[*b]; ++a, ++b)
    {
        if (*a == 0)
        {
            return 0;
        }
        if (IsDigit(*a))
        {
            ++sharedDigits;
            continue;
        }
        sharedDigits = 0;
        negative = *a == '-';
        // Both have the same lead byte; a text that ends there differs in the byte after it.
        if (*a >= 0x80 && IsDoubleByte(a[0], a[1]))
        {
            ++a;
            ++b;
            if (weights[*a] != weights[*b])
            {
                return CompareWeights(*a, *b);
            }
        }
    }
    if (!IsDigit(*a) && !IsDigit(*b))
    {
        return CompareCharacters(a, b);
    }
    const int order = CompareNumbers(a - sharedDigits, b - sharedDigits);
    return negative ? -order : order;
}
