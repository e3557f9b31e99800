#pragma once

#include "chart/CChartControlWrapper.h"
#include "chart/win32/CChartControl.h"
#include "chooser/MaterialCurves.h"
#include "framework/CHandle.h"

class IMaterial;

// The chart of the chooser: a material's Er and loss tangent, or its roughness factors, over the frequency in
// MHz.
class CChooserChart
{
public:
    explicit CChooserChart(int materialKind) : kind(materialKind) {}

    // Turns the control of the dialog into the chart, without curves.
    void Attach(int control, HWND dialog);

    // Takes the curves of the material's tables for that temperature in °C; of no material there are none.
    void SetMaterial(IMaterial* material, double temperature);

    // Shows the curves that were taken last.
    void Refresh();

    [[nodiscard]] IHorzVertAxisInfo& GetAxisInfo() { return axisInfo; }

private:
    friend class CChooserFixture; // of the tests

    void SetUpAxes();

    int kind;
    MaterialCurves curves; // shown by the chart, which goes first
    CFont font;
    CSimpleChartControl chart;
    CChartControlWrapper axisInfo{&chart.GetChart()};
};
