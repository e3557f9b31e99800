// MsgHandler.dll of an example host: put it beside the host's executable, and the library's messages go
// through it. Start here, then see CLoggingManager.
#include "CAnswerStore.h"
#include "CLoggingManager.h"

#include <atomic>

namespace
{
std::atomic<bool> isEnabled = true;
msg::IRegistrator* registratorOfHost = nullptr;
} // namespace

extern "C"
{
    // Asked for once; lives as long as the process.
    __declspec(dllexport) msg::IManager* GetMsgHandlerManager()
    {
        static CLoggingManager manager;
        return &manager;
    }

    // Asked before every message; false gives the plain message box.
    __declspec(dllexport) bool IsMsgHandlerEnabled()
    {
        return isEnabled;
    }

    __declspec(dllexport) void SetMsgHandlerEnabled(bool enabled)
    {
        isEnabled = enabled;
    }

    // A host may keep the answers itself.
    __declspec(dllexport) void SetMsgHandlerRegistrator(msg::IRegistrator* registrator)
    {
        registratorOfHost = registrator;
    }

    // Where plain boxes look up and leave what not to show again.
    __declspec(dllexport) msg::IRegistrator* GetMsgHandlerRegistrator()
    {
        return registratorOfHost != nullptr ? registratorOfHost : &GetAnswerStore();
    }
}
