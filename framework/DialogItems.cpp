#include "framework/DialogItems.h"

#include "framework/DrawingScopes.h"
#include "framework/TextConversion.h"

#include <algorithm>

namespace
{
LRESULT Ask(HWND dialog, int control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return SendDlgItemMessageW(dialog, control, message, wParam, lParam);
}

} // namespace

std::string GetItemText(HWND dialog, int control)
{
    const LRESULT length = Ask(dialog, control, WM_GETTEXTLENGTH);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied =
        Ask(dialog, control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return ToMultibyte(text);
}

void SetItemText(HWND dialog, int control, std::string_view text)
{
    SetDlgItemTextW(dialog, control, ToWide(text).c_str());
}

RECT GetItemRect(HWND dialog, int control)
{
    RECT rect{};
    GetWindowRect(GetDlgItem(dialog, control), &rect);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

void ShiftItem(HWND dialog, int control, int right, int down)
{
    const RECT rect = GetItemRect(dialog, control);
    SetWindowPos(GetDlgItem(dialog, control), nullptr, rect.left + right, rect.top + down, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void WidenItem(HWND dialog, int control, int byPixels)
{
    const RECT shown = GetItemRect(dialog, control);
    RECT withList = shown; // which makes the height of a combo box
    Ask(dialog, control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&withList));
    SetWindowPos(GetDlgItem(dialog, control), nullptr, 0, 0, shown.right - shown.left + byPixels,
                 withList.bottom - withList.top, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool IsItemChecked(HWND dialog, int control)
{
    return IsDlgButtonChecked(dialog, control) == BST_CHECKED;
}

void SetItemChecked(HWND dialog, int control, bool checked)
{
    CheckDlgButton(dialog, control, checked ? BST_CHECKED : BST_UNCHECKED);
}

void ShowItem(HWND dialog, int control, bool visible)
{
    ShowWindow(GetDlgItem(dialog, control), visible ? SW_SHOW : SW_HIDE);
}

void AddComboItem(HWND dialog, int combo, std::string_view text, LPARAM data)
{
    const LRESULT index = Ask(dialog, combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
    if (index >= 0)
    {
        Ask(dialog, combo, CB_SETITEMDATA, static_cast<WPARAM>(index), data);
    }
}

void FitDropDownList(HWND dialog, int combo)
{
    const CClientDC screen(dialog);
    const CSelectScope font(screen.Get(), reinterpret_cast<HFONT>(Ask(dialog, combo, WM_GETFONT)));
    LONG widest = 0;
    for (LRESULT i = Ask(dialog, combo, CB_GETCOUNT) - 1; i >= 0; --i)
    {
        const auto item = static_cast<WPARAM>(i);
        std::wstring text(static_cast<std::size_t>(Ask(dialog, combo, CB_GETLBTEXTLEN, item)) + 1, L'\0');
        Ask(dialog, combo, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
        SIZE extent{};
        GetTextExtentPoint32W(screen.Get(), text.data(), static_cast<int>(text.size()) - 1, &extent);
        widest = std::max(widest, extent.cx);
    }
    const LONG beside = GetSystemMetrics(SM_CXVSCROLL) + 6 * GetSystemMetrics(SM_CXEDGE);
    const LONG most = GetSystemMetrics(SM_CXSCREEN);
    Ask(dialog, combo, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::min(widest + beside, most)));
}

bool SelectComboData(HWND dialog, int combo, LPARAM data)
{
    const LRESULT count = Ask(dialog, combo, CB_GETCOUNT);
    for (LRESULT i = 0; i < count; ++i)
    {
        if (Ask(dialog, combo, CB_GETITEMDATA, static_cast<WPARAM>(i)) == data)
        {
            Ask(dialog, combo, CB_SETCURSEL, static_cast<WPARAM>(i));
            return true;
        }
    }
    return false;
}

LPARAM GetComboData(HWND dialog, int combo, LPARAM none)
{
    if (GetDlgItem(dialog, combo) == nullptr)
    {
        return none;
    }
    const LRESULT selected = Ask(dialog, combo, CB_GETCURSEL);
    return selected == CB_ERR ? none : Ask(dialog, combo, CB_GETITEMDATA, static_cast<WPARAM>(selected));
}
