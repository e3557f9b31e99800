#pragma once

#include "shared/MessageManager/IManager.h"

#include <string>

namespace msg
{
// One message on its way to the user.
struct Message
{
    WindowHandle owner = nullptr;
    bool hasOwner = false; // false: the application's main window is the owner, or none
    std::string id;        // what a choice not to show it again is remembered under; empty: not offered
    unsigned severity = severityInformation;
    std::string type = genericType;
    std::string text;
    const char* caption = nullptr;   // null: the application's name
    const char* checkText = nullptr; // the text of the don't-show-again choice
    unsigned buttons = 0;            // style bits of a system message box
    int suppressed = 0;              // 1: not shown, the user asked not to see it again
    int answerToRemember = 0;        // non-zero: an answer is to be remembered
};

// Shows the message in the system's message box and returns the button's answer.
int ShowMessage(Message& message);

// The icon bits of a message box for a severity.
[[nodiscard]] unsigned IconOfSeverity(unsigned severity);

// The caption of a message that brings none: the application's name, or else the running program's file
// name without its folder and its last extension.
[[nodiscard]] std::string DefaultCaption();
} // namespace msg
