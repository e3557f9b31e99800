#pragma once

#include "MaterialLibrary/IManager.h"

#include <string>

namespace msg
{
// Style bits of a system message box, as Windows defines them.
inline constexpr unsigned boxIconMask = 0xF0;
inline constexpr unsigned boxIconStop = 0x10;
inline constexpr unsigned boxIconExclamation = 0x30;
inline constexpr unsigned boxIconInformation = 0x40;

inline constexpr int answerOk = 1;

// The platform's message box and what it needs to know about the program it appears in.
class ISystemMessageBox
{
public:
    virtual ~ISystemMessageBox() = default;

    // Shows the box, modal to `owner` (null: to none), and returns the button's answer.
    virtual int Show(WindowHandle owner, const char* text, const char* caption, unsigned style) = 0;

    // The program's main window, or null.
    [[nodiscard]] virtual WindowHandle FindMainWindow() = 0;

    // The name of the module's application object; empty while there is none.
    [[nodiscard]] virtual std::string GetApplicationName() = 0;

    // The path of the running program.
    [[nodiscard]] virtual std::string GetExecutablePath() = 0;
};

// The message box in use: the system's own on Windows, the standard error stream elsewhere.
[[nodiscard]] ISystemMessageBox& GetSystemMessageBox();

// Uses `box` from now on; null returns to the platform's own. Returns the one used before (null: the
// platform's own). The box must outlive its use.
ISystemMessageBox* ReplaceSystemMessageBox(ISystemMessageBox* box);

// The platform's own box.
[[nodiscard]] ISystemMessageBox& GetPlatformMessageBox();
} // namespace msg
