#pragma once

#include "chart/CChartCurve.h"

// Is told what the user picks in a chart's pick modes.
class IPickListener
{
public:
    // `clicked` is where the user clicked, in data values; `picked` is the point of the curve at its x.
    virtual void OnPointPicked(const CChartCurve& curve, const DataPoint& clicked,
                               const DataPoint& picked) = 0;

protected:
    ~IPickListener() = default;
};
