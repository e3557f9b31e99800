#pragma once

#include <windows.h>

// Sends all mouse messages to a window, until the end of the scope or until another window takes the mouse.
class CCaptureScope
{
public:
    explicit CCaptureScope(HWND target) noexcept : window(target) { SetCapture(target); }
    ~CCaptureScope()
    {
        if (GetCapture() == window)
        {
            ReleaseCapture();
        }
    }
    CCaptureScope(const CCaptureScope&) = delete;
    CCaptureScope& operator=(const CCaptureScope&) = delete;

private:
    HWND window;
};

// Sets a flag as long as the scope lasts.
class CFlagScope
{
public:
    explicit CFlagScope(bool& raised) noexcept : flag(&raised), before(raised) { raised = true; }
    ~CFlagScope() { *flag = before; }
    CFlagScope(const CFlagScope&) = delete;
    CFlagScope& operator=(const CFlagScope&) = delete;

private:
    bool* flag;
    bool before;
};

// Keeps a visible window from repainting while much of it changes, then repaints it once.
class CRedrawLock
{
public:
    explicit CRedrawLock(HWND locked) noexcept
        : window((GetWindowLongPtrW(locked, GWL_STYLE) & WS_VISIBLE) != 0 ? locked : nullptr)
    {
        if (window != nullptr) // unlocking would show a hidden window
        {
            SendMessageW(window, WM_SETREDRAW, FALSE, 0);
        }
    }
    ~CRedrawLock()
    {
        if (window != nullptr && IsWindow(window))
        {
            SendMessageW(window, WM_SETREDRAW, TRUE, 0);
            RedrawWindow(window, nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
        }
    }
    CRedrawLock(const CRedrawLock&) = delete;
    CRedrawLock& operator=(const CRedrawLock&) = delete;

private:
    HWND window;
};

// Shows the system's wait cursor.
class CWaitCursor
{
public:
    CWaitCursor() noexcept : previous(SetCursor(LoadCursor(nullptr, IDC_WAIT))) {}
    ~CWaitCursor() { SetCursor(previous); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

private:
    HCURSOR previous;
};

// Hands out the module's own manifest (resource 2) to windows that are made in the scope, so that controls
// have the themed look in a host that has no manifest. Without that resource nothing changes.
class CThemedControlsScope
{
public:
    CThemedControlsScope() noexcept;
    ~CThemedControlsScope();
    CThemedControlsScope(const CThemedControlsScope&) = delete;
    CThemedControlsScope& operator=(const CThemedControlsScope&) = delete;

private:
    ULONG_PTR cookie = 0;
    bool active = false;
};
