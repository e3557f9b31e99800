#pragma once

#include "chart/CChartModel.h"
#include "chart/ITextMeasure.h"

// Distributes a client area: the plot, and around it room for the widest labels, the titles, the legend and
// the read-outs; then each axis's visible range from tick to tick, its step and its scale. Requested ranges
// that cannot be drawn are widened. Comes to an end for every range and every size.
void LayOutChart(CChartModel& model, PixelRect client, ITextMeasure& measure);
