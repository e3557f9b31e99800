#pragma once

#include "chart/IScale.h"

// How many whole pixels a tick stands from the origin's, in the direction of growing values.
[[nodiscard]] double GetTickOffset(double tick, const AxisPlacement& placement);

// How many ticks lie between the origin and a pixel. Ticks stand on whole pixels, and between two of them
// the number is interpolated from one's pixel to the other's, so that it is whole on every tick.
[[nodiscard]] double GetTicksAtPixel(int pixel, const AxisPlacement& placement);
