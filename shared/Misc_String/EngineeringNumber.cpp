#include "shared/Misc_String/EngineeringNumber.h"

#include "shared/MessageManager/FatalError.h"
#include "shared/Misc_String/CodePage.h"
#include "shared/Misc_String/Decimal.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace
{
constexpr std::size_t textLimit = 328;

constexpr bool IsKept(char c)
{
    return c > ' ' && static_cast<unsigned char>(c) < 0x80;
}

constexpr bool BeginsNumber(char c)
{
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.';
}

bool StoreScaled(const DecimalResult& number, const char* last, double* out)
{
    *out = number.stop == last ? number.value : number.value * ScaleOfSuffix(*number.stop);
    return true;
}

// A text that nothing has to be removed from, as far as the number and its suffix go.
bool ParseCleanText(std::string_view text, double* out)
{
    const char* const last = text.data() + text.size();
    const char* const begin = std::find_if(text.data(), last, BeginsNumber);
    // Not one that is the second byte of a character.
    if (std::any_of(text.data(), begin, [](char c) { return static_cast<unsigned char>(c) >= 0x80; }))
    {
        return false;
    }
    const DecimalResult number = ParseDecimal(begin, last);
    if (number.verdict != DecimalVerdict::Ok)
    {
        return false;
    }
    // An exponent letter left over may belong to an exponent with a blank in it.
    if (number.stop != last && (!IsKept(*number.stop) || *number.stop == 'e' || *number.stop == 'E'))
    {
        return false;
    }
    return StoreScaled(number, last, out);
}

bool ParseAnyText(std::string_view text, double* out)
{
    std::array<char, textLimit> kept{};
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (IsKept(text[i]))
        {
            kept[count++] = text[i];
        }
        else if (i + 1 < text.size() &&
                 IsDoubleByte(static_cast<unsigned char>(text[i]), static_cast<unsigned char>(text[i + 1])))
        {
            ++i;
        }
    }
    const char* const last = kept.data() + count;
    const char* const begin = std::find_if(kept.data(), kept.data() + count, BeginsNumber);
    const DecimalResult number = ParseDecimal(begin, last);
    return number.verdict == DecimalVerdict::Ok && StoreScaled(number, last, out);
}
} // namespace

bool ParseEngineeringNumber(std::string_view text, double* out)
{
    *out = 0.0;
    text = text.substr(0, textLimit);
    return ParseCleanText(text, out) || ParseAnyText(text, out);
}

bool ParseEngineeringNumber(const char* text, double* out)
{
    *out = 0.0;
    if (text == nullptr)
    {
        FatalError("..\\shared\\Misc_String", 109);
    }
    const void* const end = std::memchr(text, 0, textLimit);
    const std::size_t length =
        end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : textLimit;
    return ParseEngineeringNumber(std::string_view(text, length), out);
}
