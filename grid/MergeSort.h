#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

// Sorts so that `before(a, b)` tells a to come before b. Whatever `before` answers, even when it contradicts
// itself, every access stays inside, every item stays there once, and the number of comparisons stays below
// n log2 n + 8 n. Equal items keep their order.
template <typename Item, typename Before>
void MergeSort(std::span<Item> items, Before before)
{
    constexpr std::size_t runLength = 8;
    const std::size_t count = items.size();
    for (std::size_t begin = 0; begin < count; begin += runLength)
    {
        const std::size_t end = std::min(begin + runLength, count);
        for (std::size_t next = begin + 1; next < end; ++next)
        {
            const Item item = items[next];
            std::size_t place = next;
            for (; place > begin && before(item, items[place - 1]); --place)
            {
                items[place] = items[place - 1];
            }
            items[place] = item;
        }
    }

    std::vector<Item> merged(count > runLength ? count : 0);
    std::span<Item> from = items;
    std::span<Item> to = merged;
    for (std::size_t length = runLength; length < count; length *= 2)
    {
        for (std::size_t begin = 0; begin < count; begin += 2 * length)
        {
            const std::size_t middle = std::min(begin + length, count);
            const std::size_t end = std::min(middle + length, count);
            std::size_t left = begin;
            std::size_t right = middle;
            std::size_t out = begin;
            const bool inOrder = middle == end || !before(from[middle], from[middle - 1]);
            while (!inOrder && left < middle && right < end)
            {
                to[out++] = before(from[right], from[left]) ? from[right++] : from[left++];
            }
            std::copy(from.begin() + static_cast<std::ptrdiff_t>(left),
                      from.begin() + static_cast<std::ptrdiff_t>(middle),
                      to.begin() + static_cast<std::ptrdiff_t>(out));
            std::copy(from.begin() + static_cast<std::ptrdiff_t>(right),
                      from.begin() + static_cast<std::ptrdiff_t>(end),
                      to.begin() + static_cast<std::ptrdiff_t>(out + (middle - left)));
        }
        std::swap(from, to);
    }
    if (from.data() != items.data())
    {
        std::copy(from.begin(), from.end(), items.begin());
    }
}
