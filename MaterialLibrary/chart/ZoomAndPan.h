#pragma once

#include "chart/CChartModel.h"

// What drags do to the axes' ranges. Rectangles are in client pixels, with edges in order.

// The requested ranges become what the rectangle encloses, within the axes' limits: where it is as wide or as
// high as the plot, exactly what is visible.
void ZoomIn(CChartModel& model, const PixelRect& rect);

// The requested ranges grow about the rectangle's centre, by as much as the rectangle is smaller than the
// plot. The rectangle has an area.
void ZoomOut(CChartModel& model, const PixelRect& rect);

// Keeps the visible ranges and shifts that a pan starts from.
void SaveRanges(CChartModel& model);

// Moves the saved ranges by whole ticks, and the pixels that are left over into the shifts. An axis that
// would leave its limits stays as it is.
void Pan(CChartModel& model, int dx, int dy);

// Moves all visible and requested ranges of a direction by whole ticks on the screen: to the right or
// downwards.
void MoveByTicks(CChartModel& model, Direction direction, int ticks);
