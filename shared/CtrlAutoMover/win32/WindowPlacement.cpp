#include "shared/CtrlAutoMover/win32/WindowPlacement.h"

#include "framework/Profile.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace
{
constexpr const char* maximiseName = "MaximizeWnd";
constexpr const char* positionName = "WndPosition";
constexpr const char* sizeName = "WndSize";

WindowFrame ToFrame(const RECT& rect)
{
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

RECT ToRect(const WindowFrame& frame)
{
    constexpr std::int64_t last = std::numeric_limits<LONG>::max();
    return {frame.left, frame.top, static_cast<LONG>(std::min(last, std::int64_t{frame.left} + frame.width)),
            static_cast<LONG>(std::min(last, std::int64_t{frame.top} + frame.height))};
}

MONITORINFO NearestMonitor(const RECT& rect)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor;
}

// From the screen to the work area: a placement counts from the latter, but not for tool windows.
POINT GetPlacementOrigin(HWND window, const RECT& rect)
{
    if ((GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0)
    {
        return {0, 0};
    }
    const MONITORINFO monitor = NearestMonitor(rect);
    return {monitor.rcWork.left - monitor.rcMonitor.left, monitor.rcWork.top - monitor.rcMonitor.top};
}

WindowFrame NormalFrame(HWND window, const WINDOWPLACEMENT& placement)
{
    RECT rect = placement.rcNormalPosition;
    const POINT origin = GetPlacementOrigin(window, rect);
    OffsetRect(&rect, origin.x, origin.y);
    return ToFrame(rect);
}

bool GetPlacement(HWND window, WINDOWPLACEMENT& placement)
{
    placement.length = sizeof placement;
    return GetWindowPlacement(window, &placement) != FALSE;
}
} // namespace

void SaveWindowPlacement(HWND window, const char* section)
{
    WINDOWPLACEMENT placement{};
    if (!GetPlacement(window, placement))
    {
        return;
    }
    const WindowFrame frame = NormalFrame(window, placement);
    StoreProfileInteger(section, maximiseName, placement.showCmd == SW_SHOWMAXIMIZED ? 1 : 0);
    StoreProfileString(section, positionName, FormatNumberPair({frame.left, frame.top}));
    StoreProfileString(section, sizeName, FormatNumberPair({frame.width, frame.height}));
}

void RestoreWindowPlacement(HWND window, const char* section)
{
    WINDOWPLACEMENT placement{};
    if (!GetPlacement(window, placement))
    {
        return;
    }
    const bool maximise = ReadProfileInteger(section, maximiseName, 0) != 0;
    WindowFrame frame =
        ApplySettings(NormalFrame(window, placement), ReadProfileString(section, positionName, ""),
                      ReadProfileString(section, sizeName, ""));
    frame = MoveIntoWorkArea(frame, GetWorkArea(frame));
    MoveWindow(window, frame.left, frame.top, frame.width, frame.height, TRUE);
    if (maximise)
    {
        ShowWindow(window, SW_MAXIMIZE);
    }
}

WindowFrame GetNormalFrame(HWND window)
{
    WINDOWPLACEMENT placement{};
    return GetPlacement(window, placement) ? NormalFrame(window, placement) : WindowFrame();
}

bool IsSnapped(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    return IsZoomed(window) == FALSE && IsIconic(window) == FALSE && ToFrame(rect) != GetNormalFrame(window);
}

void SetNormalFrame(HWND window, const WindowFrame& frame)
{
    WINDOWPLACEMENT placement{};
    if (IsZoomed(window) == FALSE || !GetPlacement(window, placement))
    {
        SetWindowPos(window, nullptr, frame.left, frame.top, frame.width, frame.height,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        return;
    }
    placement.rcNormalPosition = ToRect(frame);
    const POINT origin = GetPlacementOrigin(window, placement.rcNormalPosition);
    OffsetRect(&placement.rcNormalPosition, -origin.x, -origin.y);
    SetWindowPlacement(window, &placement);
}

WindowFrame GetWorkArea(const WindowFrame& frame)
{
    return ToFrame(NearestMonitor(ToRect(frame)).rcWork);
}
