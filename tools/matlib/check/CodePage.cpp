#include "tools/matlib/check/CodePage.h"

#include <algorithm>
#include <array>

namespace
{
// Windows' Western code page from 0x80 to 0x9F; above that it has Unicode's own numbers. 0: no character.
constexpr std::array<unsigned, 32> western = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                              0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

unsigned ByteOf(char c)
{
    return static_cast<unsigned char>(c);
}

void AppendUtf8(std::string& text, unsigned codePoint)
{
    const auto append = [&text](unsigned byte) { text += static_cast<char>(byte); };
    if (codePoint >= 0x800)
    {
        append(0xE0 | codePoint >> 12);
        append(0x80 | (codePoint >> 6 & 0x3F));
    }
    else
    {
        append(0xC0 | codePoint >> 6);
    }
    append(0x80 | (codePoint & 0x3F));
}

std::string ShowInWesternCodePage(std::string_view bytes)
{
    std::string shown;
    for (const char c : bytes)
    {
        const unsigned byte = ByteOf(c);
        const unsigned codePoint = byte < 0xA0 ? western[byte - 0x80] : byte;
        if (codePoint == 0)
        {
            shown += '?';
        }
        else
        {
            AppendUtf8(shown, codePoint);
        }
    }
    return shown;
}

std::string ListBytes(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string list;
    for (const char c : bytes)
    {
        list += list.empty() ? "" : " ";
        list += digits[ByteOf(c) >> 4];
        list += digits[ByteOf(c) & 15];
    }
    return list;
}
} // namespace

std::string_view FindCharacter(std::string_view text)
{
    const unsigned first = ByteOf(text.front());
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 1;
    const bool isWhole =
        length <= text.size() && first < 0xF5 &&
        std::ranges::all_of(text.substr(1, length - 1), [](char c) { return (ByteOf(c) & 0xC0) == 0x80; });
    return text.substr(0, isWhole ? length : 1);
}

std::string DescribeInCodePage(std::string_view character)
{
    const std::string shown = ShowInWesternCodePage(character);
    const std::string advice = " Plain ASCII is the same everywhere.";
    if (character.size() == 1)
    {
        return "The byte " + ListBytes(character) +
               " is no ASCII. With the Western code page a host shows \"" + shown +
               "\", with another one something else." + advice;
    }
    return "\"" + std::string(character) + "\" stands here as the bytes " + ListBytes(character) +
           " of UTF-8. A host takes each for a character: with the Western code page it shows \"" + shown +
           "\"." + advice;
}
