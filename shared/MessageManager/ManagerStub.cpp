#include "shared/MessageManager/ManagerStub.h"

#include "shared/MessageManager/ISystemMessageBox.h"
#include "shared/Translation/Translate.h"

#include <mutex>
#include <string>

namespace
{
// One message on its way to the user.
struct Message
{
    msg::WindowHandle owner = nullptr;
    bool hasOwner = false; // false: the application's main window is the owner, or none
    std::string id;        // what a choice not to show it again is remembered under; empty: not offered
    unsigned severity = 0;
    std::string type;
    std::string text;
    const char* caption = nullptr;   // null: the application's name
    const char* checkText = nullptr; // the text of the don't-show-again choice
    unsigned buttons = 0;            // style bits of a system message box
    int suppressed = 0;              // 1: not shown, the user asked not to see it again
    int answerToRemember = 0;        // non-zero: an answer is to be remembered
};

const char* OrEmpty(const char* text)
{
    return text != nullptr ? text : "";
}

unsigned IconOfSeverity(unsigned severity)
{
    switch (severity)
    {
    case msg::severityWarning:
        return msg::boxIconExclamation;
    case msg::severityError:
    case msg::severitySevereError:
        return msg::boxIconStop;
    default:
        return msg::boxIconInformation;
    }
}

// The application's name, or else the running program's file name without its folder and its last extension.
std::string DefaultCaption()
{
    if (std::string name = msg::GetSystemMessageBox().GetApplicationName(); !name.empty())
    {
        return name;
    }
    std::string name = msg::GetSystemMessageBox().GetExecutablePath();
    name.erase(0, name.find_last_of("\\/") + 1);
    if (const std::size_t dot = name.find_last_of('.'); dot != std::string::npos)
    {
        name.erase(dot);
    }
    return name;
}

int ShowMessage(const Message& message)
{
    msg::ISystemMessageBox& box = msg::GetSystemMessageBox();
    const unsigned style = (message.buttons & ~msg::boxIconMask) | IconOfSeverity(message.severity);
    const msg::WindowHandle owner = message.hasOwner ? message.owner : box.FindMainWindow();
    const std::string caption = message.caption != nullptr ? std::string(message.caption) : DefaultCaption();
    return box.Show(owner, message.text.c_str(), caption.c_str(), style);
}

// Two threads with messages of this kind do not load the handler module twice.
msg::IRegistrator* FindRegistrator(msg::CHandlerModule& handler)
{
    static std::mutex lock;
    const std::scoped_lock guard(lock);
    return handler.FindRegistrator();
}

int ShowUnlessSuppressed(Message& message, msg::IRegistrator* registrator)
{
    if (registrator != nullptr && registrator->IsSuppressed(message.id.c_str()))
    {
        message.suppressed = 1;
        return msg::answerOk;
    }
    if (message.checkText == nullptr)
    {
        message.checkText = translate(sharedDomain, sharedCatalogue, "Don't show this message again");
    }
    const int answer = ShowMessage(message);
    if (message.answerToRemember != 0 && registrator != nullptr)
    {
        registrator->Remember(message.id.c_str(), answer);
    }
    return msg::answerOk;
}
} // namespace

int msg::ManagerStub::OnMessage(const MessageRequest& request)
{
    Message message{.owner = request.owner,
                    .hasOwner = request.hasOwner,
                    .id = OrEmpty(request.id),
                    .severity = request.severity,
                    .type = OrEmpty(request.type),
                    .text = OrEmpty(request.text),
                    .caption = request.caption,
                    .checkText = request.checkText,
                    .buttons = request.buttons};
    if (request.kind == MessageKind::ShowOnce)
    {
        return ShowUnlessSuppressed(message, FindRegistrator(*handler));
    }
    if (request.kind == MessageKind::AskRemembered && message.checkText == nullptr)
    {
        message.checkText =
            translate(sharedDomain, sharedCatalogue, "Remember answer and don't show this message box again");
    }
    return ShowMessage(message);
}
