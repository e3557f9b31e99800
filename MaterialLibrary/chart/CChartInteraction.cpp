#include "chart/CChartInteraction.h"

#include "chart/CAxisMapping.h"
#include "chart/CurveSearch.h"
#include "chart/ZoomAndPan.h"

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

std::array<PixelPoint, 4> GetCorners(const PixelRect& rect)
{
    return {
        {{rect.left, rect.top}, {rect.right, rect.top}, {rect.right, rect.bottom}, {rect.left, rect.bottom}}};
}
} // namespace

void CFeedbackLines::Add(const CFeedbackLines& others)
{
    for (const PixelLine& line : others.Get())
    {
        Add(line);
    }
}

bool CChartInteraction::IsPicking() const
{
    return mode == MouseMode::pickCurve || mode == MouseMode::pickPoint;
}

bool CChartInteraction::IsZooming() const
{
    return mode >= MouseMode::zoomIn && mode <= MouseMode::zoomInVertically;
}

ChartResponse CChartInteraction::SetMode(std::int32_t newMode)
{
    ChartResponse response;
    if (newMode == mode)
    {
        return response;
    }
    response.feedback = GetFeedback(); // erases it
    if (IsDraggingRectangle() || IsPanning())
    {
        response.capture = false;
    }
    if (IsPanning() || animation)
    {
        ClearShifts();
        animation.reset();
        response.repaints = true;
    }
    if (hoveredCurve >= 0)
    {
        RestoreHoveredColour();
        hoveredCurve = -1;
        response.repaints = true;
    }
    buttonDown = false;
    mode = newMode;
    return response;
}

ChartResponse CChartInteraction::OnButtonDown(PixelPoint point)
{
    point = Clamp(point);
    ChartResponse response;
    ClearReadOut();
    if (mode == MouseMode::pickCurve && buttonDown)
    {
        mode = MouseMode::pickPoint;
        LockPoint(point);
    }
    else if (mode == MouseMode::pickPoint)
    {
        PickPoint(point);
        if (mode == MouseMode::pickPoint) // the listener may have changed it
        {
            mode = MouseMode::pickCurve;
        }
    }
    else if (IsZooming() || mode == MouseMode::pan)
    {
        BeginDrag(point);
        response.capture = true;
    }
    response.cursor = GetCursor();
    return response;
}

ChartResponse CChartInteraction::OnMove(PixelPoint point)
{
    point = Clamp(point);
    ChartResponse response;
    response.cursor = GetCursor();
    response.repaints = !IsDraggingRectangle() && !IsPanning();
    if (mode == MouseMode::pickCurve && !buttonDown)
    {
        (void)UpdateHover(point);
    }
    if (IsDraggingRectangle())
    {
        response.feedback = GetFeedback();
        response.feedback.Add(GetFeedbackTo(point));
    }
    else if (IsPanning())
    {
        Pan(model, point.x - dragStart.x, point.y - dragStart.y);
        response.ranges = RangeChange::Panned;
    }
    else
    {
        UpdateReadOut(point);
    }
    lastPoint = point;
    return response;
}

ChartResponse CChartInteraction::OnButtonUp(PixelPoint point)
{
    point = Clamp(point);
    if (IsDraggingRectangle())
    {
        return EndRectangle(point);
    }
    if (IsPanning())
    {
        return EndPan();
    }
    ChartResponse response;
    if (mode == MouseMode::pickCurve && !buttonDown)
    {
        const std::int64_t before = hoveredCurve;
        buttonDown = UpdateHover(point);
        RestoreHoveredColour();
        response.repaints = hoveredCurve != before;
    }
    return response;
}

ChartCursor CChartInteraction::GetCursor() const
{
    if (IsZooming())
    {
        return ChartCursor::Zoom;
    }
    if (mode == MouseMode::pan)
    {
        return ChartCursor::Pan;
    }
    return IsPicking() && !buttonDown ? ChartCursor::Pick : ChartCursor::Arrow;
}

