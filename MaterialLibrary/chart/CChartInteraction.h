#pragma once

#include "chart/PaintChart.h"

#include <array>
#include <optional>

// What the left mouse button does; any other number is no interaction.
struct MouseMode
{
    static constexpr std::int32_t zoomIn = 1;
    static constexpr std::int32_t zoomOut = 2; // the plot is squeezed into the rectangle
    static constexpr std::int32_t zoomInHorizontally = 3;
    static constexpr std::int32_t zoomInVertically = 4;
    static constexpr std::int32_t pan = 5;
    static constexpr std::int32_t pickCurve = 6; // waiting for a click on a curve
    static constexpr std::int32_t pickPoint = 7; // on the curve that was clicked
};

enum class ChartCursor
{
    Arrow,
    Zoom,
    Pan,
    Pick
};

// Is told what the user picks in the pick modes.
class IPickListener
{
public:
    // `clicked` is where the user clicked, in data values; `picked` is the point of the curve at its x.
    virtual void OnPointPicked(const CChartCurve& curve, const DataPoint& clicked,
                               const DataPoint& picked) = 0;

protected:
    ~IPickListener() = default;
};

inline constexpr Colour feedbackColour = 0x5C5C5C;

// Lines that show a drag. They are drawn by exclusive or: the same lines again erase them.
class CFeedbackLines
{
public:
    void Add(const PixelLine& line) { lines[count++] = line; }
    void Add(const CFeedbackLines& others);
    [[nodiscard]] std::span<const PixelLine> Get() const { return {lines.data(), count}; }

private:
    std::array<PixelLine, 16> lines; // a rectangle and the lines to its corners, before a move and after it
    std::size_t count = 0;
};

enum class RangeChange
{
    None,
    Panned, // shown by painting again; then the parent is told
    Zoomed  // shown by a layout; then the parent is told, then the window is painted again
};

// What the window is to do when the mouse has done something, in this order.
struct ChartResponse
{
    std::optional<ChartCursor> cursor; // shows it
    CFeedbackLines feedback;           // draws it at once
    std::optional<bool> capture;       // captures the mouse or releases it
    bool animates = false;             // calls Animate until it has ended
    RangeChange ranges = RangeChange::None;
    bool repaints = false; // paints all of it again, later, without erasing
};

enum class AnimationStep
{
    Wait, // a millisecond
    Show, // by painting at once
    Ended
};

// What the left mouse button does to a chart: zooms, pans, picks points; and what moving the mouse shows: the
// highlighted curve, the read-out, the drag's rectangle. Points are in client pixels and may lie outside the
// window while the mouse is captured.
class CChartInteraction
{
public:
    // Neither is owned.
    CChartInteraction(CChartModel& model_, const ChartStyle& style_) : model(model_), style(style_) {}
    CChartInteraction(const CChartInteraction&) = delete;
    CChartInteraction& operator=(const CChartInteraction&) = delete;
    ~CChartInteraction() = default;

    // A MouseMode; zooming in at first. A change ends whatever was going on: a drag leads to nothing, a
    // highlighted or locked curve is so no longer.
    [[nodiscard]] ChartResponse SetMode(std::int32_t newMode);
    [[nodiscard]] std::int32_t GetMode() const { return mode; }
    // Null for none; not owned.
    void SetPickListener(IPickListener* listener) { pickListener = listener; }

    [[nodiscard]] ChartResponse OnButtonDown(PixelPoint point);
    [[nodiscard]] ChartResponse OnMove(PixelPoint point);
    [[nodiscard]] ChartResponse OnButtonUp(PixelPoint point);
    // Runs on from where a pan was released to the next tick: to be called again and again with the
    // milliseconds since the release.
    [[nodiscard]] AnimationStep Animate(std::uint32_t elapsed);

    // The mouse is nowhere until it moves.
    void ForgetMouse() { lastPoint = nowhere; }
    void ClearReadOut();
    // Before the model's curves go.
    void ForgetCurves();

    [[nodiscard]] ChartPointer GetPointer() const;
    // What the window shows of a drag now.
    [[nodiscard]] CFeedbackLines GetFeedback() const;

private:
    static constexpr PixelPoint nowhere = {-1, -1};

    // An axis's shift on its way from a remainder to one whole tick.
    struct ShiftPath
    {
        int start = 0;
        int direction = 0;
        int rest = 0;
    };
    struct PanAnimation
    {
        ShiftPath horizontal;
        ShiftPath vertical;
        std::uint32_t lastFrame = 0;
    };

    [[nodiscard]] bool IsPicking() const;
    [[nodiscard]] bool IsZooming() const;
    [[nodiscard]] bool IsDraggingRectangle() const { return buttonDown && IsZooming(); }
    [[nodiscard]] bool IsPanning() const { return buttonDown && mode == MouseMode::pan; }
    [[nodiscard]] ChartCursor GetCursor() const;
    void BeginDrag(PixelPoint point);
    [[nodiscard]] PixelRect GetDragRectangle(PixelPoint to) const;
    [[nodiscard]] CFeedbackLines GetFeedbackTo(PixelPoint to) const;
    [[nodiscard]] ChartResponse EndRectangle(PixelPoint point);
    [[nodiscard]] ChartResponse EndPan();
    void ClearShifts();
    bool UpdateHover(PixelPoint point);
    void RestoreHoveredColour();
    void UpdateReadOut(PixelPoint point);
    void LockPoint(PixelPoint point);
    void PickPoint(PixelPoint point) const;

    CChartModel& model;
    const ChartStyle& style;
    IPickListener* pickListener = nullptr;
    std::int32_t mode = MouseMode::zoomIn;
    bool buttonDown = false; // of a drag; in the pick modes: a curve is locked
    PixelPoint dragStart;
    PixelPoint lastPoint = nowhere;
    std::int64_t readOutCurve = -1;
    std::int32_t readOutPoint = -1; // -1: the curve as a whole
    PixelPoint readOutPosition;
    std::int64_t hoveredCurve = -1;
    Colour hoveredColour = 0; // what the hovered curve had before it was highlighted
    std::optional<PanAnimation> animation;
};
