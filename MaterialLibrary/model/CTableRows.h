#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "model/CCompactArray.h"

#include <memory>

// The rows of a table. A single row, all that a constant property has, stands in place of the array. Like
// CCompactArray this does not remember its memory resource.
class CTableRows
{
public:
    [[nodiscard]] int GetCount() const noexcept { return isSingle ? 1 : several.GetCount(); }
    [[nodiscard]] std::span<const MLTBLENTRY> GetAll() const noexcept
    {
        return isSingle ? std::span(&single, 1) : several.GetAll();
    }

    // Appends a copy. Throws std::bad_alloc, with the rows unchanged.
    void Append(std::pmr::memory_resource& resource, const MLTBLENTRY& row)
    {
        if (isSingle)
        {
            AppendSecond(resource, row);
        }
        else if (several.GetCount() > 0)
        {
            several.Append(resource, row);
        }
        else
        {
            std::construct_at(&single, row);
            isSingle = true;
        }
    }

    // Discards the rows and gives the memory back.
    void Release(std::pmr::memory_resource& resource) noexcept
    {
        if (!isSingle)
        {
            several.Release(resource);
        }
        std::construct_at(&several);
        isSingle = false;
    }

private:
    void AppendSecond(std::pmr::memory_resource& resource, MLTBLENTRY row) // a copy: it may be the first one
    {
        CCompactArray<MLTBLENTRY> array;
        array.Append(resource, single);
        std::construct_at(&several, array);
        isSingle = false;
        several.Append(resource, row);
    }

    union
    {
        CCompactArray<MLTBLENTRY> several = {};
        MLTBLENTRY single;
    };
    bool isSingle = false;
};
