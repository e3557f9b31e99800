#include "chart/CChartControlWrapper.h"

namespace
{
constexpr std::int32_t horizontalAxis = 0;
constexpr std::int32_t verticalAxis = 1;

CAxis& FindOrDefault(CChart& chart, Direction direction, std::int32_t identifier)
{
    static CAxis defaultAxis;
    CAxis* const axis = chart.GetModel().FindAxis(direction, identifier);
    return axis != nullptr ? *axis : defaultAxis;
}
} // namespace

CAxis& CChartControlWrapper::GetHorizontal() const
{
    return FindOrDefault(*chart, Direction::Horizontal, horizontalAxis);
}

CAxis& CChartControlWrapper::GetVertical() const
{
    return FindOrDefault(*chart, Direction::Vertical, verticalAxis);
}

void CChartControlWrapper::SetColours(Colour axisColour, Colour gridColour)
{
    for (CAxis* const axis : {&GetHorizontal(), &GetVertical()})
    {
        axis->axisColour = axisColour;
        axis->gridColour = gridColour;
    }
}

void CChartControlWrapper::GetColours(Colour& axisColour, Colour& gridColour) const
{
    axisColour = GetVertical().axisColour;
    gridColour = GetVertical().gridColour;
}

void CChartControlWrapper::SetUnits(const std::string& horizontal, const std::string& vertical)
{
    GetHorizontal().unit = horizontal;
    GetVertical().unit = vertical;
}

void CChartControlWrapper::GetUnits(std::string& horizontal, std::string& vertical) const
{
    horizontal = GetHorizontal().unit;
    vertical = GetVertical().unit;
}

void CChartControlWrapper::SetTitles(const std::string& horizontal, const std::string& vertical)
{
    GetHorizontal().title = horizontal;
    GetVertical().title = vertical;
}

void CChartControlWrapper::GetDataRange(DataPoint& minimum, DataPoint& maximum) const
{
    minimum = {GetHorizontal().dataMin, GetVertical().dataMin};
    maximum = {GetHorizontal().dataMax, GetVertical().dataMax};
}

void CChartControlWrapper::GetAxisRange(DataPoint& minimum, DataPoint& maximum) const
{
    chart->GetModel().GetAxisRange(verticalAxis, minimum.y, maximum.y);
    chart->GetModel().GetAxisRange(horizontalAxis, minimum.x, maximum.x);
}

void CChartControlWrapper::GetRequestedRange(DataPoint& minimum, DataPoint& maximum) const
{
    minimum = {GetHorizontal().requestedMin, GetVertical().requestedMin};
    maximum = {GetHorizontal().requestedMax, GetVertical().requestedMax};
}

void CChartControlWrapper::SetRequestedRange(const DataPoint& minimum, const DataPoint& maximum)
{
    GetHorizontal().requestedMin = minimum.x;
    GetHorizontal().requestedMax = maximum.x;
    GetVertical().requestedMin = minimum.y;
    GetVertical().requestedMax = maximum.y;
    chart->RecomputeLayout();
    chart->Invalidate();
}

void CChartControlWrapper::SetAutomaticPrefix(bool automatic)
{
    GetHorizontal().automaticPrefix = automatic;
    GetVertical().automaticPrefix = automatic;
}
