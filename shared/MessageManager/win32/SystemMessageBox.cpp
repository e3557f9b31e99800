#include "framework/CModuleState.h"
#include "shared/MessageManager/ISystemMessageBox.h"

#include <windows.h>

namespace
{
class CWindowsMessageBox final : public msg::ISystemMessageBox
{
public:
    int Show(msg::WindowHandle owner, const char* text, const char* caption, unsigned style) override
    {
        return MessageBoxA(static_cast<HWND>(owner), text, caption, style);
    }

    // The library has no window of its own: its boxes belong to the host's window that is active.
    [[nodiscard]] msg::WindowHandle FindMainWindow() override { return GetActiveWindow(); }
    [[nodiscard]] std::string GetApplicationName() override { return OwnModuleState().applicationName; }

    [[nodiscard]] std::string GetExecutablePath() override
    {
        char path[MAX_PATH] = {};
        const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
        return {path, length < MAX_PATH ? length : MAX_PATH - 1};
    }
};
} // namespace

msg::ISystemMessageBox& msg::GetPlatformMessageBox()
{
    static CWindowsMessageBox box;
    return box;
}
