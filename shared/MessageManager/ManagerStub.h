#pragma once

#include "shared/MessageManager/CHandlerModule.h"
#include "shared/MessageManager/Message.h"

namespace msg
{
// Shows messages in plain system message boxes, for programs without a handler module. The box offers no
// choice not to show a message again; choices that a host's registrator holds are respected.
class ManagerStub final : public IManager
{
public:
    explicit ManagerStub(CHandlerModule& handlerModule) : handler(handlerModule) {}

    int Invoke(Callback callback, void* a, void* b, void* c, void* d) override;

    int Show(WindowHandle owner, const char* type, unsigned severity, const char* text,
             const char* caption) override;
    int ShowGeneric(WindowHandle owner, unsigned severity, const char* text, const char* caption) override;
    int ShowDefaultOwner(const char* type, unsigned severity, const char* text, const char* caption) override;
    int ShowGenericDefaultOwner(unsigned severity, const char* text, const char* caption) override;

    int ShowOnce(WindowHandle owner, const char* id, const char* type, unsigned severity, const char* text,
                 const char* caption, const char* checkText) override;
    int ShowOnceGeneric(WindowHandle owner, const char* id, unsigned severity, const char* text,
                        const char* caption, const char* checkText) override;
    int ShowOnceDefaultOwner(const char* id, const char* type, unsigned severity, const char* text,
                             const char* caption, const char* checkText) override;
    int ShowOnceGenericDefaultOwner(const char* id, unsigned severity, const char* text, const char* caption,
                                    const char* checkText) override;

    int Ask(WindowHandle owner, const char* type, unsigned severity, const char* text, unsigned buttons,
            const char* caption) override;
    int AskGeneric(WindowHandle owner, unsigned severity, const char* text, unsigned buttons,
                   const char* caption) override;
    int AskDefaultOwner(const char* type, unsigned severity, const char* text, unsigned buttons,
                        const char* caption) override;
    int AskGenericDefaultOwner(unsigned severity, const char* text, unsigned buttons,
                               const char* caption) override;

    int AskRemembered(WindowHandle owner, const char* id, const char* type, unsigned severity,
                      const char* text, unsigned buttons, const char* caption,
                      const char* checkText) override;
    int AskRememberedGeneric(WindowHandle owner, const char* id, unsigned severity, const char* text,
                             unsigned buttons, const char* caption, const char* checkText) override;
    int AskRememberedDefaultOwner(const char* id, const char* type, unsigned severity, const char* text,
                                  unsigned buttons, const char* caption, const char* checkText) override;
    int AskRememberedGenericDefaultOwner(const char* id, unsigned severity, const char* text,
                                         unsigned buttons, const char* caption,
                                         const char* checkText) override;

    void Reserved17() override {}
    [[nodiscard]] bool Query18() override { return true; }
    void Reserved19() override {}
    void Reserved20() override {}
    void Reserved21() override {}
    void Reserved22() override {}
    void Reserved23() override {}
    [[nodiscard]] int Query24() override { return 0; }
    void Reserved25() override {}

private:
    int ShowUnlessSuppressed(Message& message);

    CHandlerModule& handler;
};
} // namespace msg
