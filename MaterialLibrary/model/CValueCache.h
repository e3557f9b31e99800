#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "model/CArena.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

// The values that were computed for frequencies so far, the last one of each frequency: a hash table with
// open addressing. Like CCompactArray it does not remember its arena.
class CValueCache
{
public:
    [[nodiscard]] std::optional<double> Find(double frequency) const noexcept
    {
        for (std::uint32_t at = Start(frequency); capacity > 0 && !IsFree(slots[at]); at = Next(at))
        {
            if (slots[at].frequency == frequency)
            {
                return slots[at].value;
            }
        }
        return std::nullopt;
    }

    // Throws std::bad_alloc, with everything as it was.
    void Keep(CArena& arena, double frequency, double value)
    {
        if (std::isnan(frequency)) // equal to nothing, so it would never be found
        {
            return;
        }
        if (capacity == 0 || count >= capacity - 1 - capacity / 8)
        {
            Grow(arena);
        }
        Enter({frequency, value});
    }

private:
    // A free slot has a frequency that none can have.
    [[nodiscard]] static bool IsFree(const MLTBLENTRY& slot) noexcept { return std::isnan(slot.frequency); }

    // Where the search for a frequency begins.
    [[nodiscard]] std::uint32_t Start(double frequency) const noexcept
    {
        const auto bits = std::bit_cast<std::uint64_t>(frequency + 0.0); // 0 and -0 are equal
        const std::uint64_t mixed = (bits ^ bits >> 32) * 0x9E3779B97F4A7C15u;
        return static_cast<std::uint32_t>((mixed >> 32) * capacity >> 32);
    }
    [[nodiscard]] std::uint32_t Next(std::uint32_t at) const noexcept
    {
        return at + 1 < capacity ? at + 1 : 0;
    }

    void Enter(const MLTBLENTRY& entry) noexcept
    {
        std::uint32_t at = Start(entry.frequency);
        while (!IsFree(slots[at]) && slots[at].frequency != entry.frequency)
        {
            at = Next(at);
        }
        count += IsFree(slots[at]) ? 1 : 0;
        slots[at] = entry;
    }

    // A large one grows by a quarter, so that at least seven tenths of it are taken, and apart from the
    // arena's other blocks, so that what it grows out of goes back.
    void Grow(CArena& arena)
    {
        const CValueCache old = *this;
        if (capacity > UINT32_MAX / 2)
        {
            throw std::bad_alloc();
        }
        const std::uint32_t grown =
            capacity < leastApart ? std::max(2u, 2 * capacity) : capacity + capacity / 4;
        const std::size_t bytes = grown * sizeof(MLTBLENTRY);
        slots = static_cast<MLTBLENTRY*>(grown < leastApart ? arena.Allocate(bytes, alignof(MLTBLENTRY))
                                                            : arena.AllocateApart(bytes));
        std::uninitialized_fill_n(slots, grown, MLTBLENTRY{NAN, 0.0});
        capacity = grown;
        count = 0;
        for (const MLTBLENTRY& slot : std::span(old.slots, old.capacity))
        {
            if (!IsFree(slot))
            {
                Enter(slot);
            }
        }
        if (old.capacity >= leastApart)
        {
            arena.TakeBackApart(old.slots);
        }
    }

    static constexpr std::uint32_t leastApart = 16;

    MLTBLENTRY* slots = nullptr;
    std::uint32_t capacity = 0;
    std::uint32_t count = 0;
};
