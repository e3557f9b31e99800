#pragma once

#include "chart/CAxis.h"
#include "chart/CAxisCurve.h"
#include "chart/CLegendEntry.h"
#include "chart/IScale.h"

#include <span>
#include <string_view>
#include <vector>

// Where things stand in the window, as the last layout left it.
struct ChartFrame
{
    PixelRect plot;
    int lineHeight = 0;
    int widestHorizontalLabel = 0;
    int widestVerticalLabel = 0;

    // The tick labels of the horizontal axes: lowered so that the digits at the plot's corner stay below
    // those of the vertical axis.
    [[nodiscard]] int GetTickLabelTop() const { return plot.bottom + lineHeight / 4; }
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
    [[nodiscard]] bool HasOneAxisPair() const { return oneAxisPair; }

    // Binds the curve to the horizontal axis 0, whatever is asked for, and to the vertical axis. The curve
    // stays the caller's and must outlive its use here. Returns its index.
    std::int64_t AddCurve(CChartCurve& curve, std::int32_t horizontalAxis, std::int32_t verticalAxis);
    void RemoveCurves();
    // After the owner has changed curves: the axes' data ranges are rebuilt from the curves' bounds. Without
    // any curve they and the requested ranges are 0.
    void RebuildDataRanges();

    [[nodiscard]] std::int64_t GetCurveCount() const { return static_cast<std::int64_t>(curves.size()); }
    // std::invalid_argument beyond the array.
    [[nodiscard]] const CAxisCurve& GetCurve(std::int64_t index) const;
    [[nodiscard]] CurveAxes GetCurveAxes(const CAxisCurve& curve) const;

    [[nodiscard]] std::vector<CLegendEntry>& GetLegend() { return legend; }
    [[nodiscard]] const std::vector<CLegendEntry>& GetLegend() const { return legend; }

    // A direction becomes logarithmic only where every axis of it has a lower limit above 0, and is linear
    // otherwise. All axes of both directions go back to their data range.
    void SetScaleMode(bool horizontalLogarithmic, bool verticalLogarithmic);
    [[nodiscard]] const IScale& GetScale(Direction direction) const;

    // The visible range and one tick step more on each side, within the data range. False, with the outputs
    // untouched, without such an axis.
    bool GetAxisRange(std::int32_t identifier, double& lo, double& hi) const;

    // Back to the data ranges: what a layout draws next.
    void ResetRanges();

    ChartFrame frame;

private:
    [[nodiscard]] bool MayBeLogarithmic(Direction direction) const;

    std::vector<CAxisCurve> curves;
    std::vector<CAxis> horizontalAxes;
    std::vector<CAxis> verticalAxes;
    bool oneAxisPair = false;
    std::vector<CLegendEntry> legend;
    const IScale* horizontalScale = &::GetScale(false);
    const IScale* verticalScale = &::GetScale(false);
};
