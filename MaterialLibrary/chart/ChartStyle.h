#pragma once

#include "chart/Geometry.h"

#include <cstdint>

// How a chart is drawn, apart from what its axes and curves say themselves.
struct ChartStyle
{
    static constexpr std::int32_t drawLines = 1;
    static constexpr std::int32_t drawMarkers = 2;

    Colour background = 0x000000;
    std::int32_t flags = drawLines;
    std::int32_t markerRadius = 3;                             // of a diamond
    std::int32_t markerHalfSide = MultiplyDivide(3, 100, 141); // of the square in the same circle
    std::int32_t lineWidth = 0;                                // of curves; 0 is one pixel
    Colour highlight = 0xFFFFFF;                               // of the curve under the mouse
    bool bold = false;                                         // curves at least 2 pixels wide
    bool invertsColours = false; // for a light background: bright axis and grid colours become dark

    // An axis or grid colour as it is drawn.
    [[nodiscard]] Colour GetShownColour(Colour colour) const
    {
        constexpr Colour brightBits = 0x808080;
        return invertsColours && (colour & brightBits) != 0 ? 0xFFFFFF - (colour & 0xFFFFFF) : colour;
    }
};
