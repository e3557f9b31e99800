#pragma once

#include "chart/CAxis.h"
#include "chart/IScale.h"

class CChartModel;

// Between the values of one axis and client pixels, as the last layout placed it and a pan shifted it.
class CAxisMapping
{
public:
    CAxisMapping(const CChartModel& model, Direction direction, const CAxis& axis);

    // Where a curve passes.
    [[nodiscard]] int GetPixel(double value) const { return fixedPixel + RoundToPixel(GetDistance(value)); }

    // The same for a value in the visible range, quicker, on an axis that has been laid out.
    [[nodiscard]] bool IsLaidOut() const { return laidOut; }
    [[nodiscard]] int GetVisiblePixel(double value) const
    {
        return fixedPixel + static_cast<int>(AddHalf(GetDistance(value)));
    }

    // Where a tick stands, by its number from the visible minimum: GetValue gives exactly its value there.
    [[nodiscard]] int GetTickPixel(int index) const;

    // Where a minor tick stands. As the ticks it is counted from the axis's lower end.
    [[nodiscard]] int GetMinorTickPixel(double value) const;

    [[nodiscard]] double GetValue(int pixel) const;

private:
    [[nodiscard]] double GetDistance(double value) const
    {
        const double transformed = logarithmic ? std::log10(value) : value; // the scale's Transform, inlined
        return (transformed - origin) * signedScale;
    }

    const IScale& scale;
    const bool logarithmic;
    AxisPlacement placement;
    double transformedMin;
    double origin; // a curve passes fixedPixel there, when transformed
    int fixedPixel;
    double signedScale;
    bool laidOut; // the visible range is no longer than a window
};
