#pragma once

#include "chart/Geometry.h"
#include "chart/Scale.h"

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// A visible range that a zoom has left as it was, on a plot of so many pixels.
struct KeptRange
{
    double min = 0.0;
    double max = 0.0;
    double tickStep = 0.0;
    int pixels = 0; // 0: there is none
};

// One axis of a chart. The order of the members is kept.
struct CAxis
{
    double dataMin = 0.0; // around the curves bound to the axis
    double dataMax = 0.0;
    double visibleMin = 0.0; // what is drawn: set by the layout, from tick to tick
    double visibleMax = 0.0;
    double requestedMin = 0.0; // what is asked for: changed by zooming, the data range after a reset
    double requestedMax = 0.0;
    double lowerLimit = std::numeric_limits<double>::lowest(); // above 0 for a logarithmic axis
    double upperLimit = std::numeric_limits<double>::max();
    double tickStep = 0.0; // in decades on a logarithmic axis
    double scale = 0.0;    // pixels per unit, or per decade
    double savedVisibleMin = 0.0;
    double savedVisibleMax = 0.0;
    std::int32_t pixelShift = 0; // what a pan has left over of a whole tick
    std::int32_t savedPixelShift = 0;
    std::string unit;
    std::string title;
    bool automaticPrefix = true; // labels take a unit prefix by magnitude
    Colour axisColour = 0xFFFFFF;
    Colour gridColour = 0x808080;
    std::int32_t minorTicks = 1; // 0 leaves them out
    std::int32_t identifier = -1;
    KeptRange kept;
    bool prefixFromFactor = false; // 1000 is 1k already
};

// What a chart draws as one curve. The caller owns it and keeps it alive as long as a chart shows it. The
// order of the members is kept.
struct CChartCurve
{
    std::vector<DataPoint> points;
    DataRect bounds; // the owner keeps it current: UpdateBounds after every change of the points
    Colour colour = 0;
    std::int32_t lineStyle = -1; // a PenStyle, or negative: solid lines, and markers where the chart has them
    std::int64_t markerShape = 0; // 0 a square, otherwise a diamond
    std::string name;
    std::vector<std::string> pointLabels; // one per point, or fewer
    bool straightInData = false;          // joined as it is searched: bent where pixels stand for logarithms
    bool thin = false;                    // one pixel wide, whatever the chart's lines are

    // Sets the bounds around all points with finite coordinates; without any they are all 0.
    void UpdateBounds();

    // std::out_of_range "invalid vector<T> subscript" for an index beyond the points.
    [[nodiscard]] const DataPoint& GetPoint(std::int32_t index) const;

    // Empty for a point that has no label, and for -1.
    [[nodiscard]] std::string_view GetPointLabel(std::int32_t index) const;
};

// A curve of a chart and the axes it is drawn against.
struct CAxisCurve
{
    CChartCurve* curve = nullptr; // not owned
    std::int32_t horizontalAxis = 0;
    std::int32_t verticalAxis = 0;
};

struct CLegendEntry
{
    Colour colour = 0;
    std::string name;
    std::vector<std::int64_t> curves{}; // their values under the mouse stand behind the name
};

// Where things stand in the window, as the last layout left it.
struct ChartFrame
{
    PixelRect plot;
    int lineHeight = 0;
    int widestHorizontalLabel = 0;
    int widestVerticalLabel = 0;

    // The tick labels of the horizontal axes: lowered so that the digits at the plot's corner stay clear of
    // those of the vertical axis.
    [[nodiscard]] int GetTickLabelTop() const { return plot.bottom + (3 * lineHeight + 3) / 8; }
    // Their titles, in the middle between the labels and the legend.
    [[nodiscard]] int GetTitleTop() const { return plot.bottom + lineHeight + lineHeight / 8; }
};

// The axes a curve is drawn against; null for one that the chart does not have.
struct CurveAxes
{
    const CAxis* horizontal = nullptr;
    const CAxis* vertical = nullptr;

