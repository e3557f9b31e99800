#pragma once

#include <cstddef>

// The text of a file in memory pages of its own, so that what was read already can go back to the system
// while the rest is being read: at its peak a load then holds the materials and hardly any text.
class CTextPages
{
public:
    // Room for `bytes` characters and a NUL behind them; filled with NULs. Throws std::bad_alloc.
    explicit CTextPages(std::size_t bytes);
    ~CTextPages();
    CTextPages(const CTextPages&) = delete;
    CTextPages& operator=(const CTextPages&) = delete;

    // The text's first character.
    [[nodiscard]] char* Get() const noexcept { return text; }

    // Gives back the pages before `position`, a place in the text. Nothing may be read or written there any
    // more.
    void ReleaseBefore(const char* position) noexcept
    {
        if (static_cast<std::size_t>(position - firstKept) >= releasedAtOnce)
        {
            Release(firstKept, releasedAtOnce);
            firstKept += releasedAtOnce;
        }
    }

private:
    // Few calls of the system, and a whole number of pages everywhere.
    static constexpr std::size_t releasedAtOnce = std::size_t{256} * 1024;

    static void Release(char* start, std::size_t bytes) noexcept;

    std::size_t reserved;
    char* text;
    char* firstKept;
};
