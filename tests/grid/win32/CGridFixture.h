#pragma once

#include "framework/CHandle.h"
#include "framework/CWnd.h"
#include "framework/TextConversion.h"
#include "grid/win32/CGXGridWnd.h"

#include <commctrl.h>
#include <string>

// A window on the screen with a control of the grid's class in it, and what users do to its list view.
class CGridFixture
{
public:
    explicit CGridFixture(bool visible = true)
    {
        RegisterGridWindowClass();
        RegisterPlainWindowClass(L"CGridFixture");
        frame.reset(CreatePlainWindow(
            {.className = L"CGridFixture", .left = 0, .top = 0, .width = 700, .height = 400}));
        control = CreatePlainWindow({.className = gridWindowClass,
                                     .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                                     .left = 0,
                                     .top = 0,
                                     .width = 680,
                                     .height = 300,
                                     .parent = frame.get()});
        ShowWindow(frame.get(), visible ? SW_SHOW : SW_HIDE);
    }

    [[nodiscard]] HWND GetControl() const { return control; }

    static void ClickHeader(HWND list, int subItem)
    {
        const HWND header = ListView_GetHeader(list);
        RECT area{};
        SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(subItem), reinterpret_cast<LPARAM>(&area));
        Click(header, (area.left + area.right) / 2, (area.top + area.bottom) / 2, 0);
    }

    static void ClickCell(HWND list, int item, int subItem, WPARAM keys = 0)
    {
        RECT area{};
        ListView_GetSubItemRect(list, item, subItem, LVIR_LABEL, &area);
        Click(list, area.left + 3, (area.top + area.bottom) / 2, keys);
    }

    static void PressKey(HWND list, WPARAM key, bool control = false)
    {
        BYTE before[256] = {};
        GetKeyboardState(before);
        BYTE state[256] = {};
        state[VK_CONTROL] = control ? 0x80 : 0;
        SetKeyboardState(state);
        SendMessageW(list, WM_KEYDOWN, key, 0);
        SendMessageW(list, WM_KEYUP, key, 0);
        SetKeyboardState(before);
    }

    [[nodiscard]] static std::string GetItemText(HWND list, int item, int subItem)
    {
        wchar_t text[300] = L"";
        LVITEMW wanted{};
        wanted.iSubItem = subItem;
        wanted.pszText = text;
        wanted.cchTextMax = static_cast<int>(std::size(text));
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&wanted));
        return ToMultibyte(text);
    }

    // The texts of the list's headers, after them "^" or "v" for a sort arrow and the number of a picture.
    [[nodiscard]] static std::string GetHeaderTexts(HWND list)
    {
        const HWND header = ListView_GetHeader(list);
        std::string texts;
        for (int i = 0; i < Header_GetItemCount(header); ++i)
        {
            wchar_t text[100] = L"";
            HDITEMW item{};
            item.mask = HDI_FORMAT | HDI_TEXT | HDI_IMAGE;
            item.pszText = text;
            item.cchTextMax = static_cast<int>(std::size(text));
            SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            texts += (i == 0 ? "" : "|") + ToMultibyte(text);
            texts += (item.fmt & HDF_SORTUP) != 0 ? "^" : (item.fmt & HDF_SORTDOWN) != 0 ? "v" : "";
            texts += (item.fmt & HDF_IMAGE) != 0 ? std::to_string(item.iImage) : "";
        }
        return texts;
    }

    [[nodiscard]] static std::wstring GetClipboardText()
    {
        std::wstring text;
        if (OpenClipboard(nullptr) != FALSE)
        {
            const HANDLE data = GetClipboardData(CF_UNICODETEXT);
            if (const auto* const characters = static_cast<const wchar_t*>(GlobalLock(data)))
            {
                text = characters;
                GlobalUnlock(data);
            }
            CloseClipboard();
        }
        return text;
    }

private:
    static void Click(HWND window, int x, int y, WPARAM keys)
    {
        PostMessageW(window, WM_LBUTTONUP, keys, MAKELPARAM(x, y)); // ends the loop that waits for a drag
        SendMessageW(window, WM_LBUTTONDOWN, keys | MK_LBUTTON, MAKELPARAM(x, y));
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
        {
            DispatchMessageW(&message);
        }
    }

    CWindowHandle frame;
    HWND control = nullptr;
};
