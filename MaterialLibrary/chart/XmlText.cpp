#include "chart/XmlText.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace
{
// The characters 0x80 to 0x9F of Windows-1252; 0 where there is none.
constexpr std::array<char32_t, 32> windows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t character)
{
    const auto append = [&out](char32_t byte) { out += static_cast<char>(byte); };
    if (character < 0x80)
    {
        append(character);
        return;
    }
    if (character < 0x800)
    {
        append(0xC0 | (character >> 6));
    }
    else
    {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
    }
    append(0x80 | (character & 0x3F));
}

// How many bytes the UTF-8 character at the beginning has; 0 when there is none that XML allows.
std::size_t GetCharacterLength(std::string_view text)
{
    const auto byte = [text](std::size_t i) -> char32_t
    { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
    const char32_t lead = byte(0);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    char32_t character = lead & (length == 1 ? 0x7Fu : 0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i)
    {
        if ((byte(i) & 0xC0) != 0x80)
        {
            return 0;
        }
        character = (character << 6) | (byte(i) & 0x3F);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    const bool none = character == 0xFFFE || character == 0xFFFF || character > 0x10FFFF;
    return lead >= 0xF8 || character < smallest[length] || surrogate || none ? 0 : length;
}

bool IsUtf8(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();)
    {
        const std::size_t length = GetCharacterLength(text.substr(i));
        if (length == 0)
        {
            return false;
        }
        i += length;
    }
    return true;
}

void AppendAscii(std::string& out, char character)
{
    switch (character)
    {
    case '&':
        out += "&amp;";
        break;
    case '<':
        out += "&lt;";
        break;
    case '>':
        out += "&gt;";
        break;
    case '"':
        out += "&quot;";
        break;
    default:
        out += static_cast<unsigned char>(character) < 0x20 || character == 0x7F ? '?' : character;
    }
}
} // namespace

std::string ToXmlText(std::string_view text)
{
    const bool utf8 = IsUtf8(text);
    std::string out;
    out.reserve(text.size());
    for (const char c : text)
    {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
        {
            AppendAscii(out, c);
        }
        else if (utf8)
        {
            out += c;
        }
        else
        {
            const char32_t character = byte < 0xA0 ? windows1252[byte - 0x80u] : char32_t{byte};
            AppendUtf8(out, character != 0 ? character : U'?');
        }
    }
    return out;
}
