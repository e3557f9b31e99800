#pragma once

#include "chart/CChartModel.h"

#include <vector>

// The ticks of an axis over its visible range, each computed from its number.

// Tick intervals from the visible minimum to the visible maximum.
[[nodiscard]] int CountTickIntervals(const CAxis& axis, const IScale& scale);

// The value of tick `index`, counted from the visible minimum. What a pan's rounding leaves next to 0 is 0.
[[nodiscard]] double GetAxisTick(const CAxis& axis, const IScale& scale, int index);

// The ticks that stand inside the plot, which may be shifted by a part of an interval: the first and the last
// number.
struct TickRange
{
    int first = 0;
    int last = -1;
};
[[nodiscard]] TickRange GetDrawnTicks(const CChartModel& model, Direction direction, const CAxis& axis);

// Where the minor ticks of every interval stand: as parts of the step on a linear axis, as multiples of the
// decade's first value on a logarithmic one.
[[nodiscard]] std::vector<double> ListMinorParts(const CAxis& axis, const IScale& scale);

// The value of such a part of the interval that begins at tick `index`.
[[nodiscard]] double GetMinorTick(const CAxis& axis, const IScale& scale, int index, double part);
