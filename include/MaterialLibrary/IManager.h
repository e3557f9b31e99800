#pragma once

namespace msg
{
// A window handle of the system, or null.
using WindowHandle = void*;

// Severities of a message. Any other value counts as information.
inline constexpr unsigned severityInformation = 1;
inline constexpr unsigned severityWarning = 2;
inline constexpr unsigned severityError = 3;
inline constexpr unsigned severitySevereError = 4;

// The type of messages that belong to no particular group.
inline constexpr const char* genericType = "msgtype.GENERIC";

// Shows messages to the user. The library has a plain implementation. A host can supply another one in its
// module "MsgHandler.dll" (CManagerAdapter implements most of the slots). That module may be built with
// another compiler: texts are `const char*` in the system's multibyte code page, and the order of the
// operations is a binary contract. No two operations share a name, since compilers order overloads
// differently.
//
// Results are those of a system message box (1 = OK). "Generic" operations use the type `genericType`.
// "DefaultOwner" operations choose the owner window themselves. A null `caption` stands for the
// application's name, and a null `checkText` for a standard text.
class IManager
{
public:
    // What Invoke calls.
    using Callback = int (*)(void* a, void* b, void* c, void* d);

    // Calls callback(a, b, c, d) and returns its result.
    virtual int Invoke(Callback callback, void* a, void* b, void* c, void* d) = 0;

    // Show a message with an OK button.
    virtual int Show(WindowHandle owner, const char* type, unsigned severity, const char* text,
                     const char* caption) = 0;
    // Show with the type `genericType`.
    virtual int ShowGeneric(WindowHandle owner, unsigned severity, const char* text, const char* caption) = 0;
    // Show over an owner window that the manager chooses.
    virtual int ShowDefaultOwner(const char* type, unsigned severity, const char* text,
                                 const char* caption) = 0;
    // ShowDefaultOwner with the type `genericType`.
    virtual int ShowGenericDefaultOwner(unsigned severity, const char* text, const char* caption) = 0;

    // Show a message that the user may ask not to see again; the choice is stored under `id`. Always 1.
    virtual int ShowOnce(WindowHandle owner, const char* id, const char* type, unsigned severity,
                         const char* text, const char* caption, const char* checkText) = 0;
    // ShowOnce with the type `genericType`.
    virtual int ShowOnceGeneric(WindowHandle owner, const char* id, unsigned severity, const char* text,
                                const char* caption, const char* checkText) = 0;
    // ShowOnce over an owner window that the manager chooses.
    virtual int ShowOnceDefaultOwner(const char* id, const char* type, unsigned severity, const char* text,
                                     const char* caption, const char* checkText) = 0;
    // ShowOnceDefaultOwner with the type `genericType`.
    virtual int ShowOnceGenericDefaultOwner(const char* id, unsigned severity, const char* text,
                                            const char* caption, const char* checkText) = 0;

    // Ask a question; `buttons` are the style bits that select the buttons of a system message box.
    virtual int Ask(WindowHandle owner, const char* type, unsigned severity, const char* text,
                    unsigned buttons, const char* caption) = 0;
    // Ask with the type `genericType`.
    virtual int AskGeneric(WindowHandle owner, unsigned severity, const char* text, unsigned buttons,
                           const char* caption) = 0;
    // Ask over an owner window that the manager chooses.
    virtual int AskDefaultOwner(const char* type, unsigned severity, const char* text, unsigned buttons,
                                const char* caption) = 0;
    // AskDefaultOwner with the type `genericType`.
    virtual int AskGenericDefaultOwner(unsigned severity, const char* text, unsigned buttons,
                                       const char* caption) = 0;

    // Ask a question. The user may have the answer stored under `id`.
    virtual int AskRemembered(WindowHandle owner, const char* id, const char* type, unsigned severity,
                              const char* text, unsigned buttons, const char* caption,
                              const char* checkText) = 0;
    // AskRemembered with the type `genericType`.
    virtual int AskRememberedGeneric(WindowHandle owner, const char* id, unsigned severity, const char* text,
                                     unsigned buttons, const char* caption, const char* checkText) = 0;
    // AskRemembered over an owner window that the manager chooses.
    virtual int AskRememberedDefaultOwner(const char* id, const char* type, unsigned severity,
                                          const char* text, unsigned buttons, const char* caption,
                                          const char* checkText) = 0;
    // AskRememberedDefaultOwner with the type `genericType`.
    virtual int AskRememberedGenericDefaultOwner(const char* id, unsigned severity, const char* text,
                                                 unsigned buttons, const char* caption,
                                                 const char* checkText) = 0;

    // Slots that belong to hosts' handlers; the library calls none of them.
    virtual void Reserved17() = 0;
    [[nodiscard]] virtual bool Query18() = 0; // the handler's own
    virtual void Reserved19() = 0;            // the handler's own
    virtual void Reserved20() = 0;            // the handler's own
    virtual void Reserved21() = 0;            // the handler's own
    virtual void Reserved22() = 0;            // the handler's own
    virtual void Reserved23() = 0;            // the handler's own
    [[nodiscard]] virtual int Query24() = 0;  // the handler's own
    virtual void Reserved25() = 0;            // the handler's own

    // The last slot; managers are never released.
    virtual ~IManager() = default;
};

// Stores users' choices not to see a message again. The host's handler module supplies it.
class IRegistrator
{
public:
    // Stores `answer` for the message `id`.
    virtual void Remember(const char* id, int answer) = 0;
    virtual void Reserved1() = 0; // the handler's own
    virtual void Reserved2() = 0; // the handler's own
    // Whether the user asked not to see the message `id` again.
    [[nodiscard]] virtual bool IsSuppressed(const char* id) = 0;

protected:
    ~IRegistrator() = default;
};
} // namespace msg
