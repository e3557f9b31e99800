#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Presses the OK button of every message box that the calling thread shows while the robot lives, and
// keeps what the boxes said. There is one robot at a time.
class CMessageBoxRobot
{
public:
    struct Box
    {
        std::string caption;
        std::string text;
        bool isWarning; // shows the exclamation icon
    };

    CMessageBoxRobot();
    ~CMessageBoxRobot();
    CMessageBoxRobot(const CMessageBoxRobot&) = delete;
    CMessageBoxRobot& operator=(const CMessageBoxRobot&) = delete;

    [[nodiscard]] const std::vector<Box>& GetBoxes() const { return boxes; }

private:
    static LRESULT CALLBACK Watch(int code, WPARAM window, LPARAM data);
    void Answer(HWND box);

    static CMessageBoxRobot* robot;
    HHOOK hook;
    std::vector<Box> boxes;
};
