#pragma once

#include "chart/CChart.h"
#include "chart/IPickListener.h"

// What the left mouse button does to a chart: zooms, pans, picks points, resets; and what moving the mouse
// shows: the highlighted curve, the read-out, the drag's rectangle. Points are in client pixels and may lie
// outside the window while the mouse is captured.
class CChartMouse
{
public:
    CChartMouse(CChart& chart_, IChartHost& host_);
    CChartMouse(const CChartMouse&) = delete;
    CChartMouse& operator=(const CChartMouse&) = delete;
    ~CChartMouse() = default;

    // Null for none; not owned.
    void SetPickListener(IPickListener* listener) { pickListener = listener; }

    void OnButtonDown(PixelPoint point);
    void OnMove(PixelPoint point);
    // Ends a pan with an animation that takes up to 180 ms.
    void OnButtonUp(PixelPoint point);
    void OnDoubleClick();
    // The window has another size: the chart is laid out again, and the mouse is nowhere until it moves.
    void OnSize();

private:
    void UpdateCursor();
    void LockPoint(PixelPoint point);
    void PickPoint(PixelPoint point);
    void BeginDrag(PixelPoint point);
    void DrawFeedback(PixelPoint to);
    void UpdateReadOut(PixelPoint point);
    void EndRectangle(PixelPoint point);
    void EndPan();
    void AnimateToWholeTick();

    CChart& chart;
    IChartHost& host;
    IPickListener* pickListener = nullptr;
};
