#include "shared/MessageManager/Message.h"

#include "shared/MessageManager/ISystemMessageBox.h"

unsigned msg::IconOfSeverity(unsigned severity)
{
    switch (severity)
    {
    case severityWarning:
        return boxIconExclamation;
    case severityError:
    case severitySevereError:
        return boxIconStop;
    default:
        return boxIconInformation;
    }
}

std::string msg::DefaultCaption()
{
    if (std::string name = GetSystemMessageBox().GetApplicationName(); !name.empty())
    {
        return name;
    }
    std::string name = GetSystemMessageBox().GetExecutablePath();
    name.erase(0, name.find_last_of("\\/") + 1);
    if (const std::size_t dot = name.find_last_of('.'); dot != std::string::npos)
    {
        name.erase(dot);
    }
    return name;
}

int msg::ShowMessage(Message& message)
{
    ISystemMessageBox& box = GetSystemMessageBox();
    const unsigned style = (message.buttons & ~boxIconMask) | IconOfSeverity(message.severity);
    const WindowHandle owner = message.hasOwner ? message.owner : box.FindMainWindow();
    const std::string caption = message.caption != nullptr ? std::string(message.caption) : DefaultCaption();
    return box.Show(owner, message.text.c_str(), caption.c_str(), style);
}
