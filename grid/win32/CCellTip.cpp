#include "grid/win32/CCellTip.h"

#include "framework/ModuleResources.h"

#include <commctrl.h>
#include <utility>

namespace
{
// Longer texts would fill the screen.
constexpr std::size_t longestText = 2000;
constexpr int widthInAverageCharacters = 80;

TTTOOLINFOW MakeTool(HWND owner)
{
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = owner;
    tool.uId = 1;
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    return tool;
}
} // namespace

void CCellTip::Create(HWND owner, std::function<std::wstring(GridCell)> describe)
{
    list = owner;
    makeText = std::move(describe);
    window = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                             CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr,
                             GetModuleInstance(), nullptr);
    TTTOOLINFOW tool = MakeTool(owner);
    SendMessageW(window, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    const auto averageCharacter = static_cast<int>(HIWORD(GetDialogBaseUnits())) / 2;
    SendMessageW(window, TTM_SETMAXTIPWIDTH, 0, LPARAM{averageCharacter} * widthInAverageCharacters);
}

bool CCellTip::MovesTo(GridCell newCell)
{
    return std::exchange(cell, newCell) != newCell;
}

void CCellTip::SetArea(const RECT& area)
{
    SendMessageW(window, TTM_POP, 0, 0);
    text.reset();
    TTTOOLINFOW tool = MakeTool(list);
    tool.rect = area;
    SendMessageW(window, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void CCellTip::Forget()
{
    cell = {};
    SetArea({});
}

wchar_t* CCellTip::GetText()
{
    if (!text)
    {
        text = cell != GridCell() ? makeText(cell) : std::wstring();
        if (text->size() > longestText)
        {
            text->resize(longestText);
            *text += L"\u2026";
        }
    }
    return text->data();
}

void CCellTip::Relay(HWND owner, UINT message, WPARAM wParam, LPARAM lParam) const
{
    MSG relayed{};
    relayed.hwnd = owner;
    relayed.message = message;
    relayed.wParam = wParam;
    relayed.lParam = lParam;
    SendMessageW(window, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}
