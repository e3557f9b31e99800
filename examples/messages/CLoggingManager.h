#pragma once

#include "shared/MessageManager/IManager.h"

// Shows the library's messages in the host's own way: what only tells goes to a log file, what asks is shown
// in a box, and an answer that the user wants remembered is not asked for again.
//
// The library may have been built with another compiler: no exception leaves these operations.
class CLoggingManager final : public msg::IManager
{
    using Owner = msg::WindowHandle;
    using Text = const char*;

public:
    int Invoke(Callback callback, void* a, void* b, void* c, void* d) override;

    int Show(Owner, Text type, unsigned severity, Text text, Text caption) override;
    int ShowGeneric(Owner, unsigned severity, Text text, Text caption) override;
    int ShowDefaultOwner(Text type, unsigned severity, Text text, Text caption) override;
    int ShowGenericDefaultOwner(unsigned severity, Text text, Text caption) override;

    int ShowOnce(Owner, Text id, Text type, unsigned severity, Text text, Text caption, Text check) override;
    int ShowOnceGeneric(Owner, Text id, unsigned severity, Text text, Text caption, Text check) override;
    int ShowOnceDefaultOwner(Text id, Text type, unsigned severity, Text text, Text caption,
                             Text check) override;
    int ShowOnceGenericDefaultOwner(Text id, unsigned severity, Text text, Text caption, Text check) override;

    int Ask(Owner, Text type, unsigned severity, Text text, unsigned buttons, Text caption) override;
    int AskGeneric(Owner, unsigned severity, Text text, unsigned buttons, Text caption) override;
    int AskDefaultOwner(Text type, unsigned severity, Text text, unsigned buttons, Text caption) override;
    int AskGenericDefaultOwner(unsigned severity, Text text, unsigned buttons, Text caption) override;

    int AskRemembered(Owner, Text id, Text type, unsigned severity, Text text, unsigned buttons, Text caption,
                      Text check) override;
    int AskRememberedGeneric(Owner, Text id, unsigned severity, Text text, unsigned buttons, Text caption,
                             Text check) override;
    int AskRememberedDefaultOwner(Text id, Text type, unsigned severity, Text text, unsigned buttons,
                                  Text caption, Text check) override;
    int AskRememberedGenericDefaultOwner(Text id, unsigned severity, Text text, unsigned buttons,
                                         Text caption, Text check) override;

    // The handler's own slots, which the library never calls.
    void Reserved17() override {}
    [[nodiscard]] bool Query18() override { return false; }
    void Reserved19() override {}
    void Reserved20() override {}
    void Reserved21() override {}
    void Reserved22() override {}
    void Reserved23() override {}
    [[nodiscard]] int Query24() override { return 0; }
    void Reserved25() override {}
};
