#pragma once

#include "chart/Geometry.h"

#include <string>

// Reads and sets a chart's two principal axes: the horizontal axis 0 and the vertical axis 1. Points are
// pairs of their values. The order of the operations is kept.
class IHorzVertAxisInfo
{
public:
    // Both axes get both colours.
    virtual void SetColours(Colour axisColour, Colour gridColour) = 0;
    // Those of the vertical axis.
    virtual void GetColours(Colour& axisColour, Colour& gridColour) const = 0;
    virtual void SetUnits(const std::string& horizontal, const std::string& vertical) = 0;
    virtual void GetUnits(std::string& horizontal, std::string& vertical) const = 0;
    virtual void SetTitles(const std::string& horizontal, const std::string& vertical) = 0;
    // Around the curves.
    virtual void GetDataRange(DataPoint& minimum, DataPoint& maximum) const = 0;
    // What is visible and one tick step more on each side, within the data range. Untouched without the axes.
    virtual void GetAxisRange(DataPoint& minimum, DataPoint& maximum) const = 0;
    // What zooming asked for.
    virtual void GetRequestedRange(DataPoint& minimum, DataPoint& maximum) const = 0;
    // The chart is laid out and painted again; its parent is not told.
    virtual void SetRequestedRange(const DataPoint& minimum, const DataPoint& maximum) = 0;
    virtual void SetAutomaticPrefix(bool automatic) = 0;

    virtual ~IHorzVertAxisInfo() = default;
};
