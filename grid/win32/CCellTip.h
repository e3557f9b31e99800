#pragma once

#include "grid/CGridSelection.h"

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

// The tip of the cell under the mouse.
class CCellTip
{
public:
    // Makes the tip's window, which is destroyed with `owner`. Without room for it there are no tips.
    // `describe` makes the text of a cell's tip, an empty one for no tip; it is asked once the mouse rests
    // there.
    void Create(HWND owner, std::function<std::wstring(GridCell)> describe);

    // True when the mouse was over another cell before; {0, 0} is no cell.
    [[nodiscard]] bool MovesTo(GridCell newCell);

    // The cell takes that area. An empty one has no tip.
    void SetArea(const RECT& area);

    // The cell may show something else now.
    void Forget();

    // Tells the tip of a mouse message of its owner.
    void Relay(HWND owner, UINT message, WPARAM wParam, LPARAM lParam) const;

    [[nodiscard]] HWND GetHandle() const { return window; }
    [[nodiscard]] wchar_t* GetText();

private:
    HWND window = nullptr;
    HWND list = nullptr;
    std::function<std::wstring(GridCell)> makeText;
    GridCell cell;
    std::optional<std::wstring> text; // of the cell, once it was asked for
};
