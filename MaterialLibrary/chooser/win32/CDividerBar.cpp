#include "chooser/win32/CDividerBar.h"

#include "framework/DrawingScopes.h"

#include <algorithm>
#include <utility>
#include <windowsx.h>

namespace
{
constexpr const wchar_t* windowClassName = L"MaterialLibrary divider bar";
constexpr int anywhere = 30'000; // in pixels: as far as it goes
constexpr int pageSteps = 5;

// About a row of the list.
int GetStep()
{
    return GetSystemMetrics(SM_CYMENUSIZE);
}
} // namespace

bool CDividerBar::Create(HWND dialog, int identifier, HWND before, Callbacks asked)
{
    callbacks = std::move(asked);
    RegisterPlainWindowClass(windowClassName, CS_HREDRAW | CS_VREDRAW, GetSysColorBrush(COLOR_3DFACE),
                             LoadCursor(nullptr, IDC_SIZENS));
    const HWND bar = CreatePlainWindow({.className = windowClassName,
                                        .style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS,
                                        .parent = dialog,
                                        .identifier = identifier});
    SetWindowPos(bar, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    return Attach(bar);
}

void CDividerBar::TakeFocus()
{
    SetFocus(GetHandle());
}

void CDividerBar::BeginAnew()
{
    if (GetHandle() != nullptr && GetFocus() == GetHandle())
    {
        grabbedAt += offset;
        offset = 0;
        callbacks.begin();
    }
}

LRESULT CDividerBar::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_PAINT:
        Paint();
        return 0;
    case WM_GETDLGCODE:
        return wParam == VK_RETURN || wParam == VK_ESCAPE ? DLGC_WANTARROWS | DLGC_WANTMESSAGE
                                                          : DLGC_WANTARROWS;
    case WM_SETFOCUS:
        formerFocus = reinterpret_cast<HWND>(wParam);
        offset = 0;
        callbacks.begin();
        InvalidateRect(GetHandle(), nullptr, TRUE);
        return 0;
    case WM_KILLFOCUS:
        EndDrag();
        InvalidateRect(GetHandle(), nullptr, TRUE);
        return 0;
    case WM_LBUTTONDOWN:
        OnButtonDown(GET_Y_LPARAM(lParam));
        return 0;
    case WM_MOUSEMOVE:
        OnMouseMove(GET_Y_LPARAM(lParam));
        return 0;
    case WM_LBUTTONUP:
        LeaveFocus();
        return 0;
    case WM_CAPTURECHANGED:
        dragging = false;
        return 0;
    case WM_KEYDOWN:
        if (OnKey(wParam))
        {
            return 0;
        }
        break;
    default:
        break;
    }
    return CWnd::HandleMessage(message, wParam, lParam);
}

// A short groove in the middle, in the colours of the system's raised edges.
void CDividerBar::Paint()
{
    const CPaintDC paint(GetHandle());
    RECT bar{};
    GetClientRect(GetHandle(), &bar);
    const int thickness = std::max<int>(bar.bottom / 6, 1);
    const int middle = bar.bottom / 2;
    RECT groove{(bar.right - 8 * bar.bottom) / 2, middle - thickness, (bar.right + 8 * bar.bottom) / 2,
                middle};
    FillRect(paint.Get(), &groove, GetSysColorBrush(COLOR_3DSHADOW));
    OffsetRect(&groove, 0, thickness);
    FillRect(paint.Get(), &groove, GetSysColorBrush(COLOR_3DHILIGHT));
    if (GetFocus() == GetHandle() && !dragging)
    {
        DrawFocusRect(paint.Get(), &bar);
    }
}

// The focus may stay where it is, with a message about its text.
void CDividerBar::OnButtonDown(int mouse)
{
    SetFocus(GetHandle());
    if (GetFocus() == GetHandle())
    {
        grabbedAt = ToScreen(mouse) - offset;
        dragging = true;
        SetCapture(GetHandle());
        InvalidateRect(GetHandle(), nullptr, TRUE);
    }
}

void CDividerBar::OnMouseMove(int mouse)
{
    if (dragging)
    {
        MoveTo(ToScreen(mouse) - grabbedAt);
    }
}

// The bar moves under the mouse, the screen does not.
int CDividerBar::ToScreen(int mouse) const
{
    POINT point{0, mouse};
    ClientToScreen(GetHandle(), &point);
    return point.y;
}

bool CDividerBar::OnKey(WPARAM key)
{
    switch (key)
    {
    case VK_UP:
        MoveTo(offset - GetStep());
        return true;
    case VK_DOWN:
        MoveTo(offset + GetStep());
        return true;
    case VK_PRIOR:
        MoveTo(offset - pageSteps * GetStep());
        return true;
    case VK_NEXT:
        MoveTo(offset + pageSteps * GetStep());
        return true;
    case VK_HOME:
        MoveTo(-anywhere);
        return true;
    case VK_END:
        MoveTo(anywhere);
        return true;
    case VK_ESCAPE:
        MoveTo(0);
        LeaveFocus();
        return true;
    case VK_RETURN:
        LeaveFocus();
        return true;
    default:
        return false;
    }
}

void CDividerBar::MoveTo(int down)
{
    if (down != offset)
    {
        offset = callbacks.move(down);
    }
}

void CDividerBar::EndDrag()
{
    dragging = false;
    if (GetCapture() == GetHandle())
    {
        ReleaseCapture();
    }
}

void CDividerBar::LeaveFocus()
{
    EndDrag();
    if (GetFocus() == GetHandle())
    {
        const HWND dialog = GetParent(GetHandle());
        const bool isThere = IsChild(dialog, formerFocus) != FALSE && IsWindowVisible(formerFocus) != FALSE;
        SetFocus(isThere ? formerFocus : GetNextDlgTabItem(dialog, GetHandle(), TRUE));
    }
}
