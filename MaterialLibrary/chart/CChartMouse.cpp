#include "chart/CChartMouse.h"

#include "chart/CAxisMapping.h"
#include "chart/CurveSearch.h"
#include "chart/DragFeedback.h"
#include "chart/ZoomAndPan.h"

#include <cmath>
#include <cstdlib>

namespace
{
constexpr int smallestDrag = 1;  // pixels; a drag has to be longer
constexpr int smallestShift = 2; // pixels; a remainder has to be longer to be animated
constexpr std::uint32_t animationTime = 180;
constexpr std::uint32_t frameTime = 20;

PixelPoint Clamp(PixelPoint point)
{
    return {ClampPixel(point.x), ClampPixel(point.y)};
}

int GetSign(int number)
{
    return number > 0 ? 1 : number < 0 ? -1 : 0;
}

DataPoint GetValues(const CChartModel& model, const CurveAxes& axes, PixelPoint point)
{
    return {CAxisMapping(model, Direction::Horizontal, *axes.horizontal).GetValue(point.x),
            CAxisMapping(model, Direction::Vertical, *axes.vertical).GetValue(point.y)};
}

// An axis's shift on its way from a remainder to one whole tick.
struct ShiftPath
{
    explicit ShiftPath(const CAxis& axis)
        : start(axis.pixelShift), direction(GetSign(axis.pixelShift)),
          rest((GetTickPixels(axis) - std::abs(start)) * direction)
    {
    }

    [[nodiscard]] int GetShift(std::uint32_t elapsed) const
    {
        const std::int64_t moved = static_cast<std::int64_t>(elapsed) * rest / std::int64_t{animationTime};
        return static_cast<int>(moved) + start;
    }

    int start;
    int direction;
    int rest;
};
} // namespace

CChartMouse::CChartMouse(CChart& chart_, IChartHost& host_) : chart(chart_), host(host_) {}

void CChartMouse::OnButtonDown(PixelPoint point)
{
    point = Clamp(point);
    ChartInteraction& interaction = chart.GetInteraction();
    interaction.ClearReadOut();
    if (interaction.mode == MouseMode::pickCurve && interaction.buttonDown)
    {
        interaction.mode = MouseMode::pickPoint;
        LockPoint(point);
    }
    else if (interaction.mode == MouseMode::pickPoint)
    {
        PickPoint(point);
        interaction.mode = MouseMode::pickCurve;
    }
    else if (interaction.mode >= MouseMode::zoomIn && interaction.mode <= MouseMode::pan)
    {
        BeginDrag(point);
    }
    UpdateCursor();
}

void CChartMouse::OnMove(PixelPoint point)
{
    point = Clamp(point);
    ChartInteraction& interaction = chart.GetInteraction();
    UpdateCursor();
    if (interaction.mode == MouseMode::pickCurve && !interaction.buttonDown)
    {
        (void)chart.UpdateHover(point);
        host.InvalidateChart(false);
    }
    if (interaction.IsDraggingRectangle())
    {
        DrawFeedback(interaction.lastPoint);
        DrawFeedback(point);
    }
    else if (interaction.mode == MouseMode::pan && interaction.buttonDown)
    {
        Pan(chart.GetModel(), point.x - interaction.dragStart.x, point.y - interaction.dragStart.y);
        host.InvalidateChart(false);
        host.NotifyZoomChanged();
    }
    else
    {
        UpdateReadOut(point);
    }
    interaction.lastPoint = point;
}

void CChartMouse::OnButtonUp(PixelPoint point)
{
    point = Clamp(point);
    ChartInteraction& interaction = chart.GetInteraction();
    if (interaction.mode == MouseMode::pickCurve && !interaction.buttonDown)
    {
        interaction.buttonDown = chart.UpdateHover(point);
        chart.RestoreHoveredColour();
    }
    else if (interaction.IsDraggingRectangle())
    {
        EndRectangle(point);
    }
    else if (interaction.mode == MouseMode::pan && interaction.buttonDown)
    {
        EndPan();
    }
}

void CChartMouse::OnDoubleClick()
{
    chart.ResetZoom();
}

void CChartMouse::OnSize()
{
    chart.RecomputeLayout();
    chart.GetInteraction().lastPoint = {-1, -1};
}

void CChartMouse::UpdateCursor()
{
    const ChartInteraction& interaction = chart.GetInteraction();
    ChartCursor cursor = ChartCursor::Arrow;
    if (interaction.mode >= MouseMode::zoomIn && interaction.mode <= MouseMode::zoomInVertically)
    {
        cursor = ChartCursor::Zoom;
    }
    else if (interaction.mode == MouseMode::pan)
    {
        cursor = ChartCursor::Pan;
    }
    else if (interaction.IsPicking() && !interaction.buttonDown)
    {
        cursor = ChartCursor::Pick;
    }
    host.SetMouseCursor(cursor);
}

