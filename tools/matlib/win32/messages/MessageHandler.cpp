// MsgHandler.dll of matlib.exe: hands every message of the material library to the program while it listens.
#include "shared/MessageManager/IManager.h"
#include "tools/matlib/win32/messages/MessageSink.h"

namespace
{
MessageSink currentSink = nullptr;
void* sinkContext = nullptr;

int Forward(const char* text)
{
    constexpr int answerOk = 1;
    if (currentSink != nullptr && text != nullptr)
    {
        currentSink(sinkContext, text);
    }
    return answerOk;
}

class CForwardingManager final : public msg::IManager
{
    using Owner = msg::WindowHandle;
    using Text = const char*;

public:
    int Invoke(Callback callback, void* a, void* b, void* c, void* d) override
    {
        return callback(a, b, c, d);
    }

    int Show(Owner, Text, unsigned, Text text, Text) override { return Forward(text); }
    int ShowGeneric(Owner, unsigned, Text text, Text) override { return Forward(text); }
    int ShowDefaultOwner(Text, unsigned, Text text, Text) override { return Forward(text); }
    int ShowGenericDefaultOwner(unsigned, Text text, Text) override { return Forward(text); }

    int ShowOnce(Owner, Text, Text, unsigned, Text text, Text, Text) override { return Forward(text); }
    int ShowOnceGeneric(Owner, Text, unsigned, Text text, Text, Text) override { return Forward(text); }
    int ShowOnceDefaultOwner(Text, Text, unsigned, Text text, Text, Text) override { return Forward(text); }
    int ShowOnceGenericDefaultOwner(Text, unsigned, Text text, Text, Text) override { return Forward(text); }

    int Ask(Owner, Text, unsigned, Text text, unsigned, Text) override { return Forward(text); }
    int AskGeneric(Owner, unsigned, Text text, unsigned, Text) override { return Forward(text); }
    int AskDefaultOwner(Text, unsigned, Text text, unsigned, Text) override { return Forward(text); }
    int AskGenericDefaultOwner(unsigned, Text text, unsigned, Text) override { return Forward(text); }

    int AskRemembered(Owner, Text, Text, unsigned, Text text, unsigned, Text, Text) override
    {
        return Forward(text);
    }
    int AskRememberedGeneric(Owner, Text, unsigned, Text text, unsigned, Text, Text) override
    {
        return Forward(text);
    }
    int AskRememberedDefaultOwner(Text, Text, unsigned, Text text, unsigned, Text, Text) override
    {
        return Forward(text);
    }
    int AskRememberedGenericDefaultOwner(Text, unsigned, Text text, unsigned, Text, Text) override
    {
        return Forward(text);
    }

    void Reserved17() override {}
    [[nodiscard]] bool Query18() override { return true; }
    void Reserved19() override {}
    void Reserved20() override {}
    void Reserved21() override {}
    void Reserved22() override {}
    void Reserved23() override {}
    [[nodiscard]] int Query24() override { return 0; }
    void Reserved25() override {}
};
} // namespace

extern "C"
{
    __declspec(dllexport) msg::IManager* GetMsgHandlerManager()
    {
        static CForwardingManager manager;
        return &manager;
    }

    // The library asks before each message: without a sink it opens a box.
    __declspec(dllexport) bool IsMsgHandlerEnabled()
    {
        return currentSink != nullptr;
    }

    // The library looks for this entry point; the sink alone decides.
    __declspec(dllexport) void SetMsgHandlerEnabled(bool) {}

    __declspec(dllexport) void SetMessageSink(MessageSink sink, void* context)
    {
        currentSink = sink;
        sinkContext = context;
    }
}
