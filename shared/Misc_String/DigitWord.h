#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

// Eight characters of a text in one word, the first in the lowest byte, each exclusive-or '0': a digit is
// its own value. Behind the end of the text stand bytes that are no digits.
using DigitWord = std::uint64_t;

static_assert(std::endian::native == std::endian::little, "the first character must load as the lowest byte");

inline constexpr DigitWord everyByte = 0x0101010101010101;

inline DigitWord LoadEight(const char* text)
{
    DigitWord word;
    std::memcpy(&word, text, sizeof word);
    return word ^ ('0' * everyByte);
}

// The `count` characters at `text`, fewer than eight, without reading any other.
inline DigitWord LoadFewer(const char* text, std::size_t count)
{
    DigitWord word = 0;
    if (count >= 4)
    {
        std::uint32_t front;
        std::uint32_t back;
        std::memcpy(&front, text, sizeof front);
        std::memcpy(&back, text + count - 4, sizeof back);
        word = front | (DigitWord{back} << (8 * (count - 4)));
    }
    else if (count > 0)
    {
        const auto at = [text](std::size_t i)
        { return DigitWord{static_cast<unsigned char>(text[i])} << (8 * i); };
        word = at(0) | at(count / 2) | at(count - 1);
    }
    return word ^ ('0' * everyByte);
}

// The characters at `text`, up to `last`. Eight characters before `last` must be readable.
inline DigitWord LoadUpTo(const char* text, const char* last)
{
    const std::ptrdiff_t count = last - text;
    if (count >= 8)
    {
        return LoadEight(text);
    }
    DigitWord word;
    std::memcpy(&word, last - 8, sizeof word);
    return ((word >> 8) >> (8 * (7 - count))) ^ ('0' * everyByte);
}

// Bit 7 of each byte that is no digit, up to the first such byte and of the next one after a point. Higher
// marks may be wrong: a byte of 0x8A and more carries into its neighbour.
inline DigitWord MarkNonDigits(DigitWord word)
{
    return ((word + 0x76 * everyByte) | word) & (0x80 * everyByte);
}

// The number written by eight digits.
inline std::uint64_t EightDigits(DigitWord word)
{
    constexpr DigitWord pairs = 0x000000FF000000FF;
    word = word * 10 + (word >> 8);
    return ((word & pairs) * (100 + (std::uint64_t{1000000} << 32)) +
            ((word >> 16) & pairs) * (1 + (std::uint64_t{10000} << 32))) >>
           32;
}

// The number written by the first `count` digits, at most seven.
inline std::uint64_t FirstDigits(DigitWord word, unsigned count)
{
    return EightDigits((word << 8) << (56 - 8 * count));
}
