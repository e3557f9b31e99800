#pragma once

#include "model/CArena.h"

#include <cstring>
#include <string_view>

// A text in 8 bytes, ending with NUL. Like CCompactArray it does not remember its arena.
class CCompactText
{
public:
    // The text, never null; valid until it is set.
    [[nodiscard]] const char* Get() const noexcept { return text != nullptr ? text : ""; }

    // Copies `value`. Throws std::bad_alloc, with the text unchanged.
    void Set(CArena& arena, std::string_view value)
    {
        char* copy = nullptr;
        if (!value.empty())
        {
            copy = static_cast<char*>(arena.Allocate(value.size() + 1, 1));
            value.copy(copy, value.size());
            copy[value.size()] = '\0';
        }
        if (text != nullptr)
        {
            arena.TakeBack(text, std::strlen(text) + 1);
        }
        text = copy;
    }

private:
    char* text = nullptr;
};
