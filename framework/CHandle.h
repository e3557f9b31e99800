#pragma once

#include <windows.h>

#include <memory>
#include <uxtheme.h>

// What gives one handle of the system back.
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
struct CloseActivationContext
{
    void operator()(HANDLE context) const noexcept { ReleaseActCtx(context); }
};
struct CloseFileHandle
{
    void operator()(HANDLE file) const noexcept { CloseHandle(file); }
};
struct CloseGlobalMemory
{
    void operator()(HGLOBAL memory) const noexcept { GlobalFree(memory); }
};
struct CloseMetafile
{
    void operator()(HENHMETAFILE picture) const noexcept { DeleteEnhMetaFile(picture); }
};
struct DestroyMenuHandle
{
    void operator()(HMENU menu) const noexcept { DestroyMenu(menu); }
};
struct DestroyWindowHandle
{
    void operator()(HWND window) const noexcept { DestroyWindow(window); }
};

template <class Handle, class Close>
struct CHandleCloser : Close
{
    using pointer = Handle;
};

// Owns one handle and gives it back at the end of its life. A null handle is the empty one.
template <class Handle, class Close>
using CHandle = std::unique_ptr<Handle, CHandleCloser<Handle, Close>>;

using CPen = CHandle<HPEN, CloseGdiObject>;
using CBrush = CHandle<HBRUSH, CloseGdiObject>;
using CFont = CHandle<HFONT, CloseGdiObject>;
using CBitmap = CHandle<HBITMAP, CloseGdiObject>;
using CRegion = CHandle<HRGN, CloseGdiObject>;
using CMemoryDC = CHandle<HDC, CloseDC>; // of CreateCompatibleDC
using CTheme = CHandle<HTHEME, CloseTheme>;
using CActivationContextHandle = CHandle<HANDLE, CloseActivationContext>;
using CGlobalMemory = CHandle<HGLOBAL, CloseGlobalMemory>;
using CMetafile = CHandle<HENHMETAFILE, CloseMetafile>;
using CMenuHandle = CHandle<HMENU, DestroyMenuHandle>;
using CWindowHandle = CHandle<HWND, DestroyWindowHandle>;
