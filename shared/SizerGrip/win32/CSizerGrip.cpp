#include "shared/SizerGrip/win32/CSizerGrip.h"

#include "shared/MessageManager/FatalError.h"

#include <vssym32.h>

namespace
{
constexpr int bottomRightSizeBox = 5; // the state of the scroll bar's part SBP_SIZEBOX
} // namespace

CSizerGrip::CSizerGrip(HWND window)
{
    if (!IsWindow(window) || !Attach(window))
    {
        FatalError("..\\shared\\SizerGrip.cpp", 66);
    }
    RECT client{};
    GetClientRect(window, &client);
    Follow(client.right, client.bottom);
}

LRESULT CSizerGrip::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_SIZE:
        Follow(LOWORD(lParam), HIWORD(lParam));
        break;
    case WM_PAINT:
    {
        const LRESULT answer = CWnd::HandleMessage(message, wParam, lParam);
        Paint();
        return answer;
    }
    case WM_NCHITTEST:
        if (IsHit(lParam))
        {
            return HTBOTTOMRIGHT;
        }
        break;
    case WM_THEMECHANGED:
        theme.reset();
        break;
    default:
        break;
    }
    return CWnd::HandleMessage(message, wParam, lParam);
}

void CSizerGrip::Follow(int clientWidth, int clientHeight)
{
    InvalidateGrip();
    grip = {clientWidth - GetSystemMetrics(SM_CXVSCROLL), clientHeight - GetSystemMetrics(SM_CYHSCROLL),
            clientWidth, clientHeight};
    InvalidateGrip();
}

void CSizerGrip::InvalidateGrip() const
{
    InvalidateRect(GetHandle(), &grip, TRUE);
}

void CSizerGrip::Paint()
{
    if (!theme)
    {
        theme.reset(OpenThemeData(GetHandle(), L"SCROLLBAR"));
    }
    const HDC context = GetDCEx(GetHandle(), nullptr, DCX_CACHE | DCX_CLIPCHILDREN);
    if (theme)
    {
        DrawThemeBackground(theme.get(), context, SBP_SIZEBOX, bottomRightSizeBox, &grip, nullptr);
    }
    else
    {
        DrawFrameControl(context, &grip, DFC_SCROLL, DFCS_SCROLLSIZEGRIP);
    }
    ReleaseDC(GetHandle(), context);
}

bool CSizerGrip::IsHit(LPARAM screenPoint) const
{
    POINT point{static_cast<short>(LOWORD(screenPoint)), static_cast<short>(HIWORD(screenPoint))};
    ScreenToClient(GetHandle(), &point);
    return PtInRect(&grip, point) != FALSE;
}
