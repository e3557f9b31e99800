#pragma once

#include "chart/Geometry.h"

#include <cstdint>

// What the left mouse button does; any other number is no interaction.
struct MouseMode
{
    static constexpr std::int32_t zoomIn = 1;
    static constexpr std::int32_t zoomOut = 2; // the plot is squeezed into the rectangle
    static constexpr std::int32_t zoomInHorizontally = 3;
    static constexpr std::int32_t zoomInVertically = 4;
    static constexpr std::int32_t pan = 5;
    static constexpr std::int32_t pickCurve = 6; // waiting for a click on a curve
    static constexpr std::int32_t pickPoint = 7; // on the curve that was clicked
};

// What the mouse has done to a chart so far.
struct ChartInteraction
{
    bool buttonDown = false; // of a drag; in the pick modes: a curve is locked
    std::int32_t mode = MouseMode::zoomIn;
    PixelPoint dragStart;
    PixelPoint lastPoint = {-1, -1};
    std::int64_t readOutCurve = -1;
    std::int32_t readOutPoint = -1; // -1: the curve as a whole
    PixelPoint readOutPosition;
    std::int64_t hoveredCurve = -1;
    Colour hoveredColour = 0; // what the hovered curve had before it was highlighted

    [[nodiscard]] bool IsPicking() const
    {
        return mode == MouseMode::pickCurve || mode == MouseMode::pickPoint;
    }
    [[nodiscard]] bool HasLockedCurve() const { return IsPicking() && buttonDown && hoveredCurve >= 0; }
    [[nodiscard]] bool IsDraggingRectangle() const
    {
        return buttonDown && mode >= MouseMode::zoomIn && mode <= MouseMode::zoomInVertically;
    }

    void ClearReadOut()
    {
        readOutCurve = -1;
        readOutPoint = -1;
    }
};
