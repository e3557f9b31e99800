#pragma once

#include "chart/ITextMeasure.h"

#include <cstdint>
#include <optional>
#include <span>

enum class ChartCursor
{
    Arrow,
    Zoom,
    Pan,
    Pick
};

// The window that a chart lives in.
class IChartHost
{
public:
    // Nothing while there is no window.
    [[nodiscard]] virtual std::optional<PixelRect> GetClientArea() = 0;
    // Measures in the label font; null while there is no window.
    [[nodiscard]] virtual ITextMeasure* GetTextMeasure() = 0;

    virtual void CaptureMouse() = 0;
    virtual void ReleaseMouse() = 0;
    virtual void SetMouseCursor(ChartCursor cursor) = 0;

    // The whole window is to be painted again, later.
    virtual void InvalidateChart(bool erase) = 0;
    // What is invalid is painted before this returns.
    virtual void UpdateNow() = 0;
    // Draws on the window at once, by exclusive or: the same lines again erase them.
    virtual void DrawFeedback(std::span<const PixelLine> lines, Colour colour) = 0;

    // The parent is told that the ranges have changed.
    virtual void NotifyZoomChanged() = 0;

    // Milliseconds of a clock that goes on, around the end of 32 bits too.
    [[nodiscard]] virtual std::uint32_t GetMilliseconds() = 0;
    virtual void SleepMilliseconds(std::uint32_t milliseconds) = 0;

protected:
    ~IChartHost() = default;
};
