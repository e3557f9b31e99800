#pragma once

#include "shared/MessageManager/ISystemMessageBox.h"

#include <cstdio>

// Takes the place of the system's message box while it lives and prints to the standard error stream: what a
// test of the process's end can see.
class CPrintingBox final : public msg::ISystemMessageBox
{
public:
    CPrintingBox() : previous(msg::ReplaceSystemMessageBox(this)) {}
    ~CPrintingBox() override { msg::ReplaceSystemMessageBox(previous); }
    CPrintingBox(const CPrintingBox&) = delete;
    CPrintingBox& operator=(const CPrintingBox&) = delete;

    int Show(msg::WindowHandle owner, const char* text, const char* caption, unsigned style) override
    {
        std::fprintf(stderr, "[%s] [%s] style %u owner %d\n", caption, text, style, owner != nullptr);
        return msg::answerOk;
    }

    [[nodiscard]] msg::WindowHandle FindMainWindow() override { return this; }
    [[nodiscard]] std::string GetApplicationName() override { return {}; }
    [[nodiscard]] std::string GetExecutablePath() override { return {}; }

private:
    msg::ISystemMessageBox* previous;
};
