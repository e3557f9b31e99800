#pragma once

#include <windows.h>

#include <utility>
#include <uxtheme.h>

// Owns one handle of the system and gives it back with `Closer` at the end of its life. A null handle is the
// empty one.
template <class Value, class Closer>
class CHandle
{
public:
    CHandle() noexcept = default;
    explicit CHandle(Value handle) noexcept : value(handle) {}
    CHandle(CHandle&& other) noexcept : value(other.Release()) {}
    CHandle& operator=(CHandle&& other) noexcept
    {
        Reset(other.Release());
        return *this;
    }
    CHandle(const CHandle&) = delete;
    CHandle& operator=(const CHandle&) = delete;
    ~CHandle() { Reset(); }

    [[nodiscard]] Value Get() const noexcept { return value; }
    explicit operator bool() const noexcept { return value != nullptr; }

    // Gives the handle away; the caller closes it.
    [[nodiscard]] Value Release() noexcept { return std::exchange(value, nullptr); }

    // Closes the handle and owns `handle` from now on.
    void Reset(Value handle = nullptr) noexcept
    {
        if (const Value old = std::exchange(value, handle))
        {
            Closer()(old);
        }
    }

private:
    Value value = nullptr;
};

struct CloseGdiObject
{
    void operator()(HGDIOBJ object) const noexcept { DeleteObject(object); }
};
struct CloseDC
{
    void operator()(HDC context) const noexcept { DeleteDC(context); }
};
struct CloseTheme
{
    void operator()(HTHEME theme) const noexcept { CloseThemeData(theme); }
};
struct CloseKey
{
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
struct CloseActivationContext
{
    void operator()(HANDLE context) const noexcept { ReleaseActCtx(context); }
};
struct CloseGlobalMemory
{
    void operator()(HGLOBAL memory) const noexcept { GlobalFree(memory); }
};
struct DestroyWindowHandle
{
    void operator()(HWND window) const noexcept { DestroyWindow(window); }
};

using CPen = CHandle<HPEN, CloseGdiObject>;
using CBrush = CHandle<HBRUSH, CloseGdiObject>;
using CFont = CHandle<HFONT, CloseGdiObject>;
using CBitmap = CHandle<HBITMAP, CloseGdiObject>;
using CRegion = CHandle<HRGN, CloseGdiObject>;
using CMemoryDC = CHandle<HDC, CloseDC>; // of CreateCompatibleDC
using CTheme = CHandle<HTHEME, CloseTheme>;
using CKey = CHandle<HKEY, CloseKey>;
using CActivationContextHandle = CHandle<HANDLE, CloseActivationContext>;
using CGlobalMemory = CHandle<HGLOBAL, CloseGlobalMemory>;
using CWindowHandle = CHandle<HWND, DestroyWindowHandle>;