ChartPointer CChartInteraction::GetPointer() const
{
    return {.mouse = lastPoint,
            .showsReadOuts = mode != MouseMode::pan,
            .lockedCurve = IsPicking() && buttonDown ? hoveredCurve : -1,
            .labelledCurve = readOutCurve,
            .labelledPoint = readOutPoint,
            .labelPosition = readOutPosition};
}

void CChartInteraction::BeginDrag(PixelPoint point)
{
    buttonDown = true;
    dragStart = point;
    lastPoint = point; // so the first feedback has nothing to erase
    SaveRanges(model);
}

// The rectangle from the drag's start to a point, as the mode takes it: as high as the plot when zooming
// horizontally only, as wide when vertically only. Its edges are in order.
PixelRect CChartInteraction::GetDragRectangle(PixelPoint to) const
{
    const PixelRect& plot = model.frame.plot;
    PixelRect rect = {std::min(dragStart.x, to.x), std::min(dragStart.y, to.y), std::max(dragStart.x, to.x),
                      std::max(dragStart.y, to.y)};
    if (mode == MouseMode::zoomInHorizontally)
    {
        rect.top = plot.top;
        rect.bottom = plot.bottom;
    }
    if (mode == MouseMode::zoomInVertically)
    {
        rect.left = plot.left;
        rect.right = plot.right;
    }
    return rect;
}

CFeedbackLines CChartInteraction::GetFeedback() const
{
    return IsDraggingRectangle() ? GetFeedbackTo(lastPoint) : CFeedbackLines();
}

// The rectangle to a point, when zooming out also how the plot's corners move. Nothing where the drag starts.
CFeedbackLines CChartInteraction::GetFeedbackTo(PixelPoint to) const
{
    CFeedbackLines feedback;
    if (to == dragStart)
    {
        return feedback;
    }
    const PixelRect rect = GetDragRectangle(to);
    const std::array<PixelPoint, 4> corners = GetCorners(rect);
    for (std::size_t i = 0; i < corners.size(); ++i)
    {
        feedback.Add({corners[i], corners[(i + 1) % corners.size()]});
    }
    if (mode == MouseMode::zoomOut && rect.GetWidth() > 1 && rect.GetHeight() > 1)
    {
        const std::array<PixelPoint, 4> plotCorners = GetCorners(model.frame.plot);
        for (std::size_t i = 0; i < corners.size(); ++i)
        {
            feedback.Add({corners[i], plotCorners[i]});
        }
    }
    return feedback;
}

ChartResponse CChartInteraction::EndRectangle(PixelPoint point)
{
    ChartResponse response;
    response.feedback = GetFeedback(); // erases it
    response.capture = false;
    buttonDown = false;
    if (std::abs(point.x - dragStart.x) > smallestDrag && std::abs(point.y - dragStart.y) > smallestDrag)
    {
        const PixelRect rect = GetDragRectangle(point);
        mode == MouseMode::zoomOut ? ZoomOut(model, rect) : ZoomIn(model, rect);
        response.ranges = RangeChange::Zoomed;
    }
    return response;
}

ChartResponse CChartInteraction::EndPan()
{
    buttonDown = false;
    animation.reset();
    if (model.HasOneAxisPair())
    {
        const auto getPath = [](const CAxis& axis) -> ShiftPath
        {
            const int start = axis.pixelShift;
            const int direction = start > 0 ? 1 : start < 0 ? -1 : 0;
            return {start, direction, (GetTickPixels(axis) - std::abs(start)) * direction};
        };
        const PanAnimation run = {getPath(model.GetAxis(Direction::Horizontal, 0)),
                                  getPath(model.GetAxis(Direction::Vertical, 0)), 0};
        if (std::abs(run.horizontal.start) > smallestShift || std::abs(run.vertical.start) > smallestShift)
        {
            animation = run;
        }
    }
    if (!animation)
    {
        ClearShifts();
    }
    ChartResponse response;
    response.capture = false;
    response.animates = animation.has_value();
    response.repaints = true;
    return response;
}

