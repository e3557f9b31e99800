#pragma once

#include "framework/CModuleState.h"
#include "shared/MessageManager/ISystemMessageBox.h"

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

// Takes the place of the system's message box while it lives and keeps what would have been shown.
class CollectedMessages final : public msg::ISystemMessageBox
{
public:
    struct Box
    {
        std::string text;
        std::string caption;
        unsigned style;
        msg::WindowHandle owner;
        CModuleState* state; // the state that the thread was in
    };

    CollectedMessages() : previous(msg::ReplaceSystemMessageBox(this)) {}
    ~CollectedMessages() override { msg::ReplaceSystemMessageBox(previous); }
    CollectedMessages(const CollectedMessages&) = delete;
    CollectedMessages& operator=(const CollectedMessages&) = delete;

    int Show(msg::WindowHandle owner, const char* text, const char* caption, unsigned style) override
    {
        boxes.push_back({text, caption, style, owner, CurrentModuleState()});
        if (prints)
        {
            std::fprintf(stderr, "[%s] [%s] style %u owner %d\n", caption, text, style, owner != nullptr);
        }
        if (onShow)
        {
            onShow();
        }
        return answer;
    }

    [[nodiscard]] msg::WindowHandle FindMainWindow() override { return mainWindow; }
    [[nodiscard]] std::string GetApplicationName() override { return applicationName; }
    [[nodiscard]] std::string GetExecutablePath() override { return executablePath; }

    bool prints = false; // to the standard error stream: what a test of the process's end can see
    std::vector<Box> boxes;
    std::function<void()> onShow;
    int answer = msg::answerOk;
    msg::WindowHandle mainWindow = nullptr;
    std::string applicationName = "test";
    std::string executablePath;

private:
    msg::ISystemMessageBox* previous;
};
