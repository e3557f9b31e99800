#include "chart/CAxisMapping.h"
#include "chart/ChartTexts.h"
#include "chart/PaintChart.h"

#include <utility>

namespace
{
constexpr int smallestPlot = 40;
constexpr int largestClient = 32'767; // in each direction: what window coordinates can say
constexpr int largestText = 4'096;
constexpr int mostPasses = 64; // three are usual
constexpr double farthestValue = 1e300;
constexpr double smallestExtent = 1e-290;

void FallBackToLinear(CChartModel& model)
{
    const auto isLogarithmic = [&model](Direction direction)
    { return model.GetScale(direction).IsLogarithmic(); };
    for (const Direction direction : directions)
    {
        if (isLogarithmic(direction) && !model.MayBeLogarithmic(direction))
        {
            model.SetScaleMode(isLogarithmic(Direction::Horizontal), isLogarithmic(Direction::Vertical));
        }
    }
}

void WidenDegenerateRange(CAxis& axis, bool logarithmic)
{
    double& lo = axis.requestedMin;
    double& hi = axis.requestedMax;
    if ((lo == 0.0 && hi == 0.0) || std::fabs(hi - lo) / std::fabs(hi + lo) < 1e-12)
    {
        lo = logarithmic ? lo / 10.0 : lo - 0.5;
        hi = logarithmic ? hi * 10.0 : hi + 0.5;
    }
}

// What zooming never asks for, but a host or a broken file may.
void ReplaceUndrawableRange(CAxis& axis, bool logarithmic)
{
    double& lo = axis.requestedMin;
    double& hi = axis.requestedMax;
    if (!std::isfinite(lo) || !std::isfinite(hi))
    {
        const bool dataIsFinite = std::isfinite(axis.dataMin) && std::isfinite(axis.dataMax);
        lo = dataIsFinite ? axis.dataMin : 0.0;
        hi = dataIsFinite ? axis.dataMax : 0.0;
    }
    if (lo > hi)
    {
        std::swap(lo, hi);
    }
    lo = std::clamp(lo, -farthestValue, farthestValue);
    hi = std::clamp(hi, -farthestValue, farthestValue);
    WidenDegenerateRange(axis, logarithmic);
    if (logarithmic && !(lo >= 1.0 / farthestValue)) // decades below it have no ticks, or only one
    {
        lo = std::clamp(lo > 0.0 ? lo : axis.lowerLimit, 1.0 / farthestValue, farthestValue / 10.0);
        hi = hi > lo ? hi : lo * 10.0;
    }
    if (!logarithmic && hi - lo < smallestExtent)
    {
        lo -= 0.5;
        hi += 0.5;
    }
    if (!(hi - lo > 1e-14 * std::fabs(hi))) // half a unit is lost in so large a number
    {
        const double margin = 1e-9 * std::fabs(hi);
        lo -= margin;
        hi += margin;
    }
}

void PlacePlot(CChartModel& model, const PixelRect& client)
{
    ChartFrame& frame = model.frame;
    const int h = frame.lineHeight;
    const int wH = frame.widestHorizontalLabel;
    const int wV = frame.widestVerticalLabel;
    const auto horizontalAxes = static_cast<std::int64_t>(model.GetAxes(Direction::Horizontal).size());
    const auto verticalAxes = static_cast<std::int64_t>(model.GetAxes(Direction::Vertical).size());
    const std::int64_t rows = std::min<std::int64_t>(verticalAxes * horizontalAxes + 3, 1'000);

    PixelRect& plot = frame.plot;
    plot = client;
    plot.top += h;
    plot.left += std::max(wH / 2, wV) + h / 4;
    plot.right -= (verticalAxes > 1 ? wV : h / 4) + wH / 2;
    plot.bottom -= static_cast<int>(rows) * h;
    plot.right = std::max(plot.right, plot.left + smallestPlot);
    plot.top = std::min(plot.top, plot.bottom - smallestPlot);
}

// Ends that are ticks are not always found to be ticks, by the rounding of a quotient.
void ChooseVisibleRange(CAxis& axis, const IScale& scale, int pixels)
{
    const KeptRange& kept = axis.kept;
    if (pixels == kept.pixels && axis.requestedMin == kept.min && axis.requestedMax == kept.max)
    {
        axis.tickStep = kept.tickStep;
        axis.visibleMin = kept.min;
        axis.visibleMax = kept.max;
        return;
    }
    axis.tickStep = scale.ChooseStep(axis.requestedMin, axis.requestedMax, pixels);
    axis.visibleMin = scale.GetFirstTick(axis.requestedMin, axis.tickStep);
    axis.visibleMax = scale.GetLastTick(axis.requestedMax, axis.tickStep, axis.visibleMin);
}

PixelSize Measure(ITextMeasure& measure, std::string_view text)
{
    const PixelSize extent = measure.GetTextExtent(text);
    return {std::clamp(extent.width, 0, largestText), std::clamp(extent.height, 0, largestText)};
}

// Whether a label has become wider or higher than the room that was left for it.
bool MeasureLabels(CChartModel& model, ITextMeasure& measure)
{
    ChartFrame& frame = model.frame;
    const ChartFrame before = frame;
    frame.lineHeight = Measure(measure, "0").height;
    model.ForEachAxis(
        [&](const CAxis& axis, const IScale& scale, Direction direction)
        {
            int& widest =
                direction == Direction::Horizontal ? frame.widestHorizontalLabel : frame.widestVerticalLabel;
            const int intervals = CountTickIntervals(axis, scale);
            for (int i = 0; i <= intervals; ++i)
            {
                const PixelSize extent = Measure(measure, FormatTickLabel(axis, GetAxisTick(axis, scale, i)));
                widest = std::max(widest, extent.width);
                frame.lineHeight = std::max(frame.lineHeight, extent.height);
            }
        });
    return frame.lineHeight > before.lineHeight ||
           frame.widestHorizontalLabel > before.widestHorizontalLabel ||
           frame.widestVerticalLabel > before.widestVerticalLabel;
}

PixelRect ClampClient(const PixelRect& client)
{
    const int left = std::clamp(client.left, -largestClient, largestClient);
    const int top = std::clamp(client.top, -largestClient, largestClient);
    return {left, top, std::clamp(client.right, left, left + largestClient),
            std::clamp(client.bottom, top, top + largestClient)};
}
} // namespace

void LayOutChart(CChartModel& model, PixelRect client, ITextMeasure& measure)
{
    client = ClampClient(client);
    FallBackToLinear(model);
    model.ForEachAxis([](CAxis& axis, const IScale& scale, Direction)
                      { ReplaceUndrawableRange(axis, scale.IsLogarithmic()); });
    ChartFrame& frame = model.frame;
    frame.widestHorizontalLabel = 0;
    frame.widestVerticalLabel = 0;
    bool grew = true;
    for (int pass = 0; grew && pass < mostPasses; ++pass)
    {
        PlacePlot(model, client);
        model.ForEachAxis([&frame](CAxis& axis, const IScale& scale, Direction direction)
                          { ChooseVisibleRange(axis, scale, frame.plot.GetLength(direction)); });
        grew = MeasureLabels(model, measure);
    }
    model.ForEachAxis([&frame](CAxis& axis, const IScale& scale, Direction direction)
                      { axis.scale = frame.plot.GetLength(direction) / GetVisibleExtent(axis, scale); });
}
