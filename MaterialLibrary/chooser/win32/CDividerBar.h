#pragma once

#include "framework/CWnd.h"

#include <functional>

// A narrow bar across a dialog, to be dragged up and down. With the focus, which it has during a drag and
// after TakeFocus, it also moves by keys: the arrows, Page Up, Page Down, Home and End. Enter leaves it
// there, Escape puts it back to where it was when the drag or the focus began.
class CDividerBar final : public CWnd
{
public:
    // What the bar asks of the dialog: to note where everything stands, then to place the bar so many pixels
    // below that; the answer is how far below it is, since there are limits.
    struct Callbacks
    {
        std::function<void()> begin;
        std::function<int(int)> move;
    };

    // Makes the control of that identifier, the next after `before` in the dialog's order of controls.
    bool Create(HWND dialog, int identifier, HWND before, Callbacks asked);

    // Gives the bar the focus; it returns to where it was with Enter or Escape.
    void TakeFocus();

    // Where the bar is to be counted from has changed.
    void BeginAnew();

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Paint();
    void OnButtonDown(int mouse);
    void OnMouseMove(int mouse);
    [[nodiscard]] int ToScreen(int mouse) const;
    bool OnKey(WPARAM key);
    void MoveTo(int down);
    void EndDrag();
    void LeaveFocus();

    Callbacks callbacks;
    HWND formerFocus = nullptr;
    int offset = 0;    // below where it began
    int grabbedAt = 0; // on the screen, less the offset then
    bool dragging = false;
};
