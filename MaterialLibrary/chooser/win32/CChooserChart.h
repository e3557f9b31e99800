#pragma once

#include "chart/CChartControlWrapper.h"
#include "chart/CViewHistory.h"
#include "chart/win32/CChartControl.h"
#include "chooser/CMaterialChart.h"
#include "chooser/ChartCommand.h"
#include "framework/CHandle.h"

#include <functional>
#include <utility>

class IMaterial;

// The chart of the chooser: a material's Er and loss tangent, or its roughness factors, over the frequency,
// and its context menu.
class CChooserChart
{
public:
    explicit CChooserChart(int materialKind) : kind(materialKind), content(materialKind) {}

    // Turns the control of the dialog into the chart, without curves; the frequency axis is as the user left
    // it.
    void Attach(int control, HWND dialog);

    // Takes the curves of the material's tables for that temperature in °C; of no material there are none.
    void SetMaterial(IMaterial* material, double temperature);

    // Shows the curves that were taken last, all of them.
    void Refresh();

    // The chart's notice that its view has changed.
    void OnZoomChanged() { views.Note(chart.GetChart().GetModel()); }

    // WM_CONTEXTMENU of the dialog: shows the menu for a click on the chart, and by keyboard wherever the
    // focus is. False when it is neither, or the chart is hidden.
    bool OnContextMenu(POINT screen, bool byKeyboard);

    // What to do for the menu's offer to move the bar above the chart.
    void SetOnMoveBar(std::function<void()> action) { onMoveBar = std::move(action); }

    // What the menu does.
    void Execute(ChartCommand command);

    [[nodiscard]] IHorzVertAxisInfo& GetAxisInfo() { return axisInfo; }

private:
    friend class CChooserFixture; // of the tests

    void LayOut();
    [[nodiscard]] ChartCommand ChooseFromMenu(POINT screen) const;
    [[nodiscard]] bool CanExecute(ChartCommand command) const;
    void SetLogarithmic(bool logarithmic);
    void CopyValues();
    void SavePicture();

    int kind;
    CMaterialChart content; // shown by the chart, which goes first
    CFont font;
    CSimpleChartControl chart;
    CViewHistory views;
    std::function<void()> onMoveBar;
    CChartControlWrapper axisInfo{&chart.GetChart()};
};
