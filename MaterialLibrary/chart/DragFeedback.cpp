#include "chart/DragFeedback.h"

PixelRect GetDragRectangle(const ChartInteraction& interaction, const PixelRect& plot, PixelPoint to)
{
    const PixelPoint from = interaction.dragStart;
    PixelRect rect = {std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x),
                      std::max(from.y, to.y)};
    if (interaction.mode == MouseMode::zoomInHorizontally)
    {
        rect.top = plot.top;
        rect.bottom = plot.bottom;
    }
    if (interaction.mode == MouseMode::zoomInVertically)
    {
        rect.left = plot.left;
        rect.right = plot.right;
    }
    return rect;
}

FeedbackLines GetDragFeedback(const ChartInteraction& interaction, const PixelRect& plot, PixelPoint to)
{
    const PixelRect rect = GetDragRectangle(interaction, plot, to);
    const auto getCorners = [](const PixelRect& r) -> std::array<PixelPoint, 4> {
        return {{{r.left, r.top}, {r.right, r.top}, {r.right, r.bottom}, {r.left, r.bottom}}};
    };
    const std::array<PixelPoint, 4> corners = getCorners(rect);
    FeedbackLines feedback;
    if (to == interaction.dragStart)
    {
        return feedback;
    }
    for (std::size_t i = 0; i < corners.size(); ++i)
    {
        feedback.lines[feedback.count++] = {corners[i], corners[(i + 1) % corners.size()]};
    }
    if (interaction.mode == MouseMode::zoomOut && rect.GetWidth() > 1 && rect.GetHeight() > 1)
    {
        const std::array<PixelPoint, 4> plotCorners = getCorners(plot);
        for (std::size_t i = 0; i < corners.size(); ++i)
        {
            feedback.lines[feedback.count++] = {corners[i], plotCorners[i]};
        }
    }
    return feedback;
}
