#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Presses the OK button of every message box that the calling thread shows while the robot lives, and
// keeps what the boxes said. There is one robot at a time.
class CMessageBoxRobot
{
public:
    CMessageBoxRobot() { boxes.clear(); }
    ~CMessageBoxRobot() { UnhookWindowsHookEx(hook); }
    CMessageBoxRobot(const CMessageBoxRobot&) = delete;
    CMessageBoxRobot& operator=(const CMessageBoxRobot&) = delete;

    // "box Caption: text", or "box Caption (warning): text" of one with the exclamation icon.
    [[nodiscard]] static const std::vector<std::string>& GetBoxes() { return boxes; }

private:
    static LRESULT CALLBACK Watch(int code, WPARAM wParam, LPARAM lParam)
    {
        const auto box = reinterpret_cast<HWND>(wParam);
        char name[16] = {};
        if (code == HCBT_ACTIVATE && GetClassNameA(box, name, sizeof name) != 0 &&
            name == std::string("#32770"))
        {
            constexpr int textControl = 0xFFFF;
            const HWND first = FindWindowExA(box, nullptr, "Static", nullptr); // the icon's, if there is one
            const LRESULT icon = SendMessageA(first, STM_GETICON, 0, 0);
            const bool isWarning = icon == reinterpret_cast<LRESULT>(LoadIconA(nullptr, IDI_EXCLAMATION));
            boxes.push_back("box " + ReadText(box) + (isWarning ? " (warning): " : ": ") +
                            ReadText(GetDlgItem(box, textControl)));
            PostMessageA(box, WM_COMMAND, IDOK, 0);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static std::string ReadText(HWND window)
    {
        char text[1000] = {};
        GetWindowTextA(window, text, sizeof text);
        return text;
    }

    static inline std::vector<std::string> boxes;
    HHOOK hook = SetWindowsHookExA(WH_CBT, Watch, nullptr, GetCurrentThreadId());
};
