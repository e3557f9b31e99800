#pragma once

#include "chart/CChartCurve.h"

#include <cstdint>

// A curve of a chart and the axes it is drawn against.
struct CAxisCurve
{
    CChartCurve* curve = nullptr; // not owned
    std::int32_t horizontalAxis = 0;
    std::int32_t verticalAxis = 0;
};
