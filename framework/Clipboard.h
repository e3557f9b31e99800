#pragma once

#include "framework/CHandle.h"

#include <cstddef>
#include <span>
#include <string>

// The clipboard, open and empty for the forms of one thing that a window puts there.
class CClipboard
{
public:
    // Other programs hold the clipboard for some milliseconds at a time; those are waited for.
    explicit CClipboard(HWND owner) noexcept;
    ~CClipboard();
    CClipboard(const CClipboard&) = delete;
    CClipboard& operator=(const CClipboard&) = delete;

    // False when another program does not let go of the clipboard; all that is put then goes nowhere.
    [[nodiscard]] bool IsOpen() const noexcept { return open; }

    // Whether the clipboard has taken it.
    bool Put(UINT format, CGlobalMemory memory) noexcept;
    bool Put(CMetafile picture) noexcept;

private:
    bool open = false;
};

// Memory in the form that the clipboard takes.
[[nodiscard]] CGlobalMemory CopyToGlobalMemory(std::span<const std::byte> bytes);

// Puts the text on the clipboard. False when another program does not let go of the clipboard.
bool PutOnClipboard(HWND owner, const std::wstring& text);
