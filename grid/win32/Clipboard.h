#pragma once

#include <windows.h>

#include <string>

// Puts the text on the clipboard on behalf of a window. False when another program does not let go of the
// clipboard.
bool PutOnClipboard(HWND owner, const std::wstring& text);
