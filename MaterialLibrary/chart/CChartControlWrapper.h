#pragma once

#include "chart/CChart.h"

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

// The principal axes of a chart. It keeps nothing itself: every operation reads or writes the chart's axes.
// For an axis that the chart does not have, one axis shared by the whole module stands in, so that reads have
// an answer and writes no visible effect.
class CChartControlWrapper final : public IHorzVertAxisInfo
{
public:
    // Not owned; it outlives the wrapper.
    explicit CChartControlWrapper(CChart* chart_) : chart(chart_) {}

    void SetColours(Colour axisColour, Colour gridColour) override;
    void GetColours(Colour& axisColour, Colour& gridColour) const override;
    void SetUnits(const std::string& horizontal, const std::string& vertical) override;
    void GetUnits(std::string& horizontal, std::string& vertical) const override;
    void SetTitles(const std::string& horizontal, const std::string& vertical) override;
    void GetDataRange(DataPoint& minimum, DataPoint& maximum) const override;
    void GetAxisRange(DataPoint& minimum, DataPoint& maximum) const override;
    void GetRequestedRange(DataPoint& minimum, DataPoint& maximum) const override;
    void SetRequestedRange(const DataPoint& minimum, const DataPoint& maximum) override;
    void SetAutomaticPrefix(bool automatic) override;

private:
    [[nodiscard]] CAxis& GetHorizontal() const;
    [[nodiscard]] CAxis& GetVertical() const;

    CChart* chart;
};
