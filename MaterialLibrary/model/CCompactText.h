#pragma once

#include <cstring>
#include <memory_resource>
#include <string_view>

// A text in 8 bytes, ending with NUL. Like CCompactArray it does not remember its memory resource.
class CCompactText
{
public:
    // The text, never null; valid until it is set or released.
    [[nodiscard]] const char* Get() const noexcept { return text != nullptr ? text : ""; }

    [[nodiscard]] bool IsEmpty() const noexcept { return text == nullptr; }

    // Copies `value` (null counts as empty). Throws std::bad_alloc, with the text unchanged.
    void Set(std::pmr::memory_resource& resource, const char* value)
    {
        char* copy = nullptr;
        if (value != nullptr && *value != '\0')
        {
            const std::size_t bytes = std::strlen(value) + 1;
            copy = static_cast<char*>(resource.allocate(bytes, 1));
            std::memcpy(copy, value, bytes);
        }
        Release(resource);
        text = copy;
    }

    // Gives the memory back; the text is empty then.
    void Release(std::pmr::memory_resource& resource) noexcept
    {
        if (text != nullptr)
        {
            resource.deallocate(text, std::strlen(text) + 1, 1);
        }
        text = nullptr;
    }

private:
    char* text = nullptr;
};