// The cross-hair stands where the click meets the curve.
void CChartMouse::LockPoint(PixelPoint point)
{
    ChartInteraction& interaction = chart.GetInteraction();
    const CChartModel& model = chart.GetModel();
    if (interaction.hoveredCurve < 0)
    {
        return;
    }
    if (const CurveAxes axes = model.GetCurveAxes(model.GetCurve(interaction.hoveredCurve)))
    {
        const double x = GetValues(model, axes, point).x;
        if (const std::optional<SnappedPoint> snapped = SnapToCurve(model, interaction.hoveredCurve, x))
        {
            interaction.lastPoint = Clamp(snapped->pixel);
        }
    }
}

void CChartMouse::PickPoint(PixelPoint point)
{
    const CChartModel& model = chart.GetModel();
    const std::int64_t curve = chart.GetInteraction().hoveredCurve;
    if (curve < 0)
    {
        return;
    }
    const CAxisCurve& entry = model.GetCurve(curve);
    const CurveAxes axes = model.GetCurveAxes(entry);
    if (!axes || pickListener == nullptr)
    {
        return;
    }
    const DataPoint clicked = GetValues(model, axes, point);
    if (const std::optional<SnappedPoint> snapped = SnapToCurve(model, curve, clicked.x))
    {
        pickListener->OnPointPicked(*entry.curve, clicked, snapped->value);
    }
}

void CChartMouse::BeginDrag(PixelPoint point)
{
    ChartInteraction& interaction = chart.GetInteraction();
    host.CaptureMouse();
    interaction.buttonDown = true;
    interaction.dragStart = point;
    interaction.lastPoint = point; // so the first feedback has nothing to erase
    SaveRanges(chart.GetModel());
}

void CChartMouse::DrawFeedback(PixelPoint to)
{
    const FeedbackLines feedback = GetDragFeedback(chart.GetInteraction(), chart.GetModel().frame.plot, to);
    host.DrawFeedback(feedback.Get(), feedbackColour);
}

void CChartMouse::UpdateReadOut(PixelPoint point)
{
    ChartInteraction& interaction = chart.GetInteraction();
    interaction.ClearReadOut();
    if (const std::optional<CurvePoint> nearest = FindNearestPoint(chart.GetModel(), point))
    {
        interaction.readOutCurve = nearest->curve;
        interaction.readOutPoint = nearest->point;
    }
    else
    {
        interaction.readOutCurve = HitTest(chart.GetModel(), point);
    }
    interaction.readOutPosition = point;
    host.InvalidateChart(false);
}

void CChartMouse::EndRectangle(PixelPoint point)
{
    ChartInteraction& interaction = chart.GetInteraction();
    CChartModel& model = chart.GetModel();
    DrawFeedback(interaction.lastPoint); // erases it
    const PixelRect rect = GetDragRectangle(interaction, model.frame.plot, point);
    const bool far = std::abs(point.x - interaction.dragStart.x) > smallestDrag &&
                     std::abs(point.y - interaction.dragStart.y) > smallestDrag;
    host.ReleaseMouse();
    interaction.buttonDown = false;
    if (!far)
    {
        return;
    }
    if (interaction.mode == MouseMode::zoomOut)
    {
        ZoomOut(model, rect);
    }
    else
    {
        ZoomIn(model, rect);
    }
    chart.RecomputeLayout();
    host.NotifyZoomChanged();
    host.InvalidateChart(false);
}

void CChartMouse::EndPan()
{
    host.ReleaseMouse();
    chart.GetInteraction().buttonDown = false;
    CChartModel& model = chart.GetModel();
    if (model.HasOneAxisPair())
    {
        const auto isShifted = [&model](Direction direction)
        { return std::abs(model.GetAxis(direction, 0).pixelShift) > smallestShift; };
        if (isShifted(Direction::Horizontal) || isShifted(Direction::Vertical))
        {
            AnimateToWholeTick();
        }
    }
    for (const Direction direction : {Direction::Horizontal, Direction::Vertical})
    {
        for (CAxis& axis : model.GetAxes(direction))
        {
            axis.pixelShift = 0;
        }
    }
    host.InvalidateChart(false);
}

void CChartMouse::AnimateToWholeTick()
{
    CChartModel& model = chart.GetModel();
    CAxis& horizontal = model.GetAxes(Direction::Horizontal).front();
    CAxis& vertical = model.GetAxes(Direction::Vertical).front();
    const ShiftPath horizontalPath(horizontal);
    const ShiftPath verticalPath(vertical);

    const std::uint32_t start = host.GetMilliseconds();
    std::uint32_t lastFrame = start;
    for (std::uint32_t now = start; now - start < animationTime; now = host.GetMilliseconds())
    {
        if (now - lastFrame < frameTime)
        {
            host.SleepMilliseconds(1);
            continue;
        }
        lastFrame = now;
        horizontal.pixelShift = horizontalPath.GetShift(now - start);
        vertical.pixelShift = verticalPath.GetShift(now - start);
        host.InvalidateChart(false);
        host.UpdateNow();
    }
    MoveByTicks(model, Direction::Horizontal, horizontalPath.direction);
    MoveByTicks(model, Direction::Vertical, verticalPath.direction);
}
