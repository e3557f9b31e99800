#include "CLoggingManager.h"

#include "CAnswerStore.h"
#include "MessageLog.h"

#include <windows.h>

#include <new>

namespace
{
constexpr int answerOk = 1;

UINT IconOf(unsigned severity)
{
    switch (severity)
    {
    case msg::severityWarning:
        return MB_ICONWARNING;
    case msg::severityError:
    case msg::severitySevereError:
        return MB_ICONERROR;
    default:
        return MB_ICONINFORMATION;
    }
}

void Log(const msg::MessageRequest& message)
{
    try
    {
        LogMessage(message.severity, message.text != nullptr ? message.text : "");
    }
    catch (const std::bad_alloc&)
    {
        // a lost line of the log is no reason to end the host
    }
}

HWND OwnerOf(const msg::MessageRequest& message)
{
    return message.hasOwner ? static_cast<HWND>(message.owner) : GetActiveWindow();
}

int AskUser(const msg::MessageRequest& message)
{
    Log(message);
    return MessageBoxA(OwnerOf(message), message.text,
                       message.caption != nullptr ? message.caption : "Example host",
                       message.buttons | IconOf(message.severity));
}

// A box for the question and, as a system's box has nothing to tick, one for whether to remember the
// answer.
int AskUnlessRemembered(const msg::MessageRequest& message, const char* standardCheckText)
{
    if (const auto answer = GetAnswerStore().Find(message.id))
    {
        return *answer;
    }
    const int answer = AskUser(message);
    const char* const question = message.checkText != nullptr ? message.checkText : standardCheckText;
    if (MessageBoxA(OwnerOf(message), question, message.caption, MB_OKCANCEL | MB_DEFBUTTON2) == IDOK)
    {
        GetAnswerStore().Remember(message.id, answer);
    }
    return answer;
}
} // namespace

int CLoggingManager::OnMessage(const msg::MessageRequest& message)
{
    switch (message.kind)
    {
    case msg::MessageKind::Ask:
        return AskUser(message);
    case msg::MessageKind::AskRemembered:
        return AskUnlessRemembered(message, "Remember the answer?");
    case msg::MessageKind::ShowOnce: // must be seen, or there would be nothing to silence
        AskUnlessRemembered(message, "Don't show this message again?");
        return answerOk;
    default:
        Log(message);
        return answerOk;
    }
}
