#include "framework/DialogItems.h"

#include "framework/TextConversion.h"

namespace
{
LRESULT Ask(HWND dialog, int control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return SendDlgItemMessageW(dialog, control, message, wParam, lParam);
}

int CountComboItems(HWND dialog, int combo)
{
    return static_cast<int>(Ask(dialog, combo, CB_GETCOUNT));
}

std::wstring ComboItemText(HWND dialog, int combo, int index)
{
    const auto item = static_cast<WPARAM>(index);
    const LRESULT length = Ask(dialog, combo, CB_GETLBTEXTLEN, item);
    if (length <= 0)
    {
        return {};
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    Ask(dialog, combo, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return text;
}

template <class Predicate>
bool SelectComboItem(HWND dialog, int combo, Predicate wanted)
{
    for (int i = 0; i < CountComboItems(dialog, combo); ++i)
    {
        if (wanted(i))
        {
            Ask(dialog, combo, CB_SETCURSEL, static_cast<WPARAM>(i));
            return true;
        }
    }
    return false;
}

int SelectedComboItem(HWND dialog, int combo)
{
    return GetDlgItem(dialog, combo) == nullptr ? CB_ERR : static_cast<int>(Ask(dialog, combo, CB_GETCURSEL));
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

bool SelectComboText(HWND dialog, int combo, std::string_view text)
{
    const std::wstring wanted = ToWide(text);
    return SelectComboItem(dialog, combo, [&](int i) { return ComboItemText(dialog, combo, i) == wanted; });
}

bool SelectComboData(HWND dialog, int combo, LPARAM data)
{
    return SelectComboItem(dialog, combo,
                           [&](int i)
                           { return Ask(dialog, combo, CB_GETITEMDATA, static_cast<WPARAM>(i)) == data; });
}

std::string GetComboText(HWND dialog, int combo)
{
    const int selected = SelectedComboItem(dialog, combo);
    return selected < 0 ? std::string() : ToMultibyte(ComboItemText(dialog, combo, selected));
}

LPARAM GetComboData(HWND dialog, int combo, LPARAM none)
{
    const int selected = SelectedComboItem(dialog, combo);
    return selected < 0 ? none : Ask(dialog, combo, CB_GETITEMDATA, static_cast<WPARAM>(selected));
}
