#pragma once

#include "chart/PaintChart.h"

#include <string>
#include <vector>

struct PlacedText
{
    std::string text;
    PixelPoint topLeft;
    int tick = 0; // which tick a label belongs to
};

// The labels of the drawn ticks, for every axis of the direction in order. Horizontal axes have them below
// the plot, vertical ones of even index on its left, of odd index on its right. Every so manyth tick has one,
// counted from value 0, so that a pan does not change which. Where several axes share a side, the first one
// leaves room for the others, whose labels stand between.
[[nodiscard]] std::vector<std::vector<PlacedText>>
PlaceTickLabels(const ChartScene& scene, Direction direction, ITextMeasure& measure);

// The titles, one per axis in order. Horizontal axes have theirs in the row below the tick labels, at its
// right end; vertical axes above the plot, on the side where their labels stand.
[[nodiscard]] std::vector<PlacedText> PlaceTitles(const ChartScene& scene, Direction direction,
                                                  ITextMeasure& measure);
