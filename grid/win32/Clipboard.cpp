#include "grid/win32/Clipboard.h"

#include "framework/CHandle.h"

#include <cstring>
#include <new>

namespace
{
class CClipboardScope
{
public:
    // Other programs hold the clipboard for some milliseconds at a time.
    explicit CClipboardScope(HWND owner) noexcept
    {
        for (int attempt = 0; attempt < 10 && !open; ++attempt)
        {
            Sleep(attempt == 0 ? 0 : 10);
            open = OpenClipboard(owner) != FALSE;
        }
    }
    ~CClipboardScope()
    {
        if (open)
        {
            CloseClipboard();
        }
    }
    CClipboardScope(const CClipboardScope&) = delete;
    CClipboardScope& operator=(const CClipboardScope&) = delete;

    [[nodiscard]] bool IsOpen() const noexcept { return open; }

private:
    bool open = false;
};
} // namespace

bool PutOnClipboard(HWND owner, const std::wstring& text)
{
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    CGlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
    void* const characters = memory ? GlobalLock(memory.get()) : nullptr;
    if (characters == nullptr)
    {
        throw std::bad_alloc();
    }
    std::memcpy(characters, text.c_str(), bytes);
    GlobalUnlock(memory.get());

    const CClipboardScope clipboard(owner);
    if (!clipboard.IsOpen() || EmptyClipboard() == FALSE ||
        SetClipboardData(CF_UNICODETEXT, memory.get()) == nullptr)
    {
        return false;
    }
    static_cast<void>(memory.release()); // the clipboard's now
    return true;
}