AnimationStep CChartInteraction::Animate(std::uint32_t elapsed)
{
    if (!animation)
    {
        return AnimationStep::Ended;
    }
    if (elapsed >= animationTime)
    {
        MoveByTicks(model, Direction::Horizontal, animation->horizontal.direction);
        MoveByTicks(model, Direction::Vertical, animation->vertical.direction);
        ClearShifts();
        animation.reset();
        return AnimationStep::Ended;
    }
    if (elapsed - animation->lastFrame < frameTime)
    {
        return AnimationStep::Wait;
    }
    animation->lastFrame = elapsed;
    const auto getShift = [elapsed](const ShiftPath& path) {
        return static_cast<int>(std::int64_t{elapsed} * path.rest / std::int64_t{animationTime}) + path.start;
    };
    model.GetAxes(Direction::Horizontal).front().pixelShift = getShift(animation->horizontal);
    model.GetAxes(Direction::Vertical).front().pixelShift = getShift(animation->vertical);
    return AnimationStep::Show;
}

void CChartInteraction::ClearShifts()
{
    model.ForEachAxis([](CAxis& axis, const IScale&, Direction) { axis.pixelShift = 0; });
}

// Highlights the curve under the point, when it is another than before. Whether one is highlighted.
bool CChartInteraction::UpdateHover(PixelPoint point)
{
    const std::int64_t hit = HitTest(model, point);
    if (hit != hoveredCurve)
    {
        RestoreHoveredColour();
        hoveredCurve = hit;
        if (hit >= 0)
        {
            Colour& colour = model.GetCurve(hit).curve->colour;
            hoveredColour = colour;
            colour = style.highlight;
        }
    }
    return hit >= 0;
}

void CChartInteraction::RestoreHoveredColour()
{
    if (hoveredCurve < 0)
    {
        return;
    }
    Colour& colour = model.GetCurve(hoveredCurve).curve->colour;
    if (colour == style.highlight) // else the owner has given the curve another one meanwhile
    {
        colour = hoveredColour;
    }
}

void CChartInteraction::ClearReadOut()
{
    readOutCurve = -1;
    readOutPoint = -1;
}

void CChartInteraction::ForgetCurves()
{
    RestoreHoveredColour();
    hoveredCurve = -1;
    if (IsPicking())
    {
        buttonDown = false;
        mode = MouseMode::pickCurve;
    }
    ClearReadOut();
}

void CChartInteraction::UpdateReadOut(PixelPoint point)
{
    ClearReadOut();
    if (const std::optional<CurvePoint> nearest = FindNearestPoint(model, point))
    {
        readOutCurve = nearest->curve;
        readOutPoint = nearest->point;
    }
    else
    {
        readOutCurve = HitTest(model, point);
    }
    readOutPosition = point;
}

// The cross-hair stands where the click meets the curve.
void CChartInteraction::LockPoint(PixelPoint point)
{
    if (hoveredCurve < 0)
    {
        return;
    }
    if (const CurveAxes axes = model.GetCurveAxes(model.GetCurve(hoveredCurve)))
    {
        const double x = CurveMapping(model, axes).GetValue(point).x;
        if (const std::optional<SnappedPoint> snapped = SnapToCurve(model, hoveredCurve, x))
        {
            lastPoint = Clamp(snapped->pixel);
        }
    }
}

void CChartInteraction::PickPoint(PixelPoint point) const
{
    if (hoveredCurve < 0 || pickListener == nullptr)
    {
        return;
    }
    const CAxisCurve& entry = model.GetCurve(hoveredCurve);
    if (const CurveAxes axes = model.GetCurveAxes(entry))
    {
        const DataPoint clicked = CurveMapping(model, axes).GetValue(point);
        if (const std::optional<SnappedPoint> snapped = SnapToCurve(model, hoveredCurve, clicked.x))
        {
            pickListener->OnPointPicked(*entry.curve, clicked, snapped->value);
        }
    }
}
