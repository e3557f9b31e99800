#include "grid/CTextPool.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

CTextPool::Offset CTextPool::Add(std::string_view text)
{
    text = text.substr(0, text.find('\0'));
    if (text.empty())
    {
        return emptyText;
    }
    const std::size_t offset = characters.size();
    if (text.size() >= std::numeric_limits<Offset>::max() - offset)
    {
        throw std::bad_alloc();
    }
    const std::size_t size = offset + text.size() + 1;
    std::vector<char> grown; // holds the former characters to the end: `text` may be one of them
    if (size > characters.capacity())
    {
        grown.reserve(std::max(size, 2 * offset));
        grown.assign(characters.begin(), characters.end());
        characters.swap(grown);
    }
    characters.resize(size);
    std::memcpy(characters.data() + offset, text.data(), text.size());
    return static_cast<Offset>(offset);
}

void CTextPool::Abandon(Offset offset)
{
    if (offset != emptyText)
    {
        abandoned += std::strlen(Get(offset)) + 1;
    }
}
