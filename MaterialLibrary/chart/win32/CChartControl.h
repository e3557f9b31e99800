#pragma once

#include "chart/CChart.h"
#include "chart/win32/CGdiCanvas.h"
#include "framework/CWnd.h"
#include "framework/WindowScopes.h"

#include <optional>

// Sent to the parent window when the visible ranges have changed: each time a pan moves on, once for a zoom
// and for a reset. Both parameters are 0.
extern const UINT chartZoomChangedMessage;

// A chart as a child window. Attach it to a control of the class below; then RecomputeLayout.
class CChartControl : public CWnd, private IChartHost
{
public:
    // The class of a chart's control in dialog templates.
    static constexpr const wchar_t* windowClassName = L"Ortolan Chart Control";
    // Before such a dialog or window is made. Registering twice does no harm.
    static void RegisterWindowClass();

    CChartControl();
    ~CChartControl() override = default;

    // The chart's parts: axes, curves, legend; looks; what the mouse has done.
    [[nodiscard]] CChart& GetChart() { return chart; }

    // The operations of the chart, by the names that a window's owner looks for.
    void AddAxis(std::int32_t identifier, bool vertical) { chart.GetModel().AddAxis(identifier, vertical); }
    void SetAxisTitle(std::int32_t identifier, std::string_view title, std::string_view unit);
    void ClearAutomaticPrefix(std::int32_t identifier);
    // The curve stays the caller's; RemoveCurves before it ends. See CChart.
    std::int64_t AddCurve(CChartCurve& curve, std::int32_t horizontalAxis, std::int32_t verticalAxis);
    void RemoveCurves() { chart.RemoveCurves(); }
    void SetScaleMode(bool horizontalLogarithmic, bool verticalLogarithmic);
    void RecomputeLayout() override;
    // Every axis back to its data range; the parent is told.
    void ResetZoom();
    [[nodiscard]] std::int64_t HitTest(PixelPoint point) const;
    bool GetAxisRange(std::int32_t identifier, double& lo, double& hi) const;

    // A MouseMode. A change ends a drag that is going on, without effect.
    void SetMouseMode(std::int32_t mode) { Apply(chart.GetInteraction().SetMode(mode)); }
    // Null for none; not owned.
    void SetPickListener(IPickListener* listener) { chart.GetInteraction().SetPickListener(listener); }

    // Not owned; it outlives its use here. Lay out and repaint afterwards.
    void SetFont(HFONT labelFont);
    // Not owned. A null one leaves the arrow.
    void SetCursors(HCURSOR zoom, HCURSOR pan, HCURSOR pick);

    // Puts a bitmap and a metafile of the chart on the clipboard. False when another program does not let go
    // of it, or without a window.
    bool CopyPicture();
    // The chart in a picture of the window's size.
    [[nodiscard]] std::string DrawSvg();

    // The whole window is painted again, later.
    void Invalidate() override { Repaint(true); }

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Shows the cursor of the current mouse mode. Called at every move and press of the mouse.
    virtual void SetMouseCursor(ChartCursor cursor);

private:
    void AskForLeaving();
    void OnPaint();
    void Apply(const ChartResponse& response);
    void DrawFeedback(std::span<const PixelLine> lines);
    void Animate();
    void ShowZoom(bool erase);
    void Repaint(bool erase);
    void NotifyZoomChanged();

    CFont ownFont;
    HFONT font;
    CBrush background;
    CGdiTextMeasure measure;
    HCURSOR arrowCursor;
    HCURSOR zoomCursor = nullptr;
    HCURSOR panCursor = nullptr;
    HCURSOR pickCursor = nullptr;
    std::optional<CCaptureScope> capture; // while the mouse drags
    CChart chart{*this};
};

// The chart of the material chooser.
class CSimpleChartControl final : public CChartControl
{
public:
    ~CSimpleChartControl() override = default;
    [[nodiscard]] const char* GetRuntimeClassName() const override { return "CSimpleChartControl"; }
};
