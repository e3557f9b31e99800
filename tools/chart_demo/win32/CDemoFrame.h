#pragma once

#include "chart/win32/CChartControl.h"

// The demonstration's window: a chart of a laminate, a menu for the mouse mode and the scale, and in the
// title what the chart tells its owner. The keys 1 to 6 choose a mode, L the scale.
class CDemoFrame final : public CWnd, private IPickListener
{
public:
    CDemoFrame();

    // Shows the window; false when the system refuses.
    [[nodiscard]] bool Show();

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void OnPointPicked(const CChartCurve& curve, const DataPoint& clicked, const DataPoint& picked) override;
    void SetUpChart();
    void OnCommand(int command);
    void ShowRange();
    void SetMode(std::int32_t mode);
    void SetLogarithmic(bool wanted);

    CChartCurve er;
    CChartCurve lossTangent;
    CSimpleChartControl chart;
    bool logarithmic = false;
};
