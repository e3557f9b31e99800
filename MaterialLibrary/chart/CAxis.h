#pragma once

#include "chart/Geometry.h"

#include <cstdint>
#include <limits>
#include <string>

enum class Direction
{
    Horizontal,
    Vertical
};

// One axis of a chart. The order of the members is kept.
struct CAxis
{
    double dataMin = 0.0; // around the curves bound to the axis
    double dataMax = 0.0;
    double visibleMin = 0.0; // what is drawn: set by the layout, from tick to tick
    double visibleMax = 0.0;
    double requestedMin = 0.0; // what is asked for: changed by zooming, the data range after a reset
    double requestedMax = 0.0;
    double lowerLimit = std::numeric_limits<double>::lowest(); // above 0 for a logarithmic axis
    double upperLimit = std::numeric_limits<double>::max();
    double tickStep = 0.0; // in decades on a logarithmic axis
    double scale = 0.0;    // pixels per unit, or per decade
    double savedVisibleMin = 0.0;
    double savedVisibleMax = 0.0;
    std::int32_t pixelShift = 0; // what a pan has left over of a whole tick
    std::int32_t savedPixelShift = 0;
    std::string unit;
    std::string title;
    bool automaticPrefix = true; // labels take a unit prefix by magnitude
    Colour axisColour = 0xFFFFFF;
    Colour gridColour = 0x808080;
    std::int32_t minorTicks = 1; // 0 leaves them out
    std::int32_t identifier = -1;
};
