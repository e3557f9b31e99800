#include "tests/win32/CMessageBoxRobot.h"

namespace
{
constexpr int textControl = 0xFFFF;

std::string ReadText(HWND window)
{
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool IsDialog(HWND window)
{
    char name[16] = {};
    GetClassNameA(window, name, sizeof name);
    return std::string(name) == "#32770";
}

bool ShowsWarningIcon(HWND box)
{
    HWND control = nullptr;
    while ((control = FindWindowExA(box, control, "Static", nullptr)) != nullptr)
    {
        if ((GetWindowLongA(control, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
        {
            const auto warningIcon = reinterpret_cast<LRESULT>(LoadIconA(nullptr, IDI_EXCLAMATION));
            return SendMessageA(control, STM_GETICON, 0, 0) == warningIcon;
        }
    }
    return false;
}
} // namespace

CMessageBoxRobot* CMessageBoxRobot::robot = nullptr;

CMessageBoxRobot::CMessageBoxRobot() : hook(SetWindowsHookExA(WH_CBT, Watch, nullptr, GetCurrentThreadId()))
{
    robot = this;
}

CMessageBoxRobot::~CMessageBoxRobot()
{
    UnhookWindowsHookEx(hook);
    robot = nullptr;
}

LRESULT CALLBACK CMessageBoxRobot::Watch(int code, WPARAM window, LPARAM data)
{
    if (code == HCBT_ACTIVATE && IsDialog(reinterpret_cast<HWND>(window)))
    {
        robot->Answer(reinterpret_cast<HWND>(window));
    }
    return CallNextHookEx(nullptr, code, window, data);
}

void CMessageBoxRobot::Answer(HWND box)
{
    boxes.push_back({ReadText(box), ReadText(GetDlgItem(box, textControl)), ShowsWarningIcon(box)});
    PostMessageA(box, WM_COMMAND, IDOK, 0);
}
