#pragma once

#include <windows.h>

// Selects an object into a device context and, at the end of the scope, the one before.
class CSelectScope
{
public:
    CSelectScope(HDC dc, HGDIOBJ object) noexcept : context(dc), previous(SelectObject(dc, object)) {}
    ~CSelectScope() { SelectObject(context, previous); }
    CSelectScope(const CSelectScope&) = delete;
    CSelectScope& operator=(const CSelectScope&) = delete;

private:
    HDC context;
    HGDIOBJ previous;
};

// The device context of a window's client area; a null window gives that of the screen.
class CClientDC
{
public:
    explicit CClientDC(HWND owner) noexcept : window(owner), context(GetDC(owner)) {}
    ~CClientDC() { ReleaseDC(window, context); }
    CClientDC(const CClientDC&) = delete;
    CClientDC& operator=(const CClientDC&) = delete;

    [[nodiscard]] HDC Get() const noexcept { return context; }

private:
    HWND window;
    HDC context;
};

// The device context of a WM_PAINT message. What it covers counts as painted at the end of the scope.
class CPaintDC
{
public:
    explicit CPaintDC(HWND painted) noexcept : window(painted) { BeginPaint(window, &paint); }
    ~CPaintDC() { EndPaint(window, &paint); }
    CPaintDC(const CPaintDC&) = delete;
    CPaintDC& operator=(const CPaintDC&) = delete;

    [[nodiscard]] HDC Get() const noexcept { return paint.hdc; }

private:
    HWND window;
    PAINTSTRUCT paint{};
};
