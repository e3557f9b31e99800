#pragma once

#include "framework/CHandle.h"
#include "framework/CWnd.h"

// The grip in the bottom right corner of a resizable window: drawn there, and dragging it resizes the window.
class CSizerGrip final : public CWnd
{
public:
    // A handle that is no window of the calling thread is a fatal error.
    explicit CSizerGrip(HWND window);

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Follow(int clientWidth, int clientHeight);
    void InvalidateGrip() const;
    void Paint();
    [[nodiscard]] bool IsHit(LPARAM screenPoint) const;

    RECT grip{};  // in client pixels
    CTheme theme; // opened when it is first needed, null without visual styles
};
