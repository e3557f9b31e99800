#pragma once

#include "chart/ChartInteraction.h"

#include <array>
#include <span>

inline constexpr Colour feedbackColour = 0x5C5C5C;

struct FeedbackLines
{
    std::array<PixelLine, 8> lines;
    std::size_t count = 0;

    [[nodiscard]] std::span<const PixelLine> Get() const { return {lines.data(), count}; }
};

// The rectangle from the drag's start to a point, as the mode takes it: as high as the plot when zooming
// horizontally only, as wide when vertically only. Its edges are in order.
[[nodiscard]] PixelRect GetDragRectangle(const ChartInteraction& interaction, const PixelRect& plot,
                                         PixelPoint to);

// What is drawn on the window to show that rectangle, when zooming out also how the plot's corners move.
// Nothing where the drag starts.
[[nodiscard]] FeedbackLines GetDragFeedback(const ChartInteraction& interaction, const PixelRect& plot,
                                            PixelPoint to);
