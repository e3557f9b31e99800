#include "framework/CModuleState.h"
#include "shared/MessageManager/ISystemMessageBox.h"

#include <cstdio>
#include <filesystem>

namespace
{
// Where there is no message box, messages go to the standard error stream and count as read.
class CStderrMessageBox final : public msg::ISystemMessageBox
{
public:
    int Show(msg::WindowHandle, const char* text, const char* caption, unsigned) override
    {
        std::fprintf(stderr, "%s: %s\n", caption, text);
        return msg::answerOk;
    }

    [[nodiscard]] msg::WindowHandle FindMainWindow() override { return nullptr; }
    [[nodiscard]] std::string GetApplicationName() override { return OwnModuleState().applicationName; }

    [[nodiscard]] std::string GetExecutablePath() override
    {
        std::error_code error;
        return std::filesystem::read_symlink("/proc/self/exe", error).string();
    }
};
} // namespace

msg::ISystemMessageBox& msg::GetPlatformMessageBox()
{
    static CStderrMessageBox box;
    return box;
}
