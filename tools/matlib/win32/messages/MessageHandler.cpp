// MsgHandler.dll of matlib.exe: hands every message of the material library to the program while it listens.
#include "MaterialLibrary/CManagerAdapter.h"
#include "tools/matlib/win32/messages/MessageSink.h"

namespace
{
MessageSink currentSink = nullptr;
void* sinkContext = nullptr;

class CForwardingManager final : public msg::CManagerAdapter
{
protected:
    int OnMessage(const msg::MessageRequest& message) override
    {
        constexpr int answerOk = 1;
        if (currentSink != nullptr && message.text != nullptr)
        {
            currentSink(sinkContext, message.text);
        }
        return answerOk;
    }
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
