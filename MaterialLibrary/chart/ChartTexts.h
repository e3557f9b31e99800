#pragma once

#include "chart/CChartModel.h"

#include <string>

// The numbers written on a chart: in every locale and on every system with a point and with exponents of at
// least two digits.

// The label of a tick: four significant digits, or " 1.23e+15 " for what is too large, too small, or needs an
// exponent; with the axis's unit, and one blank before and behind.
[[nodiscard]] std::string FormatTickLabel(const CAxis& axis, double value);

// "1.2345GHz": a coordinate with five significant digits and its unit.
[[nodiscard]] std::string FormatCoordinate(const CAxis& axis, double value);

// "1.2345GHz, 4.1234": both coordinates.
[[nodiscard]] std::string FormatReadOut(const CAxis& horizontal, const CAxis& vertical, DataPoint point);
