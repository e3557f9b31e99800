#include "chart/CChart.h"

#include "chart/ChartLayout.h"
#include "chart/CurveSearch.h"
#include "chart/DragFeedback.h"
#include "chart/PaintChart.h"

CChart::CChart(IChartHost& host_) : host(host_)
{
    model.AddAxis(0, false);
    model.AddAxis(1, true);
}

std::int64_t CChart::AddCurve(CChartCurve& curve, std::int32_t horizontalAxis, std::int32_t verticalAxis)
{
    interaction.ClearReadOut();
    return model.AddCurve(curve, horizontalAxis, verticalAxis);
}

void CChart::RemoveCurves()
{
    RestoreHoveredColour();
    interaction.hoveredCurve = -1;
    if (interaction.IsPicking())
    {
        interaction.buttonDown = false;
        interaction.mode = MouseMode::pickCurve;
    }
    interaction.ClearReadOut();
    model.RemoveCurves();
}

void CChart::RecomputeLayout()
{
    const std::optional<PixelRect> client = host.GetClientArea();
    ITextMeasure* const measure = host.GetTextMeasure();
    if (client && measure != nullptr)
    {
        LayOutChart(model, *client, *measure);
    }
}

void CChart::ResetZoom()
{
    model.ResetRanges();
    RecomputeLayout();
    host.NotifyZoomChanged();
    host.InvalidateChart(true);
}

bool CChart::UpdateHover(PixelPoint point)
{
    const std::int64_t hit = HitTest(model, point);
    if (hit != interaction.hoveredCurve)
    {
        RestoreHoveredColour();
        interaction.hoveredCurve = hit;
        if (hit >= 0)
        {
            Colour& colour = model.GetCurve(hit).curve->colour;
            interaction.hoveredColour = colour;
            colour = style.highlight;
        }
        host.InvalidateChart(false);
    }
    return hit >= 0;
}

void CChart::RestoreHoveredColour()
{
    if (interaction.hoveredCurve < 0)
    {
        return;
    }
    Colour& colour = model.GetCurve(interaction.hoveredCurve).curve->colour;
    if (colour == style.highlight) // else the owner has given the curve another one meanwhile
    {
        colour = interaction.hoveredColour;
    }
}

void CChart::Paint(const PixelRect& client, ICanvas& canvas) const
{
    PaintChart({model, style, interaction, client}, canvas);
    // The window may be painted in the middle of a drag, whose next feedback first erases this one.
    if (interaction.IsDraggingRectangle())
    {
        const FeedbackLines feedback = GetDragFeedback(interaction, model.frame.plot, interaction.lastPoint);
        canvas.DrawXorLines(feedback.Get(), feedbackColour);
    }
}
