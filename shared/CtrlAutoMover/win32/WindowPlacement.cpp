#include "shared/CtrlAutoMover/win32/WindowPlacement.h"

#include "framework/Profile.h"
#include "shared/CtrlAutoMover/WindowFrame.h"

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

// The system keeps the normal rectangle of a maximised or minimised window relative to the work area.
WindowFrame NormalFrame(HWND window, const WINDOWPLACEMENT& placement)
{
    RECT rect = placement.rcNormalPosition;
    if (!IsZoomed(window) && !IsIconic(window))
    {
        GetWindowRect(window, &rect);
    }
    else if ((GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) == 0)
    {
        const MONITORINFO monitor = NearestMonitor(rect);
        OffsetRect(&rect, monitor.rcWork.left - monitor.rcMonitor.left,
                   monitor.rcWork.top - monitor.rcMonitor.top);
    }
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
    frame = MoveIntoWorkArea(frame, ToFrame(NearestMonitor(ToRect(frame)).rcWork));
    MoveWindow(window, frame.left, frame.top, frame.width, frame.height, TRUE);
    if (maximise)
    {
        ShowWindow(window, SW_MAXIMIZE);
    }
}
