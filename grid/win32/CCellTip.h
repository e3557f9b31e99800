#pragma once

#include "grid/CGridSelection.h"

#include <windows.h>

#include <string>

// The tip that shows the whole text of the cell under the mouse.
class CCellTip
{
public:
    // Makes the tip's window, which is destroyed with `owner`. Without room for it there are no tips.
    void Create(HWND owner);

    // True when the mouse was over another cell before; {0, 0} is no cell.
    [[nodiscard]] bool MovesTo(GridCell newCell);

    // Shows the text when the mouse rests in the area; nothing when the text is empty.
    void Show(const RECT& area, std::wstring newText);

    // The cell may show something else now.
    void Forget();

    // Tells the tip of a mouse message of its owner.
    void Relay(HWND owner, UINT message, WPARAM wParam, LPARAM lParam) const;

    [[nodiscard]] HWND GetHandle() const { return window; }
    [[nodiscard]] wchar_t* GetText() { return text.data(); }

private:
    HWND window = nullptr;
    HWND list = nullptr;
    GridCell cell;
    std::wstring text;
};
