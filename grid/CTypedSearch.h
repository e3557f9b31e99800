#pragma once

#include <cstdint>
#include <string>

// What somebody types to find a row: characters that follow each other within a second belong together.
class CTypedSearch
{
public:
    // Takes a character that was typed at that time, in milliseconds of any clock that may wrap.
    void Add(wchar_t character, std::uint32_t time);

    // Whether a character typed now belongs to those before.
    [[nodiscard]] bool IsGoingOn(std::uint32_t time) const;

    // What a row has to begin with. One character typed again and again asks for one row after the other.
    [[nodiscard]] std::wstring GetPrefix() const { return repeats ? typed.substr(0, 1) : typed; }

    // Whether the current row will not do, although it may begin so.
    [[nodiscard]] bool WantsNext() const { return repeats; }

private:
    std::wstring typed;
    std::uint32_t last = 0;
    bool repeats = true; // nothing but the first character
};
