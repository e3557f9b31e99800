#pragma once

#include "chart/CChart.h"
#include "chart/IHorzVertAxisInfo.h"

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
