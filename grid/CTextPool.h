#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

// Texts one behind the other in one block of memory, each ended by a NUL and known by where it begins. Texts
// that are no longer wanted stay until whoever knows the others copies these into a new pool.
class CTextPool
{
public:
    using Offset = std::uint32_t;

    static constexpr Offset emptyText = 0;

    CTextPool() : characters(1, '\0') {}

    // Adds a text, of which a NUL is the end. Throws std::bad_alloc when it does not fit into 4 GB.
    [[nodiscard]] Offset Add(std::string_view text);

    // Valid until the next Add.
    [[nodiscard]] const char* Get(Offset offset) const { return characters.data() + offset; }

    // Counts the text as no longer wanted.
    void Abandon(Offset offset);

    [[nodiscard]] std::size_t GetBytes() const { return characters.size(); }
    [[nodiscard]] std::size_t GetAbandonedBytes() const { return abandoned; }

private:
    std::vector<char> characters; // begins with the empty text
    std::size_t abandoned = 0;
};