    explicit operator bool() const { return horizontal != nullptr && vertical != nullptr; }
};

// What a chart shows: axes in two directions, curves bound to them, a legend. It knows no window, no mouse
// and no colours but those of its parts. Axes and curves are found by identifier from the last to the first.
class CChartModel
{
public:
    // Nothing happens where an axis of either direction has the identifier already.
    void AddAxis(std::int32_t identifier, bool vertical);

    // Also gives the axis its first colours back. Nothing happens without such an axis.
    void SetAxisTitle(std::int32_t identifier, std::string_view title, std::string_view unit);
    void ClearAutomaticPrefix(std::int32_t identifier);

    // Horizontal axes first; null where there is none.
    [[nodiscard]] CAxis* FindAxis(std::int32_t identifier);
    [[nodiscard]] const CAxis* FindAxis(std::int32_t identifier) const;
    [[nodiscard]] CAxis* FindAxis(Direction direction, std::int32_t identifier);
    [[nodiscard]] const CAxis* FindAxis(Direction direction, std::int32_t identifier) const;

    [[nodiscard]] std::span<CAxis> GetAxes(Direction direction);
    [[nodiscard]] std::span<const CAxis> GetAxes(Direction direction) const;
    // std::invalid_argument beyond the array.
    [[nodiscard]] const CAxis& GetAxis(Direction direction, std::int64_t index) const;
    // Calls visit(axis, scale, direction) for each, horizontal ones first.
    template <typename Visit>
    void ForEachAxis(Visit visit)
    {
        for (const Direction direction : directions)
        {
            for (CAxis& axis : GetAxes(direction))
            {
                visit(axis, GetScale(direction), direction);
            }
        }
    }
    [[nodiscard]] bool HasOneAxisPair() const { return oneAxisPair; }

    // Binds the curve to the horizontal axis 0, whatever is asked for, and to the vertical axis. The curve
    // stays the caller's and must outlive its use here. Returns its index.
    std::int64_t AddCurve(CChartCurve& curve, std::int32_t horizontalAxis, std::int32_t verticalAxis);
    void RemoveCurves();
    // After the owner has changed curves: the axes' data ranges are rebuilt from the curves' bounds, of a
    // curve without points too. Without any curve they and the requested ranges are 0.
    void RebuildDataRanges();

    [[nodiscard]] std::int64_t GetCurveCount() const { return static_cast<std::int64_t>(curves.size()); }
    // std::invalid_argument beyond the array.
    [[nodiscard]] const CAxisCurve& GetCurve(std::int64_t index) const;
    [[nodiscard]] CurveAxes GetCurveAxes(const CAxisCurve& curve) const;

    [[nodiscard]] std::vector<CLegendEntry>& GetLegend() { return legend; }
    [[nodiscard]] const std::vector<CLegendEntry>& GetLegend() const { return legend; }

    // A direction becomes logarithmic only where it may be, and is linear otherwise. All axes of both
    // directions go back to their data range.
    void SetScaleMode(bool horizontalLogarithmic, bool verticalLogarithmic);
    // Whether every axis of the direction has a lower limit above 0.
    [[nodiscard]] bool MayBeLogarithmic(Direction direction) const;
    [[nodiscard]] const IScale& GetScale(Direction direction) const;

    // The visible range and one tick step more on each side, within the data range. False, with the outputs
    // untouched, without such an axis.
    bool GetAxisRange(std::int32_t identifier, double& lo, double& hi) const;

    // Back to the data ranges: what a layout draws next.
    void ResetRanges();

    ChartFrame frame;

private:
    std::vector<CAxisCurve> curves;
    std::vector<CAxis> horizontalAxes;
    std::vector<CAxis> verticalAxes;
    bool oneAxisPair = false;
    std::vector<CLegendEntry> legend;
    const IScale* horizontalScale = &::GetScale(false);
    const IScale* verticalScale = &::GetScale(false);
};
