#include "chart/CAxisMapping.h"

#include "chart/CChartModel.h"
#include "chart/TickUnderPixel.h"

CAxisMapping::CAxisMapping(const CChartModel& model, Direction direction, const CAxis& axis)
    : scale(model.GetScale(direction)), logarithmic(scale.IsLogarithmic()),
      transformedMin(scale.Transform(axis.visibleMin))
{
    const PixelRect& plot = model.frame.plot;
    const bool horizontal = direction == Direction::Horizontal;
    placement.pixel = (horizontal ? plot.left : plot.bottom) + axis.pixelShift;
    placement.sign = horizontal ? 1 : -1;
    placement.scale = axis.scale;
    placement.step = axis.tickStep;
    placement.value = axis.visibleMin;
    origin = horizontal ? transformedMin : scale.Transform(axis.visibleMax);
    fixedPixel = horizontal ? placement.pixel : plot.top + axis.pixelShift;
    signedScale = placement.sign * axis.scale;
    const double length = (scale.Transform(axis.visibleMax) - transformedMin) * axis.scale;
    laidOut = length > 0.0 && length < farthestPixel;
}

int CAxisMapping::GetTickPixel(int index) const
{
    return placement.pixel + placement.sign * ToPixel(GetTickOffset(index, placement));
}

int CAxisMapping::GetMinorTickPixel(double value) const
{
    const double pixels = (scale.Transform(value) - transformedMin) * placement.scale;
    return placement.pixel + placement.sign * RoundToPixel(pixels);
}

double CAxisMapping::GetValue(int pixel) const
{
    return scale.GetValueAtPixel(pixel, placement);
}
