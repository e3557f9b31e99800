#pragma once

#include "chart/CChartModel.h"

// A made-up FR4 laminate from 1 MHz to 20 GHz, over frequency in MHz.
[[nodiscard]] CChartCurve MakeErCurve();
[[nodiscard]] CChartCurve MakeLossTangentCurve();
