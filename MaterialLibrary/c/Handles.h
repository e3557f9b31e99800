#pragma once

#include "MaterialLibrary/materials.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <type_traits>

class CMaterial;

// A handle of a material is a pointer to it.
[[nodiscard]] inline const CMaterial& FromHandle(const ml_material* handle)
{
    return *reinterpret_cast<const CMaterial*>(handle);
}
[[nodiscard]] inline const ml_material* ToHandle(const CMaterial* material)
{
    return reinterpret_cast<const ml_material*>(material);
}

// Runs what a function does; what is thrown there becomes its error.
template <class Action>
[[nodiscard]] ml_error Guard(Action action) noexcept
{
    try
    {
        return action();
    }
    catch (const std::bad_alloc&)
    {
        return ML_ERROR_MEMORY;
    }
    catch (...)
    {
        return ML_ERROR_INTERNAL;
    }
}

// Copies what the caller's version of a struct has room for. False when it has no room for the first version.
template <class Struct>
[[nodiscard]] bool Fill(Struct* target, Struct source)
{
    static_assert(std::is_trivially_copyable_v<Struct>);
    if (target == nullptr || target->struct_size < sizeof(Struct)) // the only version so far
    {
        return false;
    }
    source.struct_size = target->struct_size;
    std::memcpy(target, &source, sizeof(Struct));
    return true;
}
