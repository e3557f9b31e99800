#pragma once

#include "MaterialLibrary/IManager.h"

namespace msg
{
// What a message asks of the user.
enum class MessageKind
{
    Show,         // to read it
    ShowOnce,     // to read it; the user may ask not to see it again, and the result is always 1
    Ask,          // to answer
    AskRemembered // to answer; the user may have the answer stored
};

// A message that arrived through one of the slots 1 to 16 of IManager. Members that the slot does not have
// keep these defaults. The texts live as long as the call.
struct MessageRequest
{
    MessageKind kind = MessageKind::Show; // what it asks of the user
    bool hasOwner = false;                // false: the manager chooses the owner window
    WindowHandle owner = nullptr;         // null: the message has none
    const char* id = nullptr;             // key under which the user's choice is stored
    const char* type = genericType;       // the group that the message belongs to
    unsigned severity = 0;                // severityInformation and others
    const char* text = nullptr;           // the message itself
    unsigned buttons = 0;                 // style bits that select the buttons of a system message box
    const char* caption = nullptr;        // null: the application's name
    const char* checkText = nullptr;      // label of the check box; null: a standard text
};

// A message manager with one operation in place of sixteen slots. Derive from it and implement OnMessage.
class CManagerAdapter : public IManager
{
public:
    int Invoke(Callback callback, void* a, void* b, void* c, void* d) override
    {
        return callback(a, b, c, d);
    }

    int Show(WindowHandle owner, const char* type, unsigned severity, const char* text,
             const char* caption) override
    {
        return OnMessage(
            {MessageKind::Show, true, owner, nullptr, type, severity, text, 0, caption, nullptr});
    }
    int ShowGeneric(WindowHandle owner, unsigned severity, const char* text, const char* caption) override
    {
        return Show(owner, genericType, severity, text, caption);
    }
    int ShowDefaultOwner(const char* type, unsigned severity, const char* text, const char* caption) override
    {
        return OnMessage(
            {MessageKind::Show, false, nullptr, nullptr, type, severity, text, 0, caption, nullptr});
    }
    int ShowGenericDefaultOwner(unsigned severity, const char* text, const char* caption) override
    {
        return ShowDefaultOwner(genericType, severity, text, caption);
    }

    int ShowOnce(WindowHandle owner, const char* id, const char* type, unsigned severity, const char* text,
                 const char* caption, const char* checkText) override
    {
        return OnMessage(
            {MessageKind::ShowOnce, true, owner, id, type, severity, text, 0, caption, checkText});
    }
    int ShowOnceGeneric(WindowHandle owner, const char* id, unsigned severity, const char* text,
                        const char* caption, const char* checkText) override
    {
        return ShowOnce(owner, id, genericType, severity, text, caption, checkText);
    }
    int ShowOnceDefaultOwner(const char* id, const char* type, unsigned severity, const char* text,
                             const char* caption, const char* checkText) override
    {
        return OnMessage(
            {MessageKind::ShowOnce, false, nullptr, id, type, severity, text, 0, caption, checkText});
    }
    int ShowOnceGenericDefaultOwner(const char* id, unsigned severity, const char* text, const char* caption,
                                    const char* checkText) override
    {
        return ShowOnceDefaultOwner(id, genericType, severity, text, caption, checkText);
    }

    int Ask(WindowHandle owner, const char* type, unsigned severity, const char* text, unsigned buttons,
            const char* caption) override
    {
        return OnMessage(
            {MessageKind::Ask, true, owner, nullptr, type, severity, text, buttons, caption, nullptr});
    }
    int AskGeneric(WindowHandle owner, unsigned severity, const char* text, unsigned buttons,
                   const char* caption) override
    {
        return Ask(owner, genericType, severity, text, buttons, caption);
    }
    int AskDefaultOwner(const char* type, unsigned severity, const char* text, unsigned buttons,
                        const char* caption) override
    {
        return OnMessage(
            {MessageKind::Ask, false, nullptr, nullptr, type, severity, text, buttons, caption, nullptr});
    }
    int AskGenericDefaultOwner(unsigned severity, const char* text, unsigned buttons,
                               const char* caption) override
    {
        return AskDefaultOwner(genericType, severity, text, buttons, caption);
    }

    int AskRemembered(WindowHandle owner, const char* id, const char* type, unsigned severity,
                      const char* text, unsigned buttons, const char* caption, const char* checkText) override
    {
        return OnMessage(
            {MessageKind::AskRemembered, true, owner, id, type, severity, text, buttons, caption, checkText});
    }
    int AskRememberedGeneric(WindowHandle owner, const char* id, unsigned severity, const char* text,
                             unsigned buttons, const char* caption, const char* checkText) override
    {
        return AskRemembered(owner, id, genericType, severity, text, buttons, caption, checkText);
    }
    int AskRememberedDefaultOwner(const char* id, const char* type, unsigned severity, const char* text,
                                  unsigned buttons, const char* caption, const char* checkText) override
    {
        return OnMessage({MessageKind::AskRemembered, false, nullptr, id, type, severity, text, buttons,
                          caption, checkText});
    }
    int AskRememberedGenericDefaultOwner(const char* id, unsigned severity, const char* text,
                                         unsigned buttons, const char* caption,
                                         const char* checkText) override
    {
        return AskRememberedDefaultOwner(id, genericType, severity, text, buttons, caption, checkText);
    }

    // The handler's own slots, which the library never calls.
    void Reserved17() override {}
    [[nodiscard]] bool Query18() override { return true; }
    void Reserved19() override {}
    void Reserved20() override {}
    void Reserved21() override {}
    void Reserved22() override {}
    void Reserved23() override {}
    [[nodiscard]] int Query24() override { return 0; }
    void Reserved25() override {}

protected:
    // Shows the message and returns the pressed button as a system message box does (1 = OK). Must not throw,
    // since the library may have been built with another compiler.
    virtual int OnMessage(const MessageRequest& message) = 0;
};
} // namespace msg
