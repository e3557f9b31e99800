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

int Tell(unsigned severity, const char* text)
{
    try
    {
        LogMessage(severity, text != nullptr ? text : "");
    }
    catch (const std::bad_alloc&)
    {
        // a lost line of the log is no reason to end the host
    }
    return answerOk;
}

int AskUser(HWND owner, unsigned severity, const char* text, unsigned buttons, const char* caption)
{
    Tell(severity, text);
    return MessageBoxA(owner, text, caption != nullptr ? caption : "Example host",
                       buttons | IconOf(severity));
}

// A box for the question and, as a system's box has nothing to tick, one for whether to remember the
// answer.
int AskUnlessRemembered(HWND owner, const char* id, unsigned severity, const char* text, unsigned buttons,
                        const char* caption, const char* check)
{
    if (const auto answer = GetAnswerStore().Find(id))
    {
        return *answer;
    }
    const int answer = AskUser(owner, severity, text, buttons, caption);
    const char* const question = check != nullptr ? check : "Remember the answer?";
    if (MessageBoxA(owner, question, caption, MB_OKCANCEL | MB_DEFBUTTON2) == IDOK)
    {
        GetAnswerStore().Remember(id, answer);
    }
    return answer;
}

// A message that the user may silence must be seen, or there would be nothing to silence.
int ShowUnlessSilenced(HWND owner, const char* id, unsigned severity, const char* text, const char* caption,
                       const char* check)
{
    AskUnlessRemembered(owner, id, severity, text, MB_OK, caption,
                        check != nullptr ? check : "Don't show this message again?");
    return answerOk;
}

HWND AsWindow(msg::WindowHandle handle)
{
    return static_cast<HWND>(handle);
}
} // namespace

int CLoggingManager::Invoke(Callback callback, void* a, void* b, void* c, void* d)
{
    return callback(a, b, c, d);
}

int CLoggingManager::Show(Owner, Text, unsigned severity, Text text, Text)
{
    return Tell(severity, text);
}

int CLoggingManager::ShowGeneric(Owner, unsigned severity, Text text, Text)
{
    return Tell(severity, text);
}

int CLoggingManager::ShowDefaultOwner(Text, unsigned severity, Text text, Text)
{
    return Tell(severity, text);
}

int CLoggingManager::ShowGenericDefaultOwner(unsigned severity, Text text, Text)
{
    return Tell(severity, text);
}

int CLoggingManager::ShowOnce(Owner owner, Text id, Text, unsigned severity, Text text, Text caption,
                              Text check)
{
    return ShowUnlessSilenced(AsWindow(owner), id, severity, text, caption, check);
}

int CLoggingManager::ShowOnceGeneric(Owner owner, Text id, unsigned severity, Text text, Text caption,
                                     Text check)
{
    return ShowUnlessSilenced(AsWindow(owner), id, severity, text, caption, check);
}

int CLoggingManager::ShowOnceDefaultOwner(Text id, Text, unsigned severity, Text text, Text caption,
                                          Text check)
{
    return ShowUnlessSilenced(GetActiveWindow(), id, severity, text, caption, check);
}

int CLoggingManager::ShowOnceGenericDefaultOwner(Text id, unsigned severity, Text text, Text caption,
                                                 Text check)
{
    return ShowUnlessSilenced(GetActiveWindow(), id, severity, text, caption, check);
}

int CLoggingManager::Ask(Owner owner, Text, unsigned severity, Text text, unsigned buttons, Text caption)
{
    return AskUser(AsWindow(owner), severity, text, buttons, caption);
}

int CLoggingManager::AskGeneric(Owner owner, unsigned severity, Text text, unsigned buttons, Text caption)
{
    return AskUser(AsWindow(owner), severity, text, buttons, caption);
}

int CLoggingManager::AskDefaultOwner(Text, unsigned severity, Text text, unsigned buttons, Text caption)
{
    return AskUser(GetActiveWindow(), severity, text, buttons, caption);
}

int CLoggingManager::AskGenericDefaultOwner(unsigned severity, Text text, unsigned buttons, Text caption)
{
    return AskUser(GetActiveWindow(), severity, text, buttons, caption);
}

int CLoggingManager::AskRemembered(Owner owner, Text id, Text, unsigned severity, Text text, unsigned buttons,
                                   Text caption, Text check)
{
    return AskUnlessRemembered(AsWindow(owner), id, severity, text, buttons, caption, check);
}

int CLoggingManager::AskRememberedGeneric(Owner owner, Text id, unsigned severity, Text text,
                                          unsigned buttons, Text caption, Text check)
{
    return AskUnlessRemembered(AsWindow(owner), id, severity, text, buttons, caption, check);
}

int CLoggingManager::AskRememberedDefaultOwner(Text id, Text, unsigned severity, Text text, unsigned buttons,
                                               Text caption, Text check)
{
    return AskUnlessRemembered(GetActiveWindow(), id, severity, text, buttons, caption, check);
}

int CLoggingManager::AskRememberedGenericDefaultOwner(Text id, unsigned severity, Text text, unsigned buttons,
                                                      Text caption, Text check)
{
    return AskUnlessRemembered(GetActiveWindow(), id, severity, text, buttons, caption, check);
}
