#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// Texts, choices and places of a dialog's controls. Texts are in the system's multibyte code page and may
// have any length. A control that the dialog lacks reads as empty, off or not chosen, and writing to it does
// nothing.

[[nodiscard]] std::string GetItemText(HWND dialog, int control);
void SetItemText(HWND dialog, int control, std::string_view text);

[[nodiscard]] bool IsItemChecked(HWND dialog, int control);
void SetItemChecked(HWND dialog, int control, bool checked);

void ShowItem(HWND dialog, int control, bool visible);

// Where a control is in the dialog.
[[nodiscard]] RECT GetItemRect(HWND dialog, int control);

// Moves a control by so many pixels.
void ShiftItem(HWND dialog, int control, int right, int down);

// Makes a control so many pixels wider.
void WidenItem(HWND dialog, int control, int byPixels);

// Appends an entry to a combo box; `data` is what the program knows it by.
void AddComboItem(HWND dialog, int combo, std::string_view text, LPARAM data = 0);

// Makes the list that drops down wide enough for its longest entry.
void FitDropDownList(HWND dialog, int combo);

// Chooses the first entry with exactly that data. False, and nothing changes, when there is none.
bool SelectComboData(HWND dialog, int combo, LPARAM data);

// The data of the chosen entry, `none` when none is.
[[nodiscard]] LPARAM GetComboData(HWND dialog, int combo, LPARAM none);
