#include "shared/MessageManager/ManagerStub.h"

#include "shared/MessageManager/ISystemMessageBox.h"
#include "shared/Translation/Translate.h"

#include <mutex>

namespace
{
using msg::Message;

const char* OrEmpty(const char* text)
{
    return text != nullptr ? text : "";
}

Message MakeMessage(const char* type, unsigned severity, const char* text, const char* caption)
{
    Message message;
    message.type = OrEmpty(type);
    message.severity = severity;
    message.text = OrEmpty(text);
    message.caption = caption;
    return message;
}

Message Owned(Message message, msg::WindowHandle owner)
{
    message.owner = owner;
    message.hasOwner = true;
    return message;
}

Message Repeatable(Message message, const char* id, const char* checkText)
{
    message.id = OrEmpty(id);
    message.checkText = checkText;
    return message;
}

int Question(Message message, unsigned buttons)
{
    message.buttons = buttons;
    return msg::ShowMessage(message);
}

int RememberedQuestion(Message message, unsigned buttons)
{
    if (message.checkText == nullptr)
    {
        message.checkText =
            translate(sharedDomain, sharedCatalogue, "Remember answer and don't show this message box again");
    }
    return Question(std::move(message), buttons);
}

// Two threads with messages of this kind do not load the handler module twice.
std::mutex& MessageLock()
{
    static std::mutex lock;
    return lock;
}
} // namespace

namespace msg
{
int ManagerStub::Invoke(Callback callback, void* a, void* b, void* c, void* d)
{
    return callback(a, b, c, d);
}

int ManagerStub::Show(WindowHandle owner, const char* type, unsigned severity, const char* text,
                      const char* caption)
{
    return Question(Owned(MakeMessage(type, severity, text, caption), owner), 0);
}

int ManagerStub::ShowGeneric(WindowHandle owner, unsigned severity, const char* text, const char* caption)
{
    return Show(owner, genericType, severity, text, caption);
}

int ManagerStub::ShowDefaultOwner(const char* type, unsigned severity, const char* text, const char* caption)
{
    return Question(MakeMessage(type, severity, text, caption), 0);
}

int ManagerStub::ShowGenericDefaultOwner(unsigned severity, const char* text, const char* caption)
{
    return ShowDefaultOwner(genericType, severity, text, caption);
}

int ManagerStub::ShowUnlessSuppressed(Message& message)
{
    IRegistrator* registrator = nullptr;
    {
        const std::scoped_lock lock(MessageLock());
        registrator = handler.FindRegistrator();
    }
    if (registrator != nullptr && registrator->IsSuppressed(message.id.c_str()))
    {
        message.suppressed = 1;
        return answerOk;
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
    return answerOk;
}

int ManagerStub::ShowOnce(WindowHandle owner, const char* id, const char* type, unsigned severity,
                          const char* text, const char* caption, const char* checkText)
{
    Message message = Owned(Repeatable(MakeMessage(type, severity, text, caption), id, checkText), owner);
    return ShowUnlessSuppressed(message);
}

int ManagerStub::ShowOnceGeneric(WindowHandle owner, const char* id, unsigned severity, const char* text,
                                 const char* caption, const char* checkText)
{
    return ShowOnce(owner, id, genericType, severity, text, caption, checkText);
}

int ManagerStub::ShowOnceDefaultOwner(const char* id, const char* type, unsigned severity, const char* text,
                                      const char* caption, const char* checkText)
{
    Message message = Repeatable(MakeMessage(type, severity, text, caption), id, checkText);
    return ShowUnlessSuppressed(message);
}

int ManagerStub::ShowOnceGenericDefaultOwner(const char* id, unsigned severity, const char* text,
                                             const char* caption, const char* checkText)
{
    return ShowOnceDefaultOwner(id, genericType, severity, text, caption, checkText);
}

int ManagerStub::Ask(WindowHandle owner, const char* type, unsigned severity, const char* text,
                     unsigned buttons, const char* caption)
{
    return Question(Owned(MakeMessage(type, severity, text, caption), owner), buttons);
}

int ManagerStub::AskGeneric(WindowHandle owner, unsigned severity, const char* text, unsigned buttons,
                            const char* caption)
{
    return Ask(owner, genericType, severity, text, buttons, caption);
}

int ManagerStub::AskDefaultOwner(const char* type, unsigned severity, const char* text, unsigned buttons,
                                 const char* caption)
{
    return Question(MakeMessage(type, severity, text, caption), buttons);
}

int ManagerStub::AskGenericDefaultOwner(unsigned severity, const char* text, unsigned buttons,
                                        const char* caption)
{
    return AskDefaultOwner(genericType, severity, text, buttons, caption);
}

int ManagerStub::AskRemembered(WindowHandle owner, const char* id, const char* type, unsigned severity,
                               const char* text, unsigned buttons, const char* caption, const char* checkText)
{
    return RememberedQuestion(
        Owned(Repeatable(MakeMessage(type, severity, text, caption), id, checkText), owner), buttons);
}

int ManagerStub::AskRememberedGeneric(WindowHandle owner, const char* id, unsigned severity, const char* text,
                                      unsigned buttons, const char* caption, const char* checkText)
{
    return AskRemembered(owner, id, genericType, severity, text, buttons, caption, checkText);
}

int ManagerStub::AskRememberedDefaultOwner(const char* id, const char* type, unsigned severity,
                                           const char* text, unsigned buttons, const char* caption,
                                           const char* checkText)
{
    return RememberedQuestion(Repeatable(MakeMessage(type, severity, text, caption), id, checkText), buttons);
}

int ManagerStub::AskRememberedGenericDefaultOwner(const char* id, unsigned severity, const char* text,
                                                  unsigned buttons, const char* caption,
                                                  const char* checkText)
{
    return AskRememberedDefaultOwner(id, genericType, severity, text, buttons, caption, checkText);
}
} // namespace msg
