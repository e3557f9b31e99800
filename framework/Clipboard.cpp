#include "framework/Clipboard.h"

#include <algorithm>
#include <new>

CClipboard::CClipboard(HWND owner) noexcept
{
    for (int attempt = 0; attempt < 10 && !open; ++attempt)
    {
        Sleep(attempt == 0 ? 0 : 10);
        open = OpenClipboard(owner) != FALSE;
    }
    if (open && EmptyClipboard() == FALSE)
    {
        CloseClipboard();
        open = false;
    }
}

CClipboard::~CClipboard()
{
    if (open)
    {
        CloseClipboard();
    }
}

bool CClipboard::Put(UINT format, CGlobalMemory memory) noexcept
{
    if (!open || SetClipboardData(format, memory.get()) == nullptr)
    {
        return false;
    }
    static_cast<void>(memory.release()); // the clipboard's now
    return true;
}

bool CClipboard::Put(CMetafile picture) noexcept
{
    if (!open || SetClipboardData(CF_ENHMETAFILE, picture.get()) == nullptr)
    {
        return false;
    }
    static_cast<void>(picture.release());
    return true;
}

CGlobalMemory CopyToGlobalMemory(std::span<const std::byte> bytes)
{
    CGlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, bytes.size()));
    auto* const copy = memory ? static_cast<std::byte*>(GlobalLock(memory.get())) : nullptr;
    if (copy == nullptr)
    {
        throw std::bad_alloc();
    }
    std::ranges::copy(bytes, copy);
    GlobalUnlock(memory.get());
    return memory;
}

bool PutOnClipboard(HWND owner, const std::wstring& text)
{
    CGlobalMemory memory = CopyToGlobalMemory(std::as_bytes(std::span(text.c_str(), text.size() + 1)));
    return CClipboard(owner).Put(CF_UNICODETEXT, std::move(memory));
}
